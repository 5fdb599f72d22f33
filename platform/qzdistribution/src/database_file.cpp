#include "database_file.h"

#include "Catalog.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace qzdt {

namespace {

// "QZDT", and the version of the format, in the fields of a SQLite file that are there for it.
constexpr std::int64_t s_applicationId = 0x515A4454;
constexpr std::int64_t s_version = 1;
constexpr std::string_view s_magic("SQLite format 3\0", 16);
constexpr std::size_t s_applicationIdPlace = 68;
constexpr std::string_view s_applicationIdBytes("QZDT");

constexpr char const* s_notOurs = "The file is no database of tables.";

bool HasOurHeader(std::string_view header) {
    return header.starts_with(s_magic) &&
           header.substr(s_applicationIdPlace, s_applicationIdBytes.size()) == s_applicationIdBytes;
}

bool ReadNumber(Connection& connection, char const* sql, std::int64_t& number) {
    Statement statement(connection, sql);
    Query query(statement);
    bool const read = query.Next();
    if (read)
        number = query.GetInteger(0);
    return read;
}

bool MakeTables(Connection& connection) {
    qzString const marks = "PRAGMA application_id = " + std::to_string(s_applicationId) +
                           "; PRAGMA user_version = " + std::to_string(s_version);
    return std::ranges::all_of(Catalog::GetSchema(),
                               [&](char const* sql) { return connection.Execute(sql); }) &&
           connection.Execute(marks.c_str());
}

// What another program added, such as a trigger, would take part in every change of ours.
bool CheckTables(Connection& connection) {
    Statement statement(connection, "SELECT sql FROM sqlite_schema WHERE substr(name, 1, 7) <> 'sqlite_'"
                                    " ORDER BY name");
    Query query(statement);
    std::size_t count = 0;
    while (query.Next()) {
        if (count == Catalog::GetSchema().size() || query.GetBytes(0) != Catalog::GetSchema()[count])
            return connection.Fail(s_notOurs);
        ++count;
    }
    if (query.HasFailed())
        return false;
    return count == Catalog::GetSchema().size() || connection.Fail(s_notOurs);
}

bool MakeOrCheckTables(Connection& connection) {
    std::int64_t tables = 0;
    std::int64_t application = 0;
    std::int64_t version = 0;
    if (!ReadNumber(connection, "SELECT count(*) FROM sqlite_schema", tables) ||
        !ReadNumber(connection, "PRAGMA application_id", application) ||
        !ReadNumber(connection, "PRAGMA user_version", version))
        return false;
    if (tables == 0 && application == 0 && version == 0)
        return MakeTables(connection);
    if (application != s_applicationId)
        return connection.Fail(s_notOurs);
    if (version != s_version)
        return connection.Fail("The database was written by another version of this library.");
    return CheckTables(connection);
}

} // namespace

bool IsOurFileOrNone(qzString const& path, qzString& failure) {
    std::filesystem::path const file(std::u8string(path.begin(), path.end()));
    std::error_code error;
    std::filesystem::file_status const status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found)
        return true;
    char header[s_applicationIdPlace + s_applicationIdBytes.size()];
    std::streamsize size = 0;
    if (status.type() == std::filesystem::file_type::regular) {
        std::ifstream stream(file, std::ios::binary);
        stream.read(header, std::ssize(header));
        size = stream.gcount();
        if (size == 0 && stream.is_open())
            return true;
    }
    if (HasOurHeader(std::string_view(header, static_cast<std::size_t>(size))))
        return true;
    failure = s_notOurs;
    return false;
}

bool TakeDatabase(Connection& connection) {
    if (connection.IsReadOnly())
        return connection.Fail("The database is read-only.");
    return connection.Execute(
               "PRAGMA locking_mode = EXCLUSIVE; PRAGMA cell_size_check = ON; BEGIN EXCLUSIVE") &&
           MakeOrCheckTables(connection) &&
           connection.Execute("COMMIT; PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;"
                              "PRAGMA wal_autocheckpoint = 4000");
}

} // namespace qzdt
