#pragma once

#include "cards/CardDefinition.h"

#include <deque>
#include <string_view>

namespace qzDeck {

/// The definition of the cards of a name, in capitals; null for cards that are not known.
CardDefinition const* FindCard(std::string_view name);

/// All definitions, by subject.
std::deque<CardDefinition> const& AllCards();

} // namespace qzDeck
