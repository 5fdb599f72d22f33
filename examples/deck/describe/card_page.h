#pragma once

#include "cards/CardDefinition.h"

#include <ostream>
#include <string>

namespace qzDeck {

enum class PageStyle { Text, Markdown };

/// Tells all that a card's definition says: a table of its fields with their places, types, defaults, limits,
/// units and meaning.
void WriteCardPage(std::ostream& out, CardDefinition const& card, PageStyle style);

/// What is allowed in an attribute, and what it measures, in the words of the page.
std::string AllowedIn(qzDescriptor::Definition const& definition);
std::string MeasuredBy(qzDescriptor::Definition const& definition);

} // namespace qzDeck
