// The connection of a library built without SQLite: none can be opened, so nothing else is ever asked of one.

#include "Connection.h"

namespace qzdt {

std::unique_ptr<Connection> Connection::Open(qzString const&, qzString& failure) {
    failure = "This library was built without SQLite and keeps no tables outside memory.";
    return nullptr;
}

Connection::~Connection() {}
bool Connection::Execute(char const*) { return false; }
bool Connection::IsReadOnly() const { return true; }
bool Connection::IsInTransaction() const { return false; }

Statement::~Statement() {}
bool Statement::P_Prepare() { return false; }
bool Statement::P_Bind(int, std::int64_t) { return false; }
bool Statement::P_Bind(int, std::string_view) { return false; }
Statement::Progress Statement::P_Step() { return Progress::Failed; }
bool Statement::P_Finish() { return false; }
void Statement::P_Reset() {}
std::int64_t Statement::P_GetInteger(int) const { return 0; }
std::string_view Statement::P_GetBytes(int) const { return {}; }

bool Query::Next() { return false; }

} // namespace qzdt
