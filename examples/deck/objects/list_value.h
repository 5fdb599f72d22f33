#pragma once

/// The fields that a card repeats, as lists.

#include "descriptor/Value.h"
#include "model/Card.h"

namespace qzDeck {

/// All of a repeated field: an element for each row, or a list for each when it is repeated there too. What
/// is blank, or holds something else, is what a blank stands for, else 0 or an empty text.
qzDescriptor::Value MakeListValue(Card const& card, Field const& field);
/// The elements in one row of a field that is repeated there.
qzDescriptor::Value MakeRowListValue(Card const& card, Field const& field, unsigned int row);

} // namespace qzDeck
