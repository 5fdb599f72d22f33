#pragma once

#include "qzdistribution/Records.h"
#include "tables/model_tables.h"

#include <string>
#include <vector>

namespace qzDeck {

/// Puts tables into a database file, as a set of that name: all of them or, when it fails, none. A set that
/// had the name is replaced. Columns go by the identifiers of their fields.
QZDT_Result StoreTables(std::string const& file, std::string const& set,
                        std::vector<ModelTable> const& tables);

/// Reads the set again and says of each table whether it is the one in the file.
QZDT_Result CompareWithStore(std::string const& file, std::string const& set,
                             std::vector<ModelTable> const& tables, std::vector<bool>& areEqual);

} // namespace qzDeck
