#pragma once

#include "cards/CardDefinition.h"

namespace qzDeck {

/// All fields again and again, one row of them after the other.
Tail const& RepeatedRows();

/// The first field as often as the cross-section of the card's TYPE has dimensions, then the second. If there
/// are more, they come before the next station of a beam, which goes on with the first field again.
Tail const& SectionStations();

/// A weight, components and points; a real number behind points is the next weight. The word UM begins pairs
/// of a point and components, the word ALPHA a number. There are eight fields, in this order.
Tail const& WeightedGroups();

/// The names of the types of cross-sections.
std::vector<std::string_view> SectionTypes();

} // namespace qzDeck
