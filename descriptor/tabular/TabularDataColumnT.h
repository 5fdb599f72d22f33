#pragma once

#include "tabular/TabularDataColumn.h"
#include "values/storage/holder_parts.h"
#include "values/storage/list_access.h"

#include <exception>

namespace qzDescriptor {

/// Whether there is memory for what is reserved.
template <class F>
bool FindsRoom(F&& reserve) noexcept {
    try {
        reserve();
        return true;
    } catch (std::exception const&) {
        return false;
    }
}

/// The cells of a column in memory, and what does not depend on how their list keeps them.
template <BasicType B, CompoundType C, class List>
class ColumnStorage : public TabularDataColumn {
public:
    using TabularDataColumn::GetColumn;
    using TabularDataColumn::GetList;
    using TabularDataColumn::SetColumn;

    unsigned int GetRowCount() const override { return static_cast<unsigned int>(Access::Count(m_list)); }
    BasicType GetBasicType() const override { return B; }
    CompoundType GetCompoundType() const override { return C; }

    List const* GetList(std::type_identity<List>) const override { return &m_list; }
    bool GetColumn(List& values) const override {
        values = m_list;
        return true;
    }
    bool SetColumn(List const& values) override {
        m_list = values;
        return true;
    }
    bool SetCellValue(unsigned int row, Value const& value) override {
        if (row >= GetRowCount() || value.GetValuePtr() == nullptr)
            return false;
        CellOf<List> scratch{};
        if constexpr (s_scalarType<CellOf<List>> != BT_NONE) // read inline
            return value.GetValue(scratch, 0, 0) && Access::Set(m_list, row, scratch);
        auto const* const cell = ReadElement(*value.GetValuePtr(), scratch);
        return cell != nullptr && Access::Set(m_list, row, *cell);
    }
    bool Clear() override {
        Resize(0);
        return true;
    }

protected:
    using Access = ListAccess<List>;

    ColumnStorage() = default;
    explicit ColumnStorage(List list) : m_list(std::move(list)) {}

    List m_list;
};

/// A column of cells that lie side by side.
template <BasicType B, CompoundType C, class Vector>
class TabularDataColumnT : public ColumnStorage<B, C, Vector> {
    using Base = ColumnStorage<B, C, Vector>;
    using Base::m_list;

public:
    TabularDataColumnT() = default;
    explicit TabularDataColumnT(Vector values) : Base(std::move(values)) {}

    std::unique_ptr<TabularDataColumn> Clone(qzStlVector<unsigned int> const& rows) const override {
        return std::make_unique<TabularDataColumnT>(PickRows(m_list, rows));
    }
    std::unique_ptr<TabularDataColumn> Clone() const override {
        return std::make_unique<TabularDataColumnT>(m_list);
    }
    void Resize(unsigned int rows) override { m_list.resize(rows); }
    bool GetCellValue(unsigned int row, Value& value) const override {
        if (row >= m_list.size())
            return false;
        value = Value(ValuePtr::Create(m_list[row], DS_DEFAULT));
        return true;
    }
    bool Reserve(unsigned int rows) override {
        return FindsRoom([&] { m_list.reserve(rows); });
    }
    bool RemoveRows(RowSet const& rows) override {
        if (!rows.AreWithin(m_list.size()))
            return false;
        EraseRows(m_list, rows);
        return true;
    }
};

} // namespace qzDescriptor
