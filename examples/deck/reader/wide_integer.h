#pragma once

#include "reader/Source.h"

namespace qzDeck {

/// Whether an integer looks like the left part of a longer one that did not fit its field of 8 columns.
/// Fields may touch, so eight digits beside digits are no proof: what betrays the longer one is a digit
/// behind the last data field, or a next field that starts at its left edge where the field before ends at
/// its right.
bool IsWiderThanField(LocatedField const& integer);

} // namespace qzDeck
