#pragma once

/// The lists that cards hold, as tables: the plies of a laminate, the factors and sets of a load, the points
/// of a support.
///
/// A list of rows has a column for each field. A range is one row: its first id, and its last one in the
/// column THRU, which is blank for a single id. What may stand behind the ids of a card instead of one
/// (ALPHA) has a row of its own. The groups of RBE3 become rows of one point each, with the weight and the
/// components of its group; the dependent points behind the word UM are no part of it. Cross-sections have
/// no table: how many dimensions a station has is another matter for each TYPE.

#include "descriptor/Tabular.h"
#include "descriptor/TabularDefinition.h"
#include "model/Card.h"
#include "tables/typed_table.h"

#include <vector>

namespace qzDeck {

/// What the columns are; none for cards without a table.
std::vector<Field> ListColumns(CardDefinition const& card);
/// Without those that are blank as a whole; none for cards without a table.
TableRows ListRows(Card const& card);

/// Without columns for cards without a table.
qzDescriptor::TabularDefinition MakeTableDefinition(CardDefinition const& card);
qzDescriptor::Tabular MakeTable(Card const& card);

} // namespace qzDeck
