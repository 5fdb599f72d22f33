#include "tabular/TabularDataBase.h"

#include <algorithm>

namespace qzDescriptor {

unsigned int TabularDataBase::GetRowCount() const {
    return m_columns.empty() ? 0 : m_columns.front()->GetRowCount();
}

bool TabularDataBase::GetColumnFromIdentifier(Identifier const& identifier, unsigned int& column) const {
    auto const found = std::ranges::find_if(
        m_columns, [&](auto const& candidate) { return candidate->HasIdentifier(identifier); });
    if (found == m_columns.end())
        return false;
    column = static_cast<unsigned int>(found - m_columns.begin());
    return true;
}

bool TabularDataBase::GetIdentifierFromColumn(unsigned int column, Identifier& identifier) const {
    auto const* const found = P_FindColumn(column);
    return found != nullptr && found->GetIdentifier(identifier);
}

BasicType TabularDataBase::GetBasicType(unsigned int column) const {
    auto const* const found = P_FindColumn(column);
    return found != nullptr ? found->GetBasicType() : BT_NONE;
}

CompoundType TabularDataBase::GetCompoundType(unsigned int column) const {
    auto const* const found = P_FindColumn(column);
    return found != nullptr ? found->GetCompoundType() : CT_NONE;
}

EntityFullType TabularDataBase::GetEntityListType(unsigned int column) const {
    auto const* const found = P_FindColumn(column);
    return found != nullptr ? found->GetEntityListType() : EntityFullType();
}

bool TabularDataBase::HasThisEntityListType(EntityFullType const& type) const {
    return type.IsValid() && std::ranges::any_of(m_columns, [&](auto const& column) {
               return column->HasThisEntityListType(type);
           });
}

bool TabularDataBase::GetCellValue(unsigned int row, unsigned int column, Value& value) const {
    auto const* const found = P_FindColumn(column);
    return found != nullptr && found->GetCellValue(row, value);
}

bool TabularDataBase::SetCellValue(unsigned int row, unsigned int column, Value const& value) {
    auto* const found = P_FindColumn(column);
    return found != nullptr && found->SetCellValue(row, value);
}

template <class List>
int TabularDataBase::P_GetColumn(unsigned int column, List& values) const {
    auto const* const found = P_FindColumn(column);
    if (found == nullptr)
        return -1;
    return found->GetColumn(values) ? 0 : 1;
}

template <class List>
List const* TabularDataBase::P_GetList(unsigned int column) const {
    auto const* const found = P_FindColumn(column);
    return found != nullptr ? found->GetList(std::type_identity<List>()) : nullptr;
}

// Whether the values fit is not reported: callers rely on the one answer.
template <class List>
unsigned int TabularDataBase::P_InsertColumn(List const& values, unsigned int at) {
    unsigned int const place = std::min(at, GetColumnCount());
    if (P_Insert(CellTraits<List>::s_basic, CellTraits<List>::s_compound, EntityFullType(), place))
        SetColumn(place, values);
    return 0;
}

unsigned int TabularDataBase::InsertColumn(BasicType basic, CompoundType compound,
                                           EntityFullType const& entityType, unsigned int at) {
    unsigned int const rows = GetRowCount();
    if ((compound == CT_ENTITY && !entityType.IsValid()) ||
        !P_Insert(basic, compound, entityType, std::min(at, GetColumnCount())))
        return Tabular::s_notInserted;
    P_ResizeColumns(rows);
    return GetColumnCount();
}

bool TabularDataBase::P_Insert(BasicType basic, CompoundType compound, EntityFullType const& entityType,
                               unsigned int at) {
    auto column = P_MakeColumn(basic, compound, entityType, at);
    if (column == nullptr)
        return false;
    m_columns.insert(m_columns.begin() + at, std::move(column));
    return true;
}

bool TabularDataBase::RemoveColumn(unsigned int column) {
    auto* const found = P_FindColumn(column);
    if (found == nullptr)
        return false;
    found->Drop();
    m_columns.erase(m_columns.begin() + column);
    return true;
}

// The values may be a column of this table, whose length changes with the others': it is read first.

template <class Vector>
bool TabularDataBase::P_SetColumn(unsigned int column, Vector const& values) {
    auto* const found = P_FindColumn(column);
    unsigned int const rows = GetRowCount();
    auto const length = static_cast<unsigned int>(values.size());
    if (found == nullptr || !found->SetColumn(values))
        return false;
    if (length != rows)
        P_ResizeColumns(std::max(length, rows));
    return true;
}

bool TabularDataBase::SetColumn(unsigned int column, EntityList const& values) {
    auto* const found = P_FindColumn(column);
    unsigned int const rows = GetRowCount();
    unsigned int const length = values.GetIdListCount();
    if (found == nullptr || !values.GetEntityFullType().IsValid() || !found->SetColumn(values))
        return false;
    if (length != rows)
        P_ResizeColumns(length);
    return true;
}

void TabularDataBase::P_ResizeColumns(unsigned int rows) {
    for (auto const& column : m_columns) {
        if (column->GetRowCount() != rows)
            column->Resize(rows);
    }
}

// Every column takes part, whatever the others answer.
bool TabularDataBase::P_OnEveryColumn(auto&& operation) {
    bool done = true;
    for (auto const& column : m_columns)
        done &= operation(*column);
    return done;
}

bool TabularDataBase::ClearRows() {
    return P_OnEveryColumn([](TabularDataColumn& column) { return column.Clear(); });
}

bool TabularDataBase::ReserveRows(unsigned int rows) {
    return P_OnEveryColumn([&](TabularDataColumn& column) { return column.Reserve(rows); });
}

bool TabularDataBase::RemoveRows(qzStlVector<unsigned int> const& rows) {
    unsigned int longest = 0;
    for (auto const& column : m_columns)
        longest = std::max(longest, column->GetRowCount());
    RowSet const removed(rows, longest);
    return P_OnEveryColumn([&](TabularDataColumn& column) { return column.RemoveRows(removed); });
}

bool TabularDataBase::CopyColumnsOf(Tabular const& other) {
    bool done = true;
    for (unsigned int column = 0; column < other.GetColumnCount(); ++column) {
        VisitColumn(other.GetBasicType(column), other.GetCompoundType(column),
                    [&]<class List>(std::type_identity<List>) {
                        List scratch;
                        List const& values = ReadColumn(other, column, scratch);
                        done = done &&
                               P_Insert(CellTraits<List>::s_basic, CellTraits<List>::s_compound,
                                        EntityFullType(), GetColumnCount()) &&
                               m_columns.back()->SetColumn(values);
                    });
    }
    return done;
}

#define QZ_OPERATIONS(C, Name)                                                                               \
    int TabularDataBase::GetColumn(unsigned int column, C& values) const {                                   \
        return P_GetColumn(column, values);                                                                  \
    }                                                                                                        \
    C const* TabularDataBase::GetColumn##Name(unsigned int column) const { return P_GetList<C>(column); }    \
    unsigned int TabularDataBase::InsertColumn(C const& values, unsigned int at) {                           \
        return P_InsertColumn(values, at);                                                                   \
    }
QZ_COLUMN_TYPES(QZ_OPERATIONS)
#undef QZ_OPERATIONS
#define QZ_REPLACE(C, ...)                                                                                   \
    bool TabularDataBase::SetColumn(unsigned int column, C const& values) {                                  \
        return P_SetColumn(column, values);                                                                  \
    }
QZ_COLUMN_VECTORS(QZ_REPLACE)
#undef QZ_REPLACE

} // namespace qzDescriptor
