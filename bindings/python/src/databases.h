#pragma once

#include "bindings.h"

namespace qzPython {

/// Throws Ended for a table whose database is closed.
void CheckOpen(Tabular const& table);

} // namespace qzPython
