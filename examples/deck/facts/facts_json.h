#pragma once

#include "facts/DeckFacts.h"

#include <string>

namespace qzDeck {

/// The facts as JSON. Real sums have six significant digits; integers have all of theirs, also beyond 64
/// bits. A real beyond the range of doubles is written as 1e999, which readers of JSON take for infinity.
std::string ToJson(DeckFacts const& facts);

} // namespace qzDeck
