#pragma once

#include "qzdistribution/Export.h"
#include "qzdistribution/Handles.h"
#include "qzdistribution/QZ_DT_Variant.h"
#include "qzdistribution/Records.h"

#include "qzutl/qzStlVector.h"
#include "qzutl/qzString.h"
#include "qzutl/qzTuples.h"

#include <cstdint>

/// The tables held outside memory: databases hold table sets, sets hold tables, tables hold typed columns.
///
///     QZ_DT_Mgr& manager = QZ_DT_Mgr::GetInstance();
///     QZDT_DBHandle database;
///     QZDT_DTSHandle run;
///     QZDT_TableHandle table;
///     if (QZDT_Result const opened = manager.OpenDatabase("results.qzdt", database); !opened)
///         Show(opened.GetMessage());
///     bool const kept = manager.CreateTableSet(database, "run 1", run) &&
///                       manager.CreateTable(run, "stress", table) &&
///                       manager.InsertColumn(table, QZDT_DOUBLE, 0) &&
///                       manager.SetColumn(table, 0, stresses);
///
/// Nothing throws. Every operation on a handle that names nothing, or no longer names anything, fails; a
/// failed operation changes nothing and leaves its outputs as they were.
///
/// A file is changed by whole operations. A process that dies leaves what was there after its last one;
/// single cells gather in memory and reach the file with the next operation that is more than reading or
/// writing a cell, at the latest with Flush, CloseDatabase or the end of the program, always all of them
/// together.
///
/// While a file is open it belongs to this process: others fail to open it. One database is used by one
/// thread at a time; different databases may be used by different threads at once.
class QZDISTRIBUTION_API QZ_DT_Mgr {
public:
    /// The one of this process. It is never destroyed: objects in static storage may use it in their
    /// destructors.
    static QZ_DT_Mgr& GetInstance();

    QZ_DT_Mgr(QZ_DT_Mgr const&) = delete;
    QZ_DT_Mgr& operator=(QZ_DT_Mgr const&) = delete;

    /// The number by which this process knows a type of entities that tables hold: positive, the same for
    /// equal types whatever their topology, another one for every other type, and valid until the process
    /// ends. 0 for a type that has neither a number nor a name.
    unsigned int GetTagForTableEntityType(QZDT_EntityType const& type);

    // --- databases ---

    /// Opens a file, which is made when there is none, or a new database in memory for ":memory:". Paths are
    /// UTF-8. A file that is not one of ours, in use, read-only or damaged is refused and stays as it is.
    QZDT_Result OpenDatabase(qzString const& path, QZDT_DBHandle& database);
    /// All handles into the database name nothing from here on, whether or not the last cells could be
    /// written; only that can fail. Changes that were begun are cancelled.
    QZDT_Result CloseDatabase(QZDT_DBHandle const& database);
    bool IsOpen(QZDT_DBHandle const& database) const;
    QZDT_Result Flush(QZDT_DBHandle const& database);
    /// From here on what would make the database larger than this fails as if the disk were full. 0: no
    /// limit.
    QZDT_Result SetSizeLimit(QZDT_DBHandle const& database, std::uint64_t bytes);

    /// What is done until the matching CommitChange becomes one operation; CancelChange undoes it all.
    /// Changes nest, an inner one counts when all around it are committed. See QZDT_Change.
    QZDT_Result BeginChange(QZDT_DBHandle const& database);
    QZDT_Result CommitChange(QZDT_DBHandle const& database);
    QZDT_Result CancelChange(QZDT_DBHandle const& database);

    // --- table sets ---

    /// Names are any bytes, not empty, and different within a database.
    QZDT_Result CreateTableSet(QZDT_DBHandle const& database, qzString const& name, QZDT_DTSHandle& set);
    QZDT_Result OpenTableSet(QZDT_DBHandle const& database, qzString const& name, QZDT_DTSHandle& set) const;
    /// In the order in which they were made.
    QZDT_Result GetTableSets(QZDT_DBHandle const& database, qzStlVector<QZDT_DTSHandle>& sets) const;
    QZDT_Result GetName(QZDT_DTSHandle const& set, qzString& name) const;
    QZDT_Result GetDatabase(QZDT_DTSHandle const& set, QZDT_DBHandle& database) const;
    /// With all its tables.
    QZDT_Result DropTableSet(QZDT_DTSHandle const& set);

    // --- tables ---

    /// Names are any bytes and different within a set; any number of tables have none (an empty name), and
    /// go with the database's closing or its process.
    QZDT_Result CreateTable(QZDT_DTSHandle const& set, qzString const& name, QZDT_TableHandle& table);
    QZDT_Result OpenTable(QZDT_DTSHandle const& set, qzString const& name, QZDT_TableHandle& table) const;
    /// In the order in which they were made.
    QZDT_Result GetTables(QZDT_DTSHandle const& set, qzStlVector<QZDT_TableHandle>& tables) const;
    QZDT_Result GetName(QZDT_TableHandle const& table, qzString& name) const;
    QZDT_Result SetName(QZDT_TableHandle const& table, qzString const& name);
    QZDT_Result GetTableSet(QZDT_TableHandle const& table, QZDT_DTSHandle& set) const;
    QZDT_Result DropTable(QZDT_TableHandle const& table);

    /// A new table without a name, in the same set, with the same columns and values.
    QZDT_Result CloneTable(QZDT_TableHandle const& table, QZDT_TableHandle& copy);
    /// The same with the listed rows only, in ascending order whatever the order of the list. A row listed
    /// several times is there as often; rows that a column does not have are skipped in it.
    QZDT_Result CloneTable(QZDT_TableHandle const& table, qzStlVector<unsigned int> const& rows,
                           QZDT_TableHandle& copy);

    // --- columns: addressed by position; each has a row count of its own ---

    unsigned int GetColumnCount(QZDT_TableHandle const& table) const;
    /// QZDT_NONE where there is no column.
    QZDT_Type GetColumnType(QZDT_TableHandle const& table, unsigned int column) const;

    /// A column without rows before the one at a position, or behind the last one for any position past it.
    QZDT_Result InsertColumn(QZDT_TableHandle const& table, QZDT_Type type, unsigned int at);
    QZDT_Result RemoveColumn(QZDT_TableHandle const& table, unsigned int column);
    /// The column stands at `to` afterwards, the order of the others stays; `to` past the end means the end.
    QZDT_Result MoveColumn(QZDT_TableHandle const& table, unsigned int column, unsigned int to);

    /// Replaces the values, and with them the row count of this column; the column's type must be the
    /// vector's.
    QZDT_Result SetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<bool> const&);
    QZDT_Result SetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<int> const&);
    QZDT_Result SetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<unsigned int> const&);
    QZDT_Result SetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<double> const&);
    QZDT_Result SetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<qzString> const&);
    QZDT_Result SetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<qzTTriple<int>> const&);
    QZDT_Result SetColumn(QZDT_TableHandle const&, unsigned int column,
                          qzStlVector<qzTTriple<double>> const&);
    QZDT_Result SetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<QZDT_Id> const&);

    /// The values; the column's type must be the vector's.
    QZDT_Result GetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<bool>&) const;
    QZDT_Result GetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<int>&) const;
    QZDT_Result GetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<unsigned int>&) const;
    QZDT_Result GetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<double>&) const;
    QZDT_Result GetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<qzString>&) const;
    QZDT_Result GetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<qzTTriple<int>>&) const;
    QZDT_Result GetColumn(QZDT_TableHandle const&, unsigned int column,
                          qzStlVector<qzTTriple<double>>&) const;
    QZDT_Result GetColumn(QZDT_TableHandle const&, unsigned int column, qzStlVector<QZDT_Id>&) const;

    QZDT_Result SetColumnIdentifier(QZDT_TableHandle const& table, unsigned int column,
                                    QZDT_ColumnIdentifier const& identifier);
    QZDT_Result RemoveColumnIdentifier(QZDT_TableHandle const& table, unsigned int column);
    /// False also for a column without an identifier, as every new one is.
    QZDT_Result GetColumnIdentifier(QZDT_TableHandle const& table, unsigned int column,
                                    QZDT_ColumnIdentifier& identifier) const;

    /// For columns of QZDT_ID only; a new one has the default-made type.
    QZDT_Result SetColumnEntityType(QZDT_TableHandle const& table, unsigned int column,
                                    QZDT_EntityType const& type);
    QZDT_Result GetColumnEntityType(QZDT_TableHandle const& table, unsigned int column,
                                    QZDT_EntityType& type) const;

    // --- rows: of one column, or of every column of a table as one operation ---

    /// Of column 0; 0 without columns.
    unsigned int GetRowCount(QZDT_TableHandle const& table) const;
    unsigned int GetRowCount(QZDT_TableHandle const& table, unsigned int column) const;

    /// New rows are false, 0, empty or id 0.
    QZDT_Result ResizeRows(QZDT_TableHandle const& table, unsigned int count);
    QZDT_Result ResizeRows(QZDT_TableHandle const& table, unsigned int column, unsigned int count);
    QZDT_Result ClearRows(QZDT_TableHandle const& table);
    /// Room needs no reserving outside memory: only says whether the handle names a table.
    QZDT_Result ReserveRows(QZDT_TableHandle const& table, unsigned int count);

    /// Rows are given in ascending order, repeats count once. Fails when none is given, or one that is not
    /// there.
    QZDT_Result RemoveRows(QZDT_TableHandle const& table, qzStlVector<unsigned int> const& rows);
    QZDT_Result RemoveRows(QZDT_TableHandle const& table, unsigned int column,
                           qzStlVector<unsigned int> const& rows);

    // --- cells ---

    QZDT_Result GetCell(QZDT_TableHandle const& table, unsigned int row, unsigned int column,
                        QZ_DT_Variant& value) const;
    /// The value's type must be the column's, and the row must be there.
    QZDT_Result SetCell(QZDT_TableHandle const& table, unsigned int row, unsigned int column,
                        QZ_DT_Variant const& value);

private:
    QZ_DT_Mgr();
    ~QZ_DT_Mgr() = delete;

    class Private;
    Private* m_private;
};

/// Several operations as one: all of them are undone unless Commit is reached.
///
///     QZDT_Change change(database);
///     if (manager.InsertColumn(table, QZDT_INT, 0) && manager.SetColumn(table, 0, numbers))
///         return change.Commit();
class QZDT_Change {
public:
    explicit QZDT_Change(QZDT_DBHandle const& database)
        : m_database(database), m_begun(QZ_DT_Mgr::GetInstance().BeginChange(database)) {}
    QZDT_Change(QZDT_Change const&) = delete;
    QZDT_Change& operator=(QZDT_Change const&) = delete;

    ~QZDT_Change() {
        if (m_begun && !m_ended)
            (void)QZ_DT_Mgr::GetInstance().CancelChange(m_database);
    }

    /// Whether the change could begin; when not, what follows is no part of it and Commit fails too.
    QZDT_Result const& HasBegun() const { return m_begun; }

    QZDT_Result Commit() {
        if (!m_begun)
            return m_begun;
        QZDT_Result committed = QZ_DT_Mgr::GetInstance().CommitChange(m_database);
        m_ended = true;
        return committed;
    }

private:
    QZDT_DBHandle m_database;
    QZDT_Result m_begun;
    bool m_ended = false;
};
