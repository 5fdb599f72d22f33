#include "Catalog.h"

#include <algorithm>
#include <utility>

namespace qzdt {

namespace {

constexpr unsigned int s_mostIds = 0x7FFFFFFF; // a chunk's key, made from a column's id, stays positive

// An integer as the type of a field; false when it does not fit.
template <class Integer>
bool Read(Query const& query, int field, Integer& value) {
    std::int64_t const number = query.GetInteger(field);
    value = static_cast<Integer>(number);
    return std::in_range<Integer>(number);
}

bool Read(Query const& query, int field, qzString& bytes) {
    bytes = query.GetBytes(field);
    return true;
}

bool ReadId(Query const& query, int field, unsigned int& id) {
    return Read(query, field, id) && id != 0 && id <= s_mostIds;
}

template <class... Fields>
bool ReadAll(Query const& query, int first, Fields&... fields) {
    return (Read(query, first++, fields) && ...);
}

} // namespace

std::vector<char const*> const& Catalog::GetSchema() {
    static std::vector<char const*> const s_schema{
        "CREATE TABLE chunk(key INTEGER PRIMARY KEY, data BLOB NOT NULL)",
        "CREATE TABLE column_entity_type(column_id INTEGER PRIMARY KEY, type INTEGER NOT NULL,"
        " subtype INTEGER NOT NULL, type_name BLOB NOT NULL, subtype_name BLOB NOT NULL, topology INTEGER "
        "NOT NULL)",
        "CREATE TABLE column_identifier(column_id INTEGER PRIMARY KEY, number INTEGER NOT NULL, name BLOB "
        "NOT NULL,"
        " solver_index INTEGER NOT NULL, row_index INTEGER NOT NULL, column_index INTEGER NOT NULL)",
        "CREATE TABLE data_column(id INTEGER PRIMARY KEY, table_id INTEGER NOT NULL, position INTEGER NOT "
        "NULL,"
        " type INTEGER NOT NULL, row_count INTEGER NOT NULL)",
        "CREATE TABLE data_table(id INTEGER PRIMARY KEY, set_id INTEGER NOT NULL, name BLOB NOT NULL)",
        "CREATE TABLE table_set(id INTEGER PRIMARY KEY, name BLOB NOT NULL)",
    };
    return s_schema;
}

// --- loading ---

bool Catalog::Load() {
    m_sets.clear();
    m_tables.clear();
    ColumnPlaces places;
    if (P_LoadTableSets() && P_LoadTables() && P_LoadColumns(places) && P_LoadIdentifiers(places) &&
        P_LoadEntityTypes(places))
        return true;
    m_sets.clear();
    m_tables.clear();
    return false;
}

bool Catalog::P_LoadTableSets() {
    Statement select(m_connection, "SELECT id, name FROM table_set ORDER BY id");
    Query query(select);
    std::set<qzString> names;
    while (query.Next()) {
        unsigned int id = 0;
        TableSet set;
        if (!ReadId(query, 0, id) || !Read(query, 1, set.name) || set.name.empty() ||
            !names.insert(set.name).second || !m_sets.emplace(id, std::move(set)).second)
            return P_Damaged();
        m_lastSet = std::max(m_lastSet, id);
    }
    return !query.HasFailed();
}

bool Catalog::P_LoadTables() {
    Statement select(m_connection, "SELECT id, set_id, name FROM data_table ORDER BY id");
    Query query(select);
    while (query.Next()) {
        unsigned int id = 0;
        Table table;
        if (!ReadId(query, 0, id) || !ReadAll(query, 1, table.set, table.name))
            return P_Damaged();
        auto const set = m_sets.find(table.set);
        if (set == m_sets.end() || !set->second.tables.insert(id).second)
            return P_Damaged();
        if (!table.name.empty() && !set->second.namedTables.emplace(table.name, id).second)
            return P_Damaged();
        if (!m_tables.emplace(id, std::move(table)).second)
            return P_Damaged();
        m_lastTable = std::max(m_lastTable, id);
    }
    return !query.HasFailed();
}

bool Catalog::P_LoadColumns(ColumnPlaces& places) {
    Statement select(m_connection, "SELECT table_id, position, id, type, row_count FROM data_column"
                                   " ORDER BY table_id, position");
    Query query(select);
    while (query.Next()) {
        unsigned int position = 0;
        unsigned int tableId = 0;
        std::int32_t type = 0;
        Column column;
        if (!ReadAll(query, 0, tableId, position) || !ReadId(query, 2, column.id) ||
            !ReadAll(query, 3, type, column.rowCount))
            return P_Damaged();
        column.type = static_cast<QZDT_Type>(type);
        auto const table = m_tables.find(tableId);
        if (table == m_tables.end() || position != table->second.columns.size() || !IsCellType(column.type))
            return P_Damaged();
        m_lastColumn = std::max(m_lastColumn, column.id);
        table->second.columns.push_back(std::move(column));
    }
    for (auto& [id, table] : m_tables) {
        for (Column& column : table.columns) {
            if (!places.emplace(column.id, &column).second)
                return P_Damaged();
        }
    }
    return !query.HasFailed();
}

bool Catalog::P_LoadIdentifiers(ColumnPlaces const& places) {
    Statement select(m_connection, "SELECT column_id, number, name, solver_index, row_index, column_index"
                                   " FROM column_identifier");
    Query query(select);
    while (query.Next()) {
        unsigned int id = 0;
        QZDT_ColumnIdentifier identifier;
        if (!ReadAll(query, 0, id, identifier.number, identifier.name, identifier.solverIndex, identifier.row,
                     identifier.column))
            return P_Damaged();
        auto const place = places.find(id);
        if (place == places.end())
            return P_Damaged();
        place->second->identifier = std::move(identifier);
    }
    return !query.HasFailed();
}

bool Catalog::P_LoadEntityTypes(ColumnPlaces const& places) {
    Statement select(m_connection, "SELECT column_id, type, subtype, type_name, subtype_name, topology"
                                   " FROM column_entity_type");
    Query query(select);
    while (query.Next()) {
        unsigned int id = 0;
        QZDT_EntityType type;
        if (!ReadAll(query, 0, id, type.type, type.subtype, type.typeName, type.subtypeName, type.topology))
            return P_Damaged();
        auto const place = places.find(id);
        if (place == places.end() || place->second->type != QZDT_ID)
            return P_Damaged();
        place->second->entityType = std::move(type);
    }
    return !query.HasFailed();
}

// --- sets and tables ---

TableSet const* Catalog::FindTableSet(unsigned int set) const {
    auto const found = m_sets.find(set);
    return found == m_sets.end() ? nullptr : &found->second;
}

Table const* Catalog::FindTable(unsigned int table) const {
    auto const found = m_tables.find(table);
    return found == m_tables.end() ? nullptr : &found->second;
}

bool Catalog::AddTableSet(qzString const& name, unsigned int& set) {
    if (!P_TakeId(m_lastSet, set) || !m_addSet.Run(set, name))
        return false;
    m_sets[set].name = name;
    return true;
}

bool Catalog::RemoveTableSet(unsigned int set) {
    m_sets.erase(set);
    return m_removeSet.Run(set);
}

bool Catalog::AddTable(unsigned int set, qzString const& name, unsigned int& table) {
    if (!P_TakeId(m_lastTable, table) || !m_addTable.Run(table, set, name))
        return false;
    m_tables[table] = {set, name, {}};
    m_sets[set].tables.insert(table);
    if (!name.empty())
        m_sets[set].namedTables.emplace(name, table);
    return true;
}

bool Catalog::NameTable(unsigned int table, qzString const& name) {
    Table& named = m_tables[table];
    auto& names = m_sets[named.set].namedTables;
    names.erase(named.name);
    named.name = name;
    if (!name.empty())
        names.emplace(name, table);
    return m_nameTable.Run(table, name);
}

bool Catalog::RemoveTable(unsigned int table) {
    Table const& removed = m_tables[table];
    m_sets[removed.set].tables.erase(table);
    m_sets[removed.set].namedTables.erase(removed.name);
    m_tables.erase(table);
    return m_removeTable.Run(table);
}

bool Catalog::P_TakeId(unsigned int& lastId, unsigned int& id) {
    if (lastId == s_mostIds)
        return m_connection.Fail("The database has no numbers left for new tables or columns.");
    id = ++lastId;
    return true;
}

// --- columns ---

bool Catalog::AddColumn(unsigned int table, unsigned int at, Column column) {
    Table& owner = m_tables[table];
    if (!P_TakeId(m_lastColumn, column.id) ||
        !m_addColumn.Run(column.id, table, at, column.type, column.rowCount) || !P_WriteIdentifier(column) ||
        !P_WriteEntityType(column))
        return false;
    owner.columns.insert(owner.columns.begin() + at, std::move(column));
    return P_WritePositions(owner, at + 1, static_cast<unsigned int>(owner.columns.size()));
}

bool Catalog::RemoveColumn(unsigned int table, unsigned int column) {
    Table& owner = m_tables[table];
    unsigned int const id = owner.columns[column].id;
    owner.columns.erase(owner.columns.begin() + column);
    return m_removeColumn.Run(id) && m_removeIdentifier.Run(id) && m_removeEntityType.Run(id) &&
           P_WritePositions(owner, column, static_cast<unsigned int>(owner.columns.size()));
}

bool Catalog::MoveColumn(unsigned int table, unsigned int column, unsigned int to) {
    Table& owner = m_tables[table];
    auto const first = owner.columns.begin();
    if (column < to)
        std::rotate(first + column, first + column + 1, first + to + 1);
    else
        std::rotate(first + to, first + column, first + column + 1);
    return P_WritePositions(owner, std::min(column, to), std::max(column, to) + 1);
}

bool Catalog::P_WritePositions(Table const& table, unsigned int from, unsigned int to) {
    for (unsigned int position = from; position < to; ++position) {
        if (!m_setPosition.Run(table.columns[position].id, position))
            return false;
    }
    return true;
}

bool Catalog::SetRowCount(unsigned int table, unsigned int column, unsigned int count) {
    Column& changed = P_Column(table, column);
    changed.rowCount = count;
    return m_setRowCount.Run(changed.id, count);
}

bool Catalog::SetIdentifier(unsigned int table, unsigned int column,
                            QZDT_ColumnIdentifier const& identifier) {
    Column& changed = P_Column(table, column);
    changed.identifier = identifier;
    return P_WriteIdentifier(changed);
}

bool Catalog::RemoveIdentifier(unsigned int table, unsigned int column) {
    Column& changed = P_Column(table, column);
    changed.identifier.reset();
    return m_removeIdentifier.Run(changed.id);
}

bool Catalog::SetEntityType(unsigned int table, unsigned int column, QZDT_EntityType const& type) {
    Column& changed = P_Column(table, column);
    changed.entityType = type;
    return P_WriteEntityType(changed);
}

bool Catalog::P_WriteIdentifier(Column const& column) {
    if (!column.identifier)
        return true;
    QZDT_ColumnIdentifier const& identifier = *column.identifier;
    return m_setIdentifier.Run(column.id, identifier.number, identifier.name, identifier.solverIndex,
                               identifier.row, identifier.column);
}

bool Catalog::P_WriteEntityType(Column const& column) {
    if (column.type != QZDT_ID)
        return true;
    QZDT_EntityType const& type = column.entityType;
    return m_setEntityType.Run(column.id, type.type, type.subtype, type.typeName, type.subtypeName,
                               type.topology);
}

} // namespace qzdt
