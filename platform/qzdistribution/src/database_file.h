#pragma once

#include "Connection.h"

namespace qzdt {

/// Whether a path may be given to SQLite: it names nothing yet, an empty file or one of ours. Files of others
/// are not even opened as a database, which alone can change them.
bool IsOurFileOrNone(qzString const& path, qzString& failure);

/// Takes the database for this process alone, makes the store's tables in a new one and checks them in any
/// other. Afterwards files are changed through a write-ahead log, so that what is cut short never shows.
bool TakeDatabase(Connection& connection);

} // namespace qzdt
