#pragma once

#include "cards/CardDefinition.h"

#include <ostream>

namespace qzDeck {

enum class PageStyle { Text, Markdown };

/// Tells all that a card's definition says: a table of its fields with their places, types, defaults, limits,
/// units and meaning.
void WriteCardPage(std::ostream& out, CardDefinition const& card, PageStyle style);

} // namespace qzDeck
