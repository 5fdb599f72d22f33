#pragma once

#include "descriptor/Forward.h"

namespace qzDescriptor {

/// A holder of a table, which is in memory unless the handle is valid. The body stands with tables.
ValuePtr* CreateTable(QZDT_DBHandle const& database, DisplayStatus status);

} // namespace qzDescriptor
