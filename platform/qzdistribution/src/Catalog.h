#pragma once

#include "ChunkStore.h"
#include "Connection.h"
#include "cell_types.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace qzdt {

struct Column : ColumnExtent {
    QZDT_Type type = QZDT_NONE;
    std::optional<QZDT_ColumnIdentifier> identifier;
    QZDT_EntityType entityType;
};

struct Table {
    unsigned int set = 0;
    qzString name;
    std::vector<Column> columns;
};

struct TableSet {
    qzString name;
    std::set<unsigned int> tables;
    std::map<qzString, unsigned int> namedTables;
};

/// What there is in a database, in memory and in the store's own tables. Whatever changes here is changed in
/// both; after a failure, what is in memory is only right once it is loaded again.
class Catalog {
public:
    explicit Catalog(Connection& connection) : m_connection(connection) {}

    /// Reads everything anew. Fails on anything that could not have been written here.
    bool Load();

    std::map<unsigned int, TableSet> const& GetTableSets() const { return m_sets; }
    std::map<unsigned int, Table> const& GetTables() const { return m_tables; }
    TableSet const* FindTableSet(unsigned int set) const;
    Table const* FindTable(unsigned int table) const;

    bool AddTableSet(qzString const& name, unsigned int& set);
    bool RemoveTableSet(unsigned int set);
    bool AddTable(unsigned int set, qzString const& name, unsigned int& table);
    bool NameTable(unsigned int table, qzString const& name);
    /// Of a table without columns.
    bool RemoveTable(unsigned int table);

    // Columns of tables that are there, at positions that are there.

    /// At a position up to the end. The column's id is chosen here.
    bool AddColumn(unsigned int table, unsigned int at, Column column);
    bool RemoveColumn(unsigned int table, unsigned int column);
    bool MoveColumn(unsigned int table, unsigned int column, unsigned int to);
    bool SetRowCount(unsigned int table, unsigned int column, unsigned int count);
    bool SetIdentifier(unsigned int table, unsigned int column, QZDT_ColumnIdentifier const& identifier);
    bool RemoveIdentifier(unsigned int table, unsigned int column);
    bool SetEntityType(unsigned int table, unsigned int column, QZDT_EntityType const& type);

    /// The statements that make the store's own tables, in the order of their names.
    static std::vector<char const*> const& GetSchema();

private:
    using ColumnPlaces = std::map<unsigned int, Column*>;

    bool P_LoadTableSets();
    bool P_LoadTables();
    bool P_LoadColumns(ColumnPlaces& places);
    bool P_LoadIdentifiers(ColumnPlaces const& places);
    bool P_LoadEntityTypes(ColumnPlaces const& places);
    bool P_TakeId(unsigned int& lastId, unsigned int& id);
    bool P_WritePositions(Table const& table, unsigned int from, unsigned int to);
    bool P_WriteIdentifier(Column const& column);
    bool P_WriteEntityType(Column const& column);
    Column& P_Column(unsigned int table, unsigned int column) { return m_tables[table].columns[column]; }
    bool P_Damaged() { return m_connection.Fail("The database is damaged: its tables do not fit together."); }

    Connection& m_connection;
    std::map<unsigned int, TableSet> m_sets;
    std::map<unsigned int, Table> m_tables;
    // Ids given away while the database is open are never given again, so that handles cannot change meaning.
    unsigned int m_lastSet = 0;
    unsigned int m_lastTable = 0;
    unsigned int m_lastColumn = 0;

    Statement m_addSet{m_connection, "INSERT INTO table_set VALUES(?, ?)"};
    Statement m_removeSet{m_connection, "DELETE FROM table_set WHERE id = ?"};
    Statement m_addTable{m_connection, "INSERT INTO data_table VALUES(?, ?, ?)"};
    Statement m_nameTable{m_connection, "UPDATE data_table SET name = ?2 WHERE id = ?1"};
    Statement m_removeTable{m_connection, "DELETE FROM data_table WHERE id = ?"};
    Statement m_addColumn{m_connection, "INSERT INTO data_column VALUES(?, ?, ?, ?, ?)"};
    Statement m_removeColumn{m_connection, "DELETE FROM data_column WHERE id = ?"};
    Statement m_setPosition{m_connection, "UPDATE data_column SET position = ?2 WHERE id = ?1"};
    Statement m_setRowCount{m_connection, "UPDATE data_column SET row_count = ?2 WHERE id = ?1"};
    Statement m_setIdentifier{m_connection, "REPLACE INTO column_identifier VALUES(?, ?, ?, ?, ?, ?)"};
    Statement m_removeIdentifier{m_connection, "DELETE FROM column_identifier WHERE column_id = ?"};
    Statement m_setEntityType{m_connection, "REPLACE INTO column_entity_type VALUES(?, ?, ?, ?, ?, ?)"};
    Statement m_removeEntityType{m_connection, "DELETE FROM column_entity_type WHERE column_id = ?"};
};

} // namespace qzdt
