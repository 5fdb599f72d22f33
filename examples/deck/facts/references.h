#pragma once

#include "facts/DeckFacts.h"

namespace qzDeck {

/// By `CARD->TARGET`, how many references of the model's cards name a grid point or a property that the deck
/// does not hold. A blank grid reference and grid point 0 refer to nothing; a blank property is the one with
/// the element's own id.
std::map<std::string, std::size_t> CountDanglingReferences(Model const& model,
                                                           std::map<std::string, CardFacts> const& cards);

} // namespace qzDeck
