#pragma once

#include "objects/DeckObject.h"

#include <ostream>

namespace qzDeck {

/// Tells all there is about one object: its attributes with what they hold, measure, allow and refer to; what
/// owns it and what it owns.
void WriteObjectPage(std::ostream& out, DeckObject const& object);

} // namespace qzDeck
