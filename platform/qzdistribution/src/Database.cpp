#include "Database.h"

#include "database_file.h"

#include <algorithm>
#include <new>

namespace qzdt {

std::unique_ptr<Database> Database::Open(qzString const& path, qzString& failure) {
    bool const isFile = path != ":memory:";
    if (path.empty() || path.find('\0') != qzString::npos) {
        failure = "A database needs the path of a file.";
        return nullptr;
    }
    if (isFile && !IsOurFileOrNone(path, failure))
        return nullptr;
    std::unique_ptr<Connection> connection = Connection::Open(path, failure);
    if (connection == nullptr)
        return nullptr;
    std::unique_ptr<Database> database(new Database(std::move(connection)));
    if (TakeDatabase(*database->m_connection) && database->m_catalog.Load() &&
        database->P_DropNamelessTables())
        return database;
    failure = database->GetFailure();
    return nullptr;
}

bool Database::Close() {
    while (m_changeDepth != 0)
        (void)CancelChange();
    return P_WriteCells();
}

bool Database::Flush() { return P_IsUsable() && P_WriteCells(); }

bool Database::SetSizeLimit(std::uint64_t bytes) {
    constexpr std::uint64_t mostPages = 0xFFFFFFFE;
    Statement statement(*m_connection, "PRAGMA page_size");
    Query query(statement);
    if (!query.Next())
        return false;
    std::uint64_t const pages =
        bytes / static_cast<std::uint64_t>(std::max<std::int64_t>(1, query.GetInteger(0)));
    qzString const limit =
        std::to_string(bytes == 0 ? mostPages : std::clamp<std::uint64_t>(pages, 1, mostPages));
    return m_connection->Execute(("PRAGMA max_page_count = " + limit).c_str());
}

// --- changes: the outermost is a transaction, those within it are savepoints ---

bool Database::BeginChange() {
    if (!P_IsUsable() || !P_WriteCells() ||
        !m_connection->Execute(m_changeDepth == 0 ? "BEGIN IMMEDIATE" : "SAVEPOINT change"))
        return false;
    ++m_changeDepth;
    return true;
}

bool Database::CommitChange() {
    if (m_changeDepth == 0)
        return P_Fail("No change was begun.");
    if (P_IsUsable() && P_WriteCells() &&
        m_connection->Execute(m_changeDepth == 1 ? "COMMIT" : "RELEASE change")) {
        --m_changeDepth;
        return true;
    }
    qzString const failure = GetFailure();
    (void)CancelChange();
    return P_Fail(failure);
}

bool Database::CancelChange() {
    if (m_changeDepth == 0)
        return P_Fail("No change was begun.");
    --m_changeDepth;
    m_chunks.Forget();
    bool undone = true;
    if (m_connection->IsInTransaction())
        undone =
            m_connection->Execute(m_changeDepth == 0 ? "ROLLBACK" : "ROLLBACK TO change; RELEASE change");
    else
        m_changeIsLost = true;
    m_changeIsLost = m_changeIsLost && m_changeDepth != 0;
    return P_Rewind() && undone;
}

bool Database::P_IsUsable() const {
    if (m_isUnreadable)
        return P_Fail("The database could not be read again after a failure. It must be closed.");
    if (m_changeIsLost)
        return P_Fail("The change was undone when an operation in it failed. It must be cancelled.");
    return true;
}

// Reads what there is after something was undone.
bool Database::P_Rewind() {
    m_isUnreadable = true; // unless the end is reached
    m_isUnreadable = !m_catalog.Load();
    return !m_isUnreadable;
}

bool Database::P_WriteCells() {
    if (!m_chunks.HasChanges())
        return true;
    if (m_changeDepth == 0)
        return P_WriteCellsAlone();
    if (m_chunks.WriteChanges()) {
        m_chunks.ForgetChanges();
        return true;
    }
    if (!m_connection->IsInTransaction()) {
        qzString const failure = GetFailure();
        m_changeIsLost = true;
        m_chunks.Forget();
        (void)P_Rewind();
        (void)P_Fail(failure);
    }
    return false;
}

// What cannot be written stays in memory, to be written later.
bool Database::P_WriteCellsAlone() {
    try {
        if (m_connection->Execute("BEGIN IMMEDIATE") && m_chunks.WriteChanges() &&
            m_connection->Execute("COMMIT")) {
            m_chunks.ForgetChanges();
            return true;
        }
    } catch (...) { // memory ran out
        (void)m_connection->Execute("ROLLBACK");
        throw;
    }
    qzString const failure = GetFailure();
    if (m_connection->IsInTransaction())
        (void)m_connection->Execute("ROLLBACK");
    return P_Fail(failure);
}

bool Database::P_Undo() noexcept {
    try {
        qzString const failure = GetFailure();
        (void)CancelChange();
        return P_Fail(failure);
    } catch (std::bad_alloc const&) {
        return false; // P_Rewind has said that the database cannot be read
    }
}

} // namespace qzdt
