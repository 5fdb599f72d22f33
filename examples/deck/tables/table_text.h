#pragma once

#include "tables/typed_table.h"

#include <ostream>
#include <string>
#include <vector>

namespace qzDeck {

using TextRows = std::vector<std::vector<std::string>>;

/// The names of the columns, then the cells of the rows. A blank that stands for nothing is empty.
TextRows TextsOf(std::span<Field const> columns, TableRows const& rows);

/// Columns below each other, at their right edges.
void WriteAligned(std::ostream& out, TextRows const& rows);

/// Fields between commas, in quotes when they hold a comma, a quote or the end of a line.
void WriteCsv(std::ostream& out, TextRows const& rows);

} // namespace qzDeck
