#pragma once

#include "qzdistribution/QZ_DT_Mgr.h"
#include "tabular/TabularDataBase.h"

namespace qzDescriptor {

/// A table in the store outside memory. The columns here only name those of the store, which keeps the cells.
/// A table without a name in the store goes with this object.
///
/// Each operation that changes anything is one change of the store: all of it is done or, when the store
/// fails in the middle, nothing.
class TabularDataDT : public TabularDataBase {
public:
    /// Of a table that the store has.
    TabularDataDT(QZDT_DBHandle const& database, QZDT_DTSHandle const& tableSet,
                  QZDT_TableHandle const& table);
    ~TabularDataDT() override;

    std::unique_ptr<TabularDataBase> Clone(qzStlVector<unsigned int> const& rows) const override;
    std::unique_ptr<TabularDataBase> Clone() const override;
    bool UsesExternalStorage() const override { return true; }
    QZDT_DBHandle GetDBHandle() const override { return m_database; }
    QZDT_DTSHandle GetDTSHandle() const override { return m_tableSet; }
    QZDT_TableHandle GetTableHandle() const { return m_table; }

#define QZ_INSERT(C, ...) unsigned int InsertColumn(C const& values, unsigned int at) override;
    QZ_COLUMN_TYPES(QZ_INSERT)
#undef QZ_INSERT
    unsigned int InsertColumn(BasicType basic, CompoundType compound, EntityFullType const& entityType,
                              unsigned int at) override;
    bool RemoveColumn(unsigned int column) override;
#define QZ_REPLACE(C, ...) bool SetColumn(unsigned int column, C const& values) override;
    QZ_COLUMN_TYPES(QZ_REPLACE)
#undef QZ_REPLACE
    bool ClearRows() override;
    bool RemoveRows(qzStlVector<unsigned int> const& rows) override;

    /// Adds copies of another table's columns, identifiers too.
    bool CopyColumnsOf(Tabular const& other);

    /// The place of one of the columns.
    unsigned int PlaceOf(TabularDataColumn const& column) const;
    /// Whether the store did what it was asked for; if not, the change that it belongs to is undone.
    bool Note(QZDT_Result const& result);

protected:
    std::unique_ptr<TabularDataColumn> P_MakeColumn(BasicType basic, CompoundType compound,
                                                    EntityFullType const& entityType,
                                                    unsigned int at) override;

private:
    template <class Result, class Operation>
    Result P_Change(Result failure, Operation operation);
    std::unique_ptr<TabularDataBase> P_Take(QZDT_Result const& made, QZDT_TableHandle const& table) const;
    void P_ReadColumns();

    QZDT_DBHandle m_database;
    QZDT_DTSHandle m_tableSet;
    QZDT_TableHandle m_table;
    bool m_isChanging = false;
    bool m_hasFailed = false; // the store, within the change
};

/// A new table in a set, or in the database's set of values when the set's handle is invalid; null when the
/// store refuses it. A Tabular without data answers every operation with a failure.
std::unique_ptr<TabularDataBase> MakeExternalTable(QZDT_DBHandle const& database,
                                                   QZDT_DTSHandle const& tableSet);

} // namespace qzDescriptor
