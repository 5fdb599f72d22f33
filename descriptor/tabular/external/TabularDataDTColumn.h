#pragma once

#include "tabular/external/TabularDataDT.h"
#include "tabular/external/records.h"
#include "values/storage/holder_parts.h"

#include <optional>

namespace qzDescriptor {

/// A column of a table outside memory. Its list, when it is asked for, is a copy that stays until the column
/// changes.
template <class List>
class TabularDataDTColumn : public TabularDataColumn {
public:
    using TabularDataColumn::GetColumn;
    using TabularDataColumn::GetList;
    using TabularDataColumn::SetColumn;

    explicit TabularDataDTColumn(TabularDataDT& table) : m_table(table) {}

    // Tables are cloned as a whole, by the store.
    std::unique_ptr<TabularDataColumn> Clone(qzStlVector<unsigned int> const&) const override {
        return nullptr;
    }
    std::unique_ptr<TabularDataColumn> Clone() const override { return nullptr; }

    unsigned int GetRowCount() const override { return Store().GetRowCount(Table(), Place()); }
    void Resize(unsigned int rows) override { P_Change(Store().ResizeRows(Table(), Place(), rows)); }
    BasicType GetBasicType() const override { return CellTraits<List>::s_basic; }
    CompoundType GetCompoundType() const override { return CellTraits<List>::s_compound; }
    EntityFullType GetEntityListType() const override {
        QZDT_EntityType record;
        if constexpr (s_holdsEntities)
            (void)Store().GetColumnEntityType(Table(), Place(), record);
        return FromRecord(record);
    }
    bool HasThisEntityListType(EntityFullType const& type) const override {
        return s_holdsEntities && GetEntityListType() == type;
    }

    bool GetCellValue(unsigned int row, Value& value) const override {
        QZ_DT_Variant stored;
        if (!Store().GetCell(Table(), row, Place(), stored))
            return false;
        auto const* const cell = stored.GetPointer<StoredCell>();
        if (cell == nullptr)
            return false;
        value = Value(ValuePtr::Create(Stored::LoadCell(*cell, GetEntityListType()), DS_DEFAULT));
        return true;
    }
    bool SetCellValue(unsigned int row, Value const& value) override {
        if (value.GetValuePtr() == nullptr)
            return false;
        CellOf<List> scratch{};
        auto const* const cell = ReadElement(*value.GetValuePtr(), scratch);
        if (cell == nullptr || !P_Takes(*cell))
            return false;
        m_shown.reset();
        return bool(Store().SetCell(Table(), row, Place(), QZ_DT_Variant(Stored::StoreCell(*cell))));
    }

    List const* GetList(std::type_identity<List>) const override {
        List list;
        if (!m_shown && GetColumn(list))
            m_shown = std::move(list);
        return m_shown ? &*m_shown : nullptr;
    }
    bool GetColumn(List& values) const override {
        typename Stored::Type stored;
        if (!Store().GetColumn(Table(), Place(), stored))
            return false;
        values = Stored::Load(std::move(stored), GetEntityListType());
        return true;
    }
    bool SetColumn(List const& values) override {
        bool done = m_table.Note(Store().SetColumn(Table(), Place(), Stored::Store(values)));
        if constexpr (s_holdsEntities)
            done = done && m_table.Note(Store().SetColumnEntityType(Table(), Place(),
                                                                    ToRecord(values.GetEntityFullType())));
        m_shown.reset(); // last: the values may be what is shown
        return done;
    }

    bool Clear() override { return P_Change(Store().ResizeRows(Table(), Place(), 0)); }
    bool Reserve(unsigned int rows) override { return bool(Store().ReserveRows(Table(), rows)); }
    bool RemoveRows(RowSet const& rows) override {
        unsigned int const count = GetRowCount();
        return rows.AreWithin(count) && P_Change(Store().RemoveRows(Table(), Place(), rows.GetRows(count)));
    }

    bool GetIdentifier(Identifier& identifier) const override {
        QZDT_ColumnIdentifier record;
        if (!Store().GetColumnIdentifier(Table(), Place(), record))
            return false;
        identifier = FromRecord(record);
        return true;
    }
    bool HasIdentifier(Identifier const& identifier) const override {
        Identifier own;
        return GetIdentifier(own) && own == identifier;
    }
    void Drop() override { m_table.Note(Store().RemoveColumn(Table(), Place())); }

private:
    static constexpr bool s_holdsEntities = std::is_same_v<List, EntityList>;

    using Stored = StoredList<List>;
    using StoredCell = typename Stored::Type::value_type;

    static QZ_DT_Mgr& Store() { return QZ_DT_Mgr::GetInstance(); }
    QZDT_TableHandle Table() const { return m_table.GetTableHandle(); }
    unsigned int Place() const { return m_table.PlaceOf(*this); }

    bool P_Takes([[maybe_unused]] CellOf<List> const& cell) const {
        if constexpr (s_holdsEntities)
            return cell.GetEntityFullType() == GetEntityListType();
        else
            return true;
    }
    bool P_Change(QZDT_Result const& result) {
        m_shown.reset();
        return m_table.Note(result);
    }

    TabularDataDT& m_table;
    mutable std::optional<List> m_shown;
};

} // namespace qzDescriptor
