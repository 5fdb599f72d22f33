#pragma once

#include "qzutl/qzString.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

struct sqlite3;
struct sqlite3_stmt;

namespace qzdt {

/// One connection to SQLite. What fails answers false, and the connection keeps the sentence that says why.
class Connection {
public:
    /// Null, and why, when the file cannot be opened. Nothing has been read from it yet otherwise.
    static std::unique_ptr<Connection> Open(qzString const& path, qzString& failure);
    Connection(Connection const&) = delete;
    Connection& operator=(Connection const&) = delete;
    ~Connection();

    /// Statements without results.
    bool Execute(char const* sql);
    bool IsReadOnly() const;
    bool IsInTransaction() const;

    bool Fail(qzString sentence) {
        m_failure = std::move(sentence);
        return false;
    }
    qzString const& GetFailure() const { return m_failure; }

private:
    friend class Statement;
    explicit Connection(sqlite3* handle) : m_handle(handle) {}
    bool P_Fail(int code);

    sqlite3* m_handle;
    qzString m_failure;
};

/// A statement with parameters, prepared when first used and then kept. Texts and byte strings are both
/// stored as bytes.
class Statement {
public:
    Statement(Connection& connection, char const* sql) : m_connection(connection), m_sql(sql) {}
    Statement(Statement const&) = delete;
    Statement& operator=(Statement const&) = delete;
    ~Statement();

    /// To its end, with these values.
    template <class... Values>
    bool Run(Values const&... values) {
        bool const succeeded = P_Start(values...) && P_Finish();
        P_Reset();
        return succeeded;
    }

private:
    friend class Query;
    enum class Progress { Row, Done, Failed };

    template <class... Values>
    bool P_Start(Values const&... values) {
        int parameter = 0;
        return P_Prepare() && (P_Bind(++parameter, values) && ...);
    }
    bool P_Prepare();
    bool P_Bind(int parameter, std::int64_t value);
    bool P_Bind(int parameter, std::string_view bytes);
    Progress P_Step();
    bool P_Finish();
    void P_Reset();
    std::int64_t P_GetInteger(int column) const;
    std::string_view P_GetBytes(int column) const;

    // Nothing uses them in a library without SQLite.
    [[maybe_unused]] Connection& m_connection;
    [[maybe_unused]] char const* m_sql;
    [[maybe_unused]] sqlite3_stmt* m_handle = nullptr;
};

/// One run of a statement over its rows; what is being read ends with it.
///
///     Query query(statement, id);
///     while (query.Next())
///         Use(query.GetInteger(0));
///     return !query.HasFailed();
class Query {
public:
    template <class... Values>
    explicit Query(Statement& statement, Values const&... values)
        : m_statement(statement), m_failed(!statement.P_Start(values...)) {}
    Query(Query const&) = delete;
    Query& operator=(Query const&) = delete;
    ~Query() { m_statement.P_Reset(); }

    /// False at the end and after a failure.
    bool Next();
    bool HasFailed() const { return m_failed; }

    std::int64_t GetInteger(int column) const { return m_statement.P_GetInteger(column); }
    /// Until the next row.
    std::string_view GetBytes(int column) const { return m_statement.P_GetBytes(column); }

private:
    Statement& m_statement;
    bool m_failed;
};

} // namespace qzdt
