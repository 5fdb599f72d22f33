// The table sets and tables of a database.

#include "Database.h"

#include <algorithm>
#include <vector>

namespace qzdt {

TableSet const* Database::P_TableSet(unsigned int set) const {
    TableSet const* const found = m_catalog.FindTableSet(set);
    if (found == nullptr)
        P_Fail("The handle names no table set.");
    return found;
}

Table const* Database::P_Table(unsigned int table) const {
    Table const* const found = m_catalog.FindTable(table);
    if (found == nullptr)
        P_Fail("The handle names no table.");
    return found;
}

// --- table sets ---

bool Database::CreateTableSet(qzString const& name, unsigned int& set) {
    unsigned int created = 0;
    if (name.empty())
        return P_Fail("A table set needs a name.");
    if (FindTableSet(name, created))
        return P_Fail("There is a table set of this name already.");
    if (!P_Perform([&] { return m_catalog.AddTableSet(name, created); }))
        return false;
    set = created;
    return true;
}

bool Database::FindTableSet(qzString const& name, unsigned int& set) {
    auto const& sets = m_catalog.GetTableSets();
    auto const found = std::ranges::find(sets, name, [](auto const& entry) { return entry.second.name; });
    if (found == sets.end())
        return P_Fail("There is no table set of this name.");
    set = found->first;
    return true;
}

bool Database::GetTableSets(qzStlVector<unsigned int>& sets) const {
    sets.clear();
    for (auto const& [id, set] : m_catalog.GetTableSets())
        sets.push_back(id);
    return true;
}

bool Database::GetTableSetName(unsigned int set, qzString& name) {
    TableSet const* const found = P_TableSet(set);
    if (found != nullptr)
        name = found->name;
    return found != nullptr;
}

bool Database::DropTableSet(unsigned int set) {
    TableSet const* const dropped = P_TableSet(set);
    if (dropped == nullptr)
        return false;
    return P_Perform([&] {
        auto const tables = dropped->tables;
        return std::ranges::all_of(tables, [this](unsigned int table) { return P_DropTable(table); }) &&
               m_catalog.RemoveTableSet(set);
    });
}

// --- tables ---

bool Database::CreateTable(unsigned int set, qzString const& name, unsigned int& table) {
    TableSet const* const owner = P_TableSet(set);
    if (owner == nullptr)
        return false;
    if (owner->namedTables.contains(name))
        return P_Fail("There is a table of this name in the set already.");
    unsigned int created = 0;
    if (!P_Perform([&] { return m_catalog.AddTable(set, name, created); }))
        return false;
    table = created;
    return true;
}

bool Database::FindTable(unsigned int set, qzString const& name, unsigned int& table) {
    TableSet const* const owner = P_TableSet(set);
    if (owner == nullptr)
        return false;
    auto const found = owner->namedTables.find(name);
    if (found == owner->namedTables.end())
        return P_Fail("There is no table of this name in the set.");
    table = found->second;
    return true;
}

bool Database::GetTables(unsigned int set, qzStlVector<unsigned int>& tables) {
    TableSet const* const owner = P_TableSet(set);
    if (owner != nullptr)
        tables.assign(owner->tables.begin(), owner->tables.end());
    return owner != nullptr;
}

bool Database::SetTableName(unsigned int table, qzString const& name) {
    Table const* const named = P_Table(table);
    if (named == nullptr)
        return false;
    auto const& names = m_catalog.FindTableSet(named->set)->namedTables;
    auto const taken = names.find(name);
    if (taken != names.end() && taken->second != table)
        return P_Fail("There is a table of this name in the set already.");
    return P_Perform([&] { return m_catalog.NameTable(table, name); });
}

bool Database::GetTableName(unsigned int table, qzString& name) {
    Table const* const found = P_Table(table);
    if (found != nullptr)
        name = found->name;
    return found != nullptr;
}

bool Database::GetTableSet(unsigned int table, unsigned int& set) {
    Table const* const found = P_Table(table);
    if (found != nullptr)
        set = found->set;
    return found != nullptr;
}

bool Database::DropTable(unsigned int table) {
    return P_Table(table) != nullptr && P_Perform([&] { return P_DropTable(table); });
}

bool Database::P_DropTable(unsigned int table) {
    Table const& dropped = *m_catalog.FindTable(table);
    while (!dropped.columns.empty()) {
        if (!P_DropColumn(table, static_cast<unsigned int>(dropped.columns.size() - 1)))
            return false;
    }
    return m_catalog.RemoveTable(table);
}

// Nobody can reach what had no name when the database was closed, or its process died.
bool Database::P_DropNamelessTables() {
    std::vector<unsigned int> nameless;
    for (auto const& [id, table] : m_catalog.GetTables()) {
        if (table.name.empty())
            nameless.push_back(id);
    }
    return nameless.empty() || P_Perform([&] {
               return std::ranges::all_of(nameless,
                                          [this](unsigned int table) { return P_DropTable(table); });
           });
}

// --- clones ---

bool Database::CloneTable(unsigned int table, unsigned int& copy) {
    Table const* const source = P_Table(table);
    if (source == nullptr)
        return false;
    unsigned int created = 0;
    bool const cloned = P_Perform([&] {
        if (!P_AddClone(*source, true, created))
            return false;
        Table const& clone = *m_catalog.FindTable(created);
        return std::ranges::equal(
            source->columns, clone.columns,
            [this](Column const& from, Column const& to) { return m_chunks.Copy(from.id, to.id); });
    });
    if (cloned)
        copy = created;
    return cloned;
}

bool Database::CloneRows(unsigned int table, qzStlVector<unsigned int> const& rows, unsigned int& copy) {
    Table const* const source = P_Table(table);
    if (source == nullptr)
        return false;
    qzStlVector<unsigned int> ascending = rows;
    std::ranges::sort(ascending);
    unsigned int created = 0;
    bool const cloned = P_Perform([&] {
        if (!P_AddClone(*source, false, created))
            return false;
        for (unsigned int column = 0; column < source->columns.size(); ++column) {
            bool const copied = VisitType(source->columns[column].type, [&]<class T>(std::type_identity<T>) {
                return P_CopyRows<T>(source->columns[column], ascending, created, column);
            });
            if (!copied)
                return false;
        }
        return true;
    });
    if (cloned)
        copy = created;
    return cloned;
}

bool Database::P_AddClone(Table const& source, bool withRows, unsigned int& copy) {
    if (!m_catalog.AddTable(source.set, qzString(), copy))
        return false;
    for (unsigned int at = 0; at < source.columns.size(); ++at) {
        Column column = source.columns[at];
        if (!withRows)
            column.rowCount = 0;
        if (!m_catalog.AddColumn(copy, at, std::move(column)))
            return false;
    }
    return true;
}

template <class T>
bool Database::P_CopyRows(Column const& source, qzStlVector<unsigned int> const& ascending, unsigned int copy,
                          unsigned int column) {
    ColumnWriter<T> writer(m_chunks, m_catalog.FindTable(copy)->columns[column].id, 0);
    qzStlVector<T> chunk;
    unsigned int chunkCountRead = 0;
    for (unsigned int const row : ascending) {
        if (row >= source.rowCount)
            break;
        unsigned int const number = row / s_chunkRows;
        if (number >= chunkCountRead) {
            chunk.clear();
            chunkCountRead = number + 1;
            if (!m_chunks.Read(source, number, chunk))
                return false;
        }
        if (!writer.Append(std::span<T const>(chunk).subspan(row % s_chunkRows, 1)))
            return false;
    }
    return P_EndColumn(copy, column, writer);
}

} // namespace qzdt
