#include "descriptor/TabularAttribute.h"

#include "descriptor/Members.h"
#include "descriptor/Tabular.h"
#include "descriptor/TabularDefinition.h"
#include "qzdistribution/Handles.h"
#include "registry/content/check_value.h"
#include "registry/content/table_rows.h"

#include <algorithm>
#include <limits>

namespace qzDescriptor {

namespace {

Value DefaultOf(Definition const& definition) { return Value(&definition, DS_DEFAULT, QZDT_DBHandle()); }

/// Entity columns are of one type, which the column's allowables name by their default.
bool InsertDefinedColumn(Tabular& table, unsigned int column, Definition const& definition) {
    EntityFullType entityType;
    definition.GetAllowables().GetDefault(entityType);
    unsigned int const rows = table.GetRowCount();
    if (table.InsertColumn(definition.GetValueBasicType(), definition.GetValueCompoundType(), entityType,
                           column) == Tabular::s_notInserted)
        return false;
    Value const cell = DefaultOf(definition);
    for (unsigned int row = 0; row < rows; ++row)
        table.SetCellValue(row, column, cell);
    return true;
}

template <class T>
void InsertCells(qzStlVector<T>& list, unsigned int at, unsigned int count, Definition const& definition) {
    T cell{};
    Content::Read(DefaultOf(definition).GetValuePtr(), cell);
    list.insert(list.begin() + at, count, cell);
}

void InsertCells(EntityList& list, unsigned int at, unsigned int count, Definition const&) {
    qzStlVector<unsigned int>& ids = list.GetList();
    qzStlVector<char>& topologies = list.GetTopologyIndexList();
    if (topologies.size() == ids.size())
        topologies.insert(topologies.begin() + at, count, 0);
    ids.insert(ids.begin() + at, count, 0u);
}

} // namespace

TabularAttribute::TabularAttribute(Attribute const& attribute, TabularDefinition const* definition)
    : Attribute(attribute.GetType() == Content::ATTRIBUTE_TABULAR ? attribute : Attribute()),
      m_definition(definition != nullptr ? definition : P_GetTabularDefinition()) {}

Tabular const* TabularAttribute::GetTable() const {
    ValuePtr const* const value = P_GetValue();
    return value != nullptr ? value->GetValuePointerTabular() : nullptr;
}

unsigned int TabularAttribute::GetRowCount() const {
    Tabular const* const table = GetTable();
    return table != nullptr ? table->GetRowCount() : 0;
}

unsigned int TabularAttribute::GetColumnCount() const {
    Tabular const* const table = GetTable();
    if (table == nullptr)
        return 0;
    return std::max(table->GetColumnCount(), m_definition != nullptr ? m_definition->GetColumnCount() : 0);
}

Definition const& TabularAttribute::GetColumnDefinition(unsigned int column) const {
    static TabularDefinition const s_none;
    return (m_definition != nullptr ? *m_definition : s_none).GetColumnDefinition(column);
}

unsigned int TabularAttribute::FindColumn(qzString const& displayName) const {
    unsigned int const count = m_definition != nullptr ? m_definition->GetColumnCount() : 0;
    for (unsigned int column = 0; column < count; ++column) {
        if (GetColumnDefinition(column).GetDisplayName() == displayName)
            return column;
    }
    return Members::s_none;
}

bool TabularAttribute::GetCellValue(unsigned int row, unsigned int column, Value& value) const {
    Tabular const* const table = GetTable();
    return table != nullptr && table->GetCellValue(row, column, value);
}

qzReturnStatus TabularAttribute::SetCellValue(unsigned int row, unsigned int column, Value const& value) {
    if (IsReadOnly())
        return P_CannotWrite();
    qzReturnStatus const status = TestCellValue(row, column, value);
    if (status.status != 0)
        return status;
    Tabular* const table = P_Modify();
    if (table == nullptr || !table->SetCellValue(row, column, value))
        return Refusal("The table keeps no such value in that place.");
    return status;
}

qzReturnStatus TabularAttribute::TestCellValue(unsigned int row, unsigned int column,
                                               Value const& value) const {
    if (row >= GetRowCount() || column >= GetColumnCount())
        return Refusal("There is no such cell.");
    if (m_definition != nullptr && column < m_definition->GetColumnCount())
        return CheckValue(m_definition->GetColumnDefinition(column), value.GetValuePtr());
    return qzReturnStatus();
}

bool TabularAttribute::InsertRows(unsigned int at, unsigned int count) {
    unsigned int const rows = GetRowCount();
    if (at > rows || count > std::numeric_limits<unsigned int>::max() - 1 - rows || GetColumnCount() == 0)
        return false;
    Tabular* const table = P_Modify();
    if (table == nullptr)
        return false;
    for (unsigned int column = 0; column < table->GetColumnCount(); ++column) {
        VisitColumn(table->GetBasicType(column), table->GetCompoundType(column),
                    [&]<class List>(std::type_identity<List>) {
                        List cells = ReadRows<List>(*table, column, rows);
                        InsertCells(cells, at, count, GetColumnDefinition(column));
                        table->SetColumn(column, cells);
                    });
    }
    return true;
}

bool TabularAttribute::RemoveRows(qzStlVector<unsigned int> const& rows) {
    unsigned int const count = GetRowCount();
    if (rows.empty() || std::ranges::any_of(rows, [count](unsigned int row) { return row >= count; }))
        return false;
    Tabular* const table = P_Modify();
    return table != nullptr && table->RemoveRows(rows);
}

Tabular* TabularAttribute::P_Modify() {
    Content* const content = P_GetWritable();
    ValuePtr* const value = content != nullptr ? content->ModifyValue(GetIndex()) : nullptr;
    // A holder that keeps its table somewhere else cannot be changed in place.
    if (value == nullptr || value->GetMemoryLocation(0, 0) != value->GetValuePointerTabular())
        return nullptr;
    auto* const table = static_cast<Tabular*>(value->GetMemoryLocation(0, 0));
    unsigned int const defined = m_definition != nullptr ? m_definition->GetColumnCount() : 0;
    for (unsigned int column = table->GetColumnCount(); column < defined; ++column) {
        if (!InsertDefinedColumn(*table, column, m_definition->GetColumnDefinition(column)))
            return nullptr;
    }
    return table;
}

} // namespace qzDescriptor
