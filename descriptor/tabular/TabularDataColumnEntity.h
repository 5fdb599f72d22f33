#pragma once

#include "tabular/TabularDataColumnT.h"

namespace qzDescriptor {

/// A column of entities of one type, kept by their ids.
class TabularDataColumnEntity : public ColumnStorage<BT_UINT, CT_ENTITY, EntityList> {
public:
    TabularDataColumnEntity() = default;
    explicit TabularDataColumnEntity(EntityList list) : ColumnStorage(std::move(list)) {}

    std::unique_ptr<TabularDataColumn> Clone(qzStlVector<unsigned int> const& rows) const override {
        return std::make_unique<TabularDataColumnEntity>(
            EntityList(m_list.GetEntityFullType(), PickRows(m_list.GetList(), rows),
                       PickRows(m_list.GetTopologyIndexList(), rows)));
    }
    std::unique_ptr<TabularDataColumn> Clone() const override {
        return std::make_unique<TabularDataColumnEntity>(m_list);
    }
    void Resize(unsigned int rows) override { m_list.Resize(rows); }
    EntityFullType GetEntityListType() const override { return m_list.GetEntityFullType(); }
    bool HasThisEntityListType(EntityFullType const& type) const override {
        return m_list.GetEntityFullType() == type;
    }
    bool GetCellValue(unsigned int row, Value& value) const override {
        Entity entity;
        if (!m_list.GetEntity(entity, row))
            return false;
        value = Value(ValuePtr::Create(entity, DS_DEFAULT));
        return true;
    }
    bool Reserve(unsigned int rows) override {
        return FindsRoom([&] { m_list.Reserve(rows); });
    }
    bool RemoveRows(RowSet const& rows) override {
        if (!rows.AreWithin(m_list.GetIdListCount()))
            return false;
        EraseRows(m_list.GetList(), rows);
        EraseRows(m_list.GetTopologyIndexList(), rows);
        return true;
    }
};

} // namespace qzDescriptor
