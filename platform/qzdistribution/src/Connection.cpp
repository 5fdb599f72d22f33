#include "Connection.h"

#include <sqlite3.h>

namespace qzdt {

namespace {

constexpr int s_millisecondsToWait = 250; // for a lock that another process is about to give back

char const* Explain(int code) {
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return "The database is in use elsewhere";
    case SQLITE_CANTOPEN:
        return "The database cannot be opened";
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return "The database is damaged";
    case SQLITE_FULL:
        return "There is no room left for the database";
    case SQLITE_IOERR:
        return "The database cannot be read or written";
    case SQLITE_NOMEM:
        return "There is not enough memory for the database";
    case SQLITE_PERM:
    case SQLITE_READONLY:
        return "The database is read-only";
    default:
        return "The database refuses the operation";
    }
}

qzString Sentence(int code, char const* details) { return qzString(Explain(code)) + " (" + details + ")."; }

} // namespace

std::unique_ptr<Connection> Connection::Open(qzString const& path, qzString& failure) {
    int const flags =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    sqlite3* handle = nullptr;
    int const code = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr);
    std::unique_ptr<Connection> connection(
        new Connection(handle)); // a failed open has a handle to close, too
    if (code != SQLITE_OK) {
        failure = Sentence(code, sqlite3_errstr(code));
        return nullptr;
    }
    sqlite3_busy_timeout(handle, s_millisecondsToWait);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    return connection;
}

Connection::~Connection() { sqlite3_close_v2(m_handle); }

bool Connection::Execute(char const* sql) {
    int const code = sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr);
    return code == SQLITE_OK || P_Fail(code);
}

bool Connection::IsReadOnly() const { return sqlite3_db_readonly(m_handle, "main") != 0; }

bool Connection::IsInTransaction() const { return sqlite3_get_autocommit(m_handle) == 0; }

bool Connection::P_Fail(int code) { return Fail(Sentence(code, sqlite3_errmsg(m_handle))); }

Statement::~Statement() { sqlite3_finalize(m_handle); }

bool Statement::P_Prepare() {
    if (m_handle != nullptr)
        return true;
    int const code =
        sqlite3_prepare_v3(m_connection.m_handle, m_sql, -1, SQLITE_PREPARE_PERSISTENT, &m_handle, nullptr);
    return code == SQLITE_OK || m_connection.P_Fail(code);
}

bool Statement::P_Bind(int parameter, std::int64_t value) {
    int const code = sqlite3_bind_int64(m_handle, parameter, value);
    return code == SQLITE_OK || m_connection.P_Fail(code);
}

// Bytes are read where they are: they outlive the run.
bool Statement::P_Bind(int parameter, std::string_view bytes) {
    char const* const data = bytes.empty() ? "" : bytes.data(); // a null pointer would bind NULL
    int const code = sqlite3_bind_blob64(m_handle, parameter, data, bytes.size(), SQLITE_STATIC);
    return code == SQLITE_OK || m_connection.P_Fail(code);
}

Statement::Progress Statement::P_Step() {
    int const code = sqlite3_step(m_handle);
    if (code == SQLITE_ROW)
        return Progress::Row;
    if (code == SQLITE_DONE)
        return Progress::Done;
    m_connection.P_Fail(code);
    return Progress::Failed;
}

bool Statement::P_Finish() {
    Progress progress = Progress::Row;
    while (progress == Progress::Row)
        progress = P_Step();
    return progress == Progress::Done;
}

void Statement::P_Reset() { sqlite3_reset(m_handle); }

std::int64_t Statement::P_GetInteger(int column) const { return sqlite3_column_int64(m_handle, column); }

std::string_view Statement::P_GetBytes(int column) const {
    void const* const data = sqlite3_column_blob(m_handle, column); // first: it may convert what is there
    auto const size = static_cast<std::size_t>(sqlite3_column_bytes(m_handle, column));
    return data == nullptr ? std::string_view() : std::string_view(static_cast<char const*>(data), size);
}

bool Query::Next() {
    if (m_failed)
        return false;
    Statement::Progress const progress = m_statement.P_Step();
    m_failed = progress == Statement::Progress::Failed;
    return progress == Statement::Progress::Row;
}

} // namespace qzdt
