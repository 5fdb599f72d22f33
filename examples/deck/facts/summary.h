#pragma once

#include "facts/DeckFacts.h"
#include "model/Model.h"

#include <ostream>

namespace qzDeck {

/// Tells a reader who has not seen the deck what it holds: its title, its cards by name, the extent of its
/// grid, references that lead nowhere, and how much is wrong with it.
void WriteSummary(std::ostream& out, Model const& model, DeckFacts const& facts);

} // namespace qzDeck
