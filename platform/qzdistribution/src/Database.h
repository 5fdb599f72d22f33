#pragma once

#include "Catalog.h"
#include "ChunkStore.h"
#include "ColumnWriter.h"
#include "Connection.h"

#include <memory>
#include <utility>

namespace qzdt {

/// One open database. Sets and tables are named by ids, which are never used again while it is open.
/// Operations answer whether they succeeded; what fails changes nothing, and GetFailure says why.
class Database {
public:
    /// Null, and why, when there is none.
    static std::unique_ptr<Database> Open(qzString const& path, qzString& failure);

    qzString const& GetFailure() const { return m_connection->GetFailure(); }

    /// Writes what is left to write; open changes are cancelled. Nothing else is to be asked afterwards.
    bool Close();
    bool Flush();
    bool SetSizeLimit(std::uint64_t bytes);
    bool BeginChange();
    bool CommitChange();
    bool CancelChange();

    bool CreateTableSet(qzString const& name, unsigned int& set);
    bool FindTableSet(qzString const& name, unsigned int& set);
    bool GetTableSets(qzStlVector<unsigned int>& sets) const;
    bool HasTableSet(unsigned int set) const { return P_TableSet(set) != nullptr; }
    bool GetTableSetName(unsigned int set, qzString& name);
    bool DropTableSet(unsigned int set);

    bool CreateTable(unsigned int set, qzString const& name, unsigned int& table);
    bool FindTable(unsigned int set, qzString const& name, unsigned int& table);
    bool GetTables(unsigned int set, qzStlVector<unsigned int>& tables);
    bool HasTable(unsigned int table) const { return P_Table(table) != nullptr; }
    bool SetTableName(unsigned int table, qzString const& name);
    bool GetTableName(unsigned int table, qzString& name);
    bool GetTableSet(unsigned int table, unsigned int& set);
    bool DropTable(unsigned int table);
    bool CloneTable(unsigned int table, unsigned int& copy);
    bool CloneRows(unsigned int table, qzStlVector<unsigned int> const& rows, unsigned int& copy);

    /// Null where there is none.
    Column const* FindColumn(unsigned int table, unsigned int column) const;
    bool GetColumnCount(unsigned int table, unsigned int& count);
    bool InsertColumn(unsigned int table, QZDT_Type type, unsigned int at);
    bool RemoveColumn(unsigned int table, unsigned int column);
    bool MoveColumn(unsigned int table, unsigned int column, unsigned int to);
    template <class T>
    bool SetColumn(unsigned int table, unsigned int column, qzStlVector<T> const& values);
    template <class T>
    bool GetColumn(unsigned int table, unsigned int column, qzStlVector<T>& values);
    bool SetColumnIdentifier(unsigned int table, unsigned int column,
                             QZDT_ColumnIdentifier const& identifier);
    bool RemoveColumnIdentifier(unsigned int table, unsigned int column);
    bool GetColumnIdentifier(unsigned int table, unsigned int column, QZDT_ColumnIdentifier& identifier);
    bool SetColumnEntityType(unsigned int table, unsigned int column, QZDT_EntityType const& type);
    bool GetColumnEntityType(unsigned int table, unsigned int column, QZDT_EntityType& type);

    bool ResizeRows(unsigned int table, unsigned int count);
    bool ResizeColumn(unsigned int table, unsigned int column, unsigned int count);
    bool RemoveRows(unsigned int table, qzStlVector<unsigned int> const& rows);
    bool RemoveRowsOfColumn(unsigned int table, unsigned int column, qzStlVector<unsigned int> const& rows);

    bool GetCell(unsigned int table, unsigned int row, unsigned int column, QZ_DT_Variant& value);
    bool SetCell(unsigned int table, unsigned int row, unsigned int column, QZ_DT_Variant const& value);

private:
    explicit Database(std::unique_ptr<Connection> connection) : m_connection(std::move(connection)) {}

    bool P_Fail(qzString sentence) const { return m_connection->Fail(std::move(sentence)); }
    bool P_IsUsable() const;
    bool P_WriteCells();
    bool P_WriteCellsAlone();
    bool P_Rewind();
    /// Runs steps, which answer whether they succeeded, as one change.
    template <class Steps>
    bool P_Perform(Steps&& steps) {
        if (!BeginChange())
            return false;
        try {
            if (steps())
                return CommitChange();
        } catch (...) { // memory ran out
            P_Undo();
            throw;
        }
        return P_Undo();
    }
    bool P_Undo() noexcept;

    // What an id names; null, with the failure said, when it names nothing.
    TableSet const* P_TableSet(unsigned int set) const;
    Table const* P_Table(unsigned int table) const;
    Column const* P_Column(unsigned int table, unsigned int column) const;
    template <class T>
    Column const* P_ColumnOf(unsigned int table, unsigned int column) const;

    Column const* P_ColumnWithRow(unsigned int table, unsigned int row, unsigned int column) const;
    bool P_HasRows(Column const& column, qzStlVector<unsigned int> const& rows) const;
    bool P_MakeRoomForCell();

    // Steps of changes, for what is known to be there.
    bool P_DropTable(unsigned int table);
    bool P_DropNamelessTables();
    bool P_DropColumn(unsigned int table, unsigned int column);
    bool P_AddClone(Table const& source, bool withRows, unsigned int& copy);
    template <class T>
    bool P_CopyRows(Column const& source, qzStlVector<unsigned int> const& ascending, unsigned int copy,
                    unsigned int column);
    bool P_Resize(unsigned int table, unsigned int column, unsigned int count);
    bool P_RemoveRows(unsigned int table, unsigned int column, qzStlVector<unsigned int> const& rows);
    template <class T>
    bool P_EndColumn(unsigned int table, unsigned int column, ColumnWriter<T>& writer) {
        return writer.Finish() &&
               m_chunks.Remove(P_Column(table, column)->id,
                               writer.GetChunkCount()) && // what was not overwritten
               m_catalog.SetRowCount(table, column, writer.GetRowCount());
    }

    std::unique_ptr<Connection> m_connection; // statements in the members below end before it
    Catalog m_catalog{*m_connection};
    ChunkStore m_chunks{*m_connection};
    unsigned int m_changeDepth = 0;
    bool m_changeIsLost = false; // SQLite had to undo the change that is open
    bool m_isUnreadable = false;
};

} // namespace qzdt
