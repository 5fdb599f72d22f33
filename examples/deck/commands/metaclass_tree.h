#pragma once

#include "objects/DeckRegistry.h"

#include <functional>

namespace qzDeck {

/// Visits every metaclass with its depth, parents before their children.
void VisitMetaclasses(DeckRegistry const& registry,
                      std::function<void(unsigned int metaclass, std::size_t depth)> const& visit);

} // namespace qzDeck
