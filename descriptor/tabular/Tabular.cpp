#include "descriptor/Tabular.h"

#include "tabular/TabularData.h"
#include "tabular/external/TabularDataDT.h"
#include "values/value/Agreement.h"

#include <utility>

namespace qzDescriptor {

Tabular::Tabular() : m_data(std::make_unique<TabularData>()) {}

Tabular::Tabular(QZDT_DBHandle const& database, QZDT_DTSHandle const& tableSet)
    : m_data(database.IsValid() ? MakeExternalTable(database, tableSet) : std::make_unique<TabularData>()) {}

Tabular::Tabular(Tabular const& other) : m_data(other.m_data ? other.m_data->Clone() : nullptr) {}

Tabular::Tabular(Tabular const& other, qzStlVector<unsigned int> const& rows)
    : m_data(other.m_data ? other.m_data->Clone(rows) : nullptr) {}

Tabular::Tabular(Tabular&& other) noexcept = default;

Tabular& Tabular::operator=(Tabular const& other) {
    if (this != &other)
        *this = Tabular(other);
    return *this;
}

Tabular& Tabular::operator=(Tabular&& other) noexcept = default;

Tabular::~Tabular() = default;

bool operator==(Tabular const& a, Tabular const& b) { return Tabular::AreEqualWithinTolerance(a, b, 1e-08); }

bool Tabular::AreEqualWithinTolerance(Tabular const& a, Tabular const& b, double tolerance) {
    return Agreement(tolerance, false)(a, b);
}

// The handle asks its storage and answers for those that have none.

bool Tabular::UsesExternalStorage() const { return m_data && m_data->UsesExternalStorage(); }

QZDT_DBHandle Tabular::GetDBHandle() const { return m_data ? m_data->GetDBHandle() : QZDT_DBHandle(); }

QZDT_DTSHandle Tabular::GetDTSHandle() const { return m_data ? m_data->GetDTSHandle() : QZDT_DTSHandle(); }

unsigned int Tabular::GetColumnCount() const { return m_data ? m_data->GetColumnCount() : 0; }

unsigned int Tabular::GetRowCount() const { return m_data ? m_data->GetRowCount() : 0; }

bool Tabular::GetColumnFromIdentifier(Identifier const& identifier, unsigned int& column) const {
    return m_data && m_data->GetColumnFromIdentifier(identifier, column);
}

bool Tabular::GetIdentifierFromColumn(unsigned int column, Identifier& identifier) const {
    return m_data && m_data->GetIdentifierFromColumn(column, identifier);
}

BasicType Tabular::GetBasicType(unsigned int column) const {
    return m_data ? m_data->GetBasicType(column) : BT_NONE;
}

CompoundType Tabular::GetCompoundType(unsigned int column) const {
    return m_data ? m_data->GetCompoundType(column) : CT_NONE;
}

EntityFullType Tabular::GetEntityListType(unsigned int column) const {
    return m_data ? m_data->GetEntityListType(column) : EntityFullType();
}

bool Tabular::HasThisEntityListType(EntityFullType const& type) const {
    return m_data && m_data->HasThisEntityListType(type);
}

bool Tabular::GetCellValue(unsigned int row, unsigned int column, Value& value) const {
    return m_data && m_data->GetCellValue(row, column, value);
}

bool Tabular::SetCellValue(unsigned int row, unsigned int column, Value const& value) {
    return m_data && m_data->SetCellValue(row, column, value);
}

#define QZ_FORWARD(C, Name)                                                                                  \
    int Tabular::GetColumn(unsigned int column, C& values) const {                                           \
        return m_data ? m_data->GetColumn(column, values) : -1;                                              \
    }                                                                                                        \
    C const* Tabular::GetColumn##Name(unsigned int column) const {                                           \
        return m_data ? m_data->GetColumn##Name(column) : nullptr;                                           \
    }                                                                                                        \
    bool Tabular::SetColumn(unsigned int column, C const& values) {                                          \
        return m_data && m_data->SetColumn(column, values);                                                  \
    }                                                                                                        \
    unsigned int Tabular::InsertColumn(C const& values, unsigned int at) {                                   \
        return m_data ? m_data->InsertColumn(values, at) : 0;                                                \
    }
QZ_COLUMN_TYPES(QZ_FORWARD)
#undef QZ_FORWARD

unsigned int Tabular::InsertColumn(BasicType basic, CompoundType compound, EntityFullType const& entityType,
                                   unsigned int at) {
    return m_data ? m_data->InsertColumn(basic, compound, entityType, at) : s_notInserted;
}

bool Tabular::RemoveColumn(unsigned int column) { return m_data && m_data->RemoveColumn(column); }

bool Tabular::ClearRows() { return m_data && m_data->ClearRows(); }

bool Tabular::ReserveRows(unsigned int rows) { return m_data && m_data->ReserveRows(rows); }

bool Tabular::RemoveRows(qzStlVector<unsigned int> const& rows) { return m_data && m_data->RemoveRows(rows); }

} // namespace qzDescriptor
