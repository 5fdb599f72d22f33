#pragma once

#include "model/Model.h"

#include <cstddef>
#include <map>
#include <string>

namespace qzDeck {

/// By `CARD->TARGET`, how many references of common elements, forces and supports name a grid point or a
/// property that the deck does not hold, for the cards that it has. Defaults of other cards are not applied.
std::map<std::string, std::size_t> CountDanglingReferences(Model const& model);

} // namespace qzDeck
