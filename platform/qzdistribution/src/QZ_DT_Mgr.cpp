#include "qzdistribution/QZ_DT_Mgr.h"

#include "Database.h"

#include "qzutl/qzSimpleMutex.h"

#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <tuple>
#include <unordered_map>
#include <utility>

using qzdt::Column;
using qzdt::Database;

/// The open databases by generation, which is the one in all handles into a database.
class QZ_DT_Mgr::Private {
public:
    QZDT_DBHandle Add(std::unique_ptr<Database> database) {
        std::lock_guard const guard(m_mutex);
        m_databases.emplace(++m_lastGeneration, std::move(database));
        return {m_lastGeneration, s_databaseIndex};
    }

    std::unique_ptr<Database> Take(QZDT_DBHandle const& handle) {
        std::lock_guard const guard(m_mutex);
        auto const node =
            P_NamesDatabase(handle) ? m_databases.extract(handle.GetGeneration()) : Databases::node_type();
        return node.empty() ? nullptr : std::move(node.mapped());
    }

    Database* Find(QZDT_DBHandle const& handle) { return P_NamesDatabase(handle) ? P_Find(handle) : nullptr; }
    Database* Find(QZDT_DTSHandle const& handle) { return P_Find(handle); }
    Database* Find(QZDT_TableHandle const& handle) { return P_Find(handle); }

    static QZDT_Result NoDatabase() { return QZDT_Result::Failure("The handle leads to no open database."); }

    template <class Handle>
    static QZDT_DBHandle GetDatabase(Handle const& handle) {
        return {handle.GetGeneration(), s_databaseIndex};
    }

    /// Calls an operation of the database that a handle leads to.
    template <class Handle, class Operation, class... Arguments>
    QZDT_Result Call(Handle const& handle, Operation operation, Arguments&&... arguments) {
        return FailWithoutMemory([&]() -> QZDT_Result {
            Database* const database = Find(handle);
            if (database == nullptr)
                return NoDatabase();
            if (std::invoke(operation, *database, std::forward<Arguments>(arguments)...))
                return {};
            return QZDT_Result::Failure(database->GetFailure());
        });
    }

    /// The same for an operation that gives an id, of which a handle is made.
    template <class Handle, class Made, class Operation, class... Arguments>
    QZDT_Result CallForHandle(Handle const& handle, Made& made, Operation operation,
                              Arguments&&... arguments) {
        unsigned int id = 0;
        QZDT_Result result = Call(handle, operation, std::forward<Arguments>(arguments)..., id);
        if (result)
            made = Made(handle.GetGeneration(), id);
        return result;
    }

    template <class Handle, class Made, class Operation, class... Arguments>
    QZDT_Result CallForHandles(Handle const& handle, qzStlVector<Made>& made, Operation operation,
                               Arguments&&... arguments) {
        return FailWithoutMemory([&] {
            qzStlVector<unsigned int> ids;
            QZDT_Result result = Call(handle, operation, std::forward<Arguments>(arguments)..., ids);
            if (!result)
                return result;
            qzStlVector<Made> handles;
            handles.reserve(ids.size());
            for (unsigned int const id : ids)
                handles.emplace_back(handle.GetGeneration(), id);
            made = std::move(handles);
            return result;
        });
    }

    template <class Work>
    static QZDT_Result FailWithoutMemory(Work&& work) {
        try {
            return work();
        } catch (std::bad_alloc const&) {
            return QZDT_Result::Failure("No memory."); // so short that it needs none
        }
    }

    Column const* FindColumn(QZDT_TableHandle const& table, unsigned int column) {
        Database* const database = Find(table);
        return database == nullptr ? nullptr : database->FindColumn(table.GetIndex(), column);
    }

    unsigned int GetTag(QZDT_EntityType const& type) {
        std::lock_guard const guard(m_mutex);
        auto const next = static_cast<unsigned int>(m_tags.size() + 1);
        return m_tags.try_emplace({type.type, type.subtype, type.typeName, type.subtypeName}, next)
            .first->second;
    }

    /// What cannot be written at the end of the program is lost: nobody is left to be told.
    void FlushAll() {
        std::lock_guard const guard(m_mutex);
        for (auto const& [generation, database] : m_databases)
            (void)database->Flush();
    }

private:
    using Databases = std::unordered_map<unsigned int, std::unique_ptr<Database>>;
    using TypeKey = std::tuple<unsigned int, unsigned int, qzString, qzString>;

    static constexpr unsigned int s_databaseIndex = 0;

    static bool P_NamesDatabase(QZDT_DBHandle const& handle) { return handle.GetIndex() == s_databaseIndex; }

    template <class Handle>
    Database* P_Find(Handle const& handle) {
        std::lock_guard const guard(m_mutex);
        auto const found = m_databases.find(handle.GetGeneration());
        return found == m_databases.end() ? nullptr : found->second.get();
    }

    qzSimpleMutex m_mutex;
    Databases m_databases;
    unsigned int m_lastGeneration = 0;
    std::map<TypeKey, unsigned int> m_tags;
};

QZ_DT_Mgr& QZ_DT_Mgr::GetInstance() {
    static QZ_DT_Mgr* const s_manager = new QZ_DT_Mgr;
    return *s_manager;
}

QZ_DT_Mgr::QZ_DT_Mgr() : m_private(new Private) {
    std::atexit([] { GetInstance().m_private->FlushAll(); });
}

unsigned int QZ_DT_Mgr::GetTagForTableEntityType(QZDT_EntityType const& type) {
    return type.type == 0 && type.typeName.empty() ? 0 : m_private->GetTag(type);
}

// --- databases ---

QZDT_Result QZ_DT_Mgr::OpenDatabase(qzString const& path, QZDT_DBHandle& database) {
    return Private::FailWithoutMemory([&]() -> QZDT_Result {
        qzString failure;
        std::unique_ptr<Database> opened = Database::Open(path, failure);
        if (opened == nullptr)
            return QZDT_Result::Failure(failure);
        database = m_private->Add(std::move(opened));
        return {};
    });
}

QZDT_Result QZ_DT_Mgr::CloseDatabase(QZDT_DBHandle const& database) {
    return Private::FailWithoutMemory([&]() -> QZDT_Result {
        std::unique_ptr<Database> const closed = m_private->Take(database);
        if (closed == nullptr)
            return Private::NoDatabase();
        return closed->Close() ? QZDT_Result() : QZDT_Result::Failure(closed->GetFailure());
    });
}

bool QZ_DT_Mgr::IsOpen(QZDT_DBHandle const& database) const { return m_private->Find(database) != nullptr; }

QZDT_Result QZ_DT_Mgr::Flush(QZDT_DBHandle const& database) {
    return m_private->Call(database, &Database::Flush);
}

QZDT_Result QZ_DT_Mgr::SetSizeLimit(QZDT_DBHandle const& database, std::uint64_t bytes) {
    return m_private->Call(database, &Database::SetSizeLimit, bytes);
}

QZDT_Result QZ_DT_Mgr::BeginChange(QZDT_DBHandle const& database) {
    return m_private->Call(database, &Database::BeginChange);
}

QZDT_Result QZ_DT_Mgr::CommitChange(QZDT_DBHandle const& database) {
    return m_private->Call(database, &Database::CommitChange);
}

QZDT_Result QZ_DT_Mgr::CancelChange(QZDT_DBHandle const& database) {
    return m_private->Call(database, &Database::CancelChange);
}

// --- table sets ---

QZDT_Result QZ_DT_Mgr::CreateTableSet(QZDT_DBHandle const& database, qzString const& name,
                                      QZDT_DTSHandle& set) {
    return m_private->CallForHandle(database, set, &Database::CreateTableSet, name);
}

QZDT_Result QZ_DT_Mgr::OpenTableSet(QZDT_DBHandle const& database, qzString const& name,
                                    QZDT_DTSHandle& set) const {
    return m_private->CallForHandle(database, set, &Database::FindTableSet, name);
}

QZDT_Result QZ_DT_Mgr::GetTableSets(QZDT_DBHandle const& database, qzStlVector<QZDT_DTSHandle>& sets) const {
    return m_private->CallForHandles(database, sets, &Database::GetTableSets);
}

QZDT_Result QZ_DT_Mgr::GetName(QZDT_DTSHandle const& set, qzString& name) const {
    return m_private->Call(set, &Database::GetTableSetName, set.GetIndex(), name);
}

QZDT_Result QZ_DT_Mgr::GetDatabase(QZDT_DTSHandle const& set, QZDT_DBHandle& database) const {
    QZDT_Result found = m_private->Call(set, &Database::HasTableSet, set.GetIndex());
    if (found)
        database = Private::GetDatabase(set);
    return found;
}

QZDT_Result QZ_DT_Mgr::DropTableSet(QZDT_DTSHandle const& set) {
    return m_private->Call(set, &Database::DropTableSet, set.GetIndex());
}

// --- tables ---

QZDT_Result QZ_DT_Mgr::CreateTable(QZDT_DTSHandle const& set, qzString const& name, QZDT_TableHandle& table) {
    return m_private->CallForHandle(set, table, &Database::CreateTable, set.GetIndex(), name);
}

QZDT_Result QZ_DT_Mgr::OpenTable(QZDT_DTSHandle const& set, qzString const& name,
                                 QZDT_TableHandle& table) const {
    return m_private->CallForHandle(set, table, &Database::FindTable, set.GetIndex(), name);
}

QZDT_Result QZ_DT_Mgr::GetTables(QZDT_DTSHandle const& set, qzStlVector<QZDT_TableHandle>& tables) const {
    return m_private->CallForHandles(set, tables, &Database::GetTables, set.GetIndex());
}

QZDT_Result QZ_DT_Mgr::GetName(QZDT_TableHandle const& table, qzString& name) const {
    return m_private->Call(table, &Database::GetTableName, table.GetIndex(), name);
}

QZDT_Result QZ_DT_Mgr::GetTableSet(QZDT_TableHandle const& table, QZDT_DTSHandle& set) const {
    return m_private->CallForHandle(table, set, &Database::GetTableSet, table.GetIndex());
}

QZDT_Result QZ_DT_Mgr::SetName(QZDT_TableHandle const& table, qzString const& name) {
    return m_private->Call(table, &Database::SetTableName, table.GetIndex(), name);
}

QZDT_Result QZ_DT_Mgr::DropTable(QZDT_TableHandle const& table) {
    return m_private->Call(table, &Database::DropTable, table.GetIndex());
}

QZDT_Result QZ_DT_Mgr::CloneTable(QZDT_TableHandle const& table, QZDT_TableHandle& copy) {
    return m_private->CallForHandle(table, copy, &Database::CloneTable, table.GetIndex());
}

QZDT_Result QZ_DT_Mgr::CloneTable(QZDT_TableHandle const& table, qzStlVector<unsigned int> const& rows,
                                  QZDT_TableHandle& copy) {
    return m_private->CallForHandle(table, copy, &Database::CloneRows, table.GetIndex(), rows);
}

// --- columns ---

unsigned int QZ_DT_Mgr::GetColumnCount(QZDT_TableHandle const& table) const {
    unsigned int count = 0;
    (void)m_private->Call(table, &Database::GetColumnCount, table.GetIndex(), count);
    return count;
}

QZDT_Type QZ_DT_Mgr::GetColumnType(QZDT_TableHandle const& table, unsigned int column) const {
    Column const* const found = m_private->FindColumn(table, column);
    return found == nullptr ? QZDT_NONE : found->type;
}

QZDT_Result QZ_DT_Mgr::InsertColumn(QZDT_TableHandle const& table, QZDT_Type type, unsigned int at) {
    return m_private->Call(table, &Database::InsertColumn, table.GetIndex(), type, at);
}

QZDT_Result QZ_DT_Mgr::RemoveColumn(QZDT_TableHandle const& table, unsigned int column) {
    return m_private->Call(table, &Database::RemoveColumn, table.GetIndex(), column);
}

QZDT_Result QZ_DT_Mgr::MoveColumn(QZDT_TableHandle const& table, unsigned int column, unsigned int to) {
    return m_private->Call(table, &Database::MoveColumn, table.GetIndex(), column, to);
}

#define QZDT_FORWARD(T, code)                                                                                \
    QZDT_Result QZ_DT_Mgr::SetColumn(QZDT_TableHandle const& table, unsigned int column,                     \
                                     qzStlVector<T> const& values) {                                         \
        return m_private->Call(table, &Database::SetColumn<T>, table.GetIndex(), column, values);            \
    }                                                                                                        \
    QZDT_Result QZ_DT_Mgr::GetColumn(QZDT_TableHandle const& table, unsigned int column,                     \
                                     qzStlVector<T>& values) const {                                         \
        return m_private->Call(table, &Database::GetColumn<T>, table.GetIndex(), column, values);            \
    }
QZDT_CELL_TYPES(QZDT_FORWARD)
#undef QZDT_FORWARD

QZDT_Result QZ_DT_Mgr::SetColumnIdentifier(QZDT_TableHandle const& table, unsigned int column,
                                           QZDT_ColumnIdentifier const& identifier) {
    return m_private->Call(table, &Database::SetColumnIdentifier, table.GetIndex(), column, identifier);
}

QZDT_Result QZ_DT_Mgr::RemoveColumnIdentifier(QZDT_TableHandle const& table, unsigned int column) {
    return m_private->Call(table, &Database::RemoveColumnIdentifier, table.GetIndex(), column);
}

QZDT_Result QZ_DT_Mgr::GetColumnIdentifier(QZDT_TableHandle const& table, unsigned int column,
                                           QZDT_ColumnIdentifier& identifier) const {
    return m_private->Call(table, &Database::GetColumnIdentifier, table.GetIndex(), column, identifier);
}

QZDT_Result QZ_DT_Mgr::SetColumnEntityType(QZDT_TableHandle const& table, unsigned int column,
                                           QZDT_EntityType const& type) {
    return m_private->Call(table, &Database::SetColumnEntityType, table.GetIndex(), column, type);
}

QZDT_Result QZ_DT_Mgr::GetColumnEntityType(QZDT_TableHandle const& table, unsigned int column,
                                           QZDT_EntityType& type) const {
    return m_private->Call(table, &Database::GetColumnEntityType, table.GetIndex(), column, type);
}

// --- rows ---

unsigned int QZ_DT_Mgr::GetRowCount(QZDT_TableHandle const& table) const { return GetRowCount(table, 0); }

unsigned int QZ_DT_Mgr::GetRowCount(QZDT_TableHandle const& table, unsigned int column) const {
    Column const* const found = m_private->FindColumn(table, column);
    return found == nullptr ? 0 : found->rowCount;
}

QZDT_Result QZ_DT_Mgr::ResizeRows(QZDT_TableHandle const& table, unsigned int count) {
    return m_private->Call(table, &Database::ResizeRows, table.GetIndex(), count);
}

QZDT_Result QZ_DT_Mgr::ResizeRows(QZDT_TableHandle const& table, unsigned int column, unsigned int count) {
    return m_private->Call(table, &Database::ResizeColumn, table.GetIndex(), column, count);
}

QZDT_Result QZ_DT_Mgr::ClearRows(QZDT_TableHandle const& table) { return ResizeRows(table, 0); }

QZDT_Result QZ_DT_Mgr::ReserveRows(QZDT_TableHandle const& table, unsigned int) {
    return m_private->Call(table, &Database::HasTable, table.GetIndex());
}

QZDT_Result QZ_DT_Mgr::RemoveRows(QZDT_TableHandle const& table, qzStlVector<unsigned int> const& rows) {
    return m_private->Call(table, &Database::RemoveRows, table.GetIndex(), rows);
}

QZDT_Result QZ_DT_Mgr::RemoveRows(QZDT_TableHandle const& table, unsigned int column,
                                  qzStlVector<unsigned int> const& rows) {
    return m_private->Call(table, &Database::RemoveRowsOfColumn, table.GetIndex(), column, rows);
}

// --- cells ---

QZDT_Result QZ_DT_Mgr::GetCell(QZDT_TableHandle const& table, unsigned int row, unsigned int column,
                               QZ_DT_Variant& value) const {
    return m_private->Call(table, &Database::GetCell, table.GetIndex(), row, column, value);
}

QZDT_Result QZ_DT_Mgr::SetCell(QZDT_TableHandle const& table, unsigned int row, unsigned int column,
                               QZ_DT_Variant const& value) {
    return m_private->Call(table, &Database::SetCell, table.GetIndex(), row, column, value);
}
