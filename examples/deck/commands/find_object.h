#pragma once

#include "objects/DeckRegistry.h"
#include "objects/DeckSession.h"

#include <string>
#include <vector>

namespace qzDeck {

/// The metaclass that a word names in any letter case; 0, with the reason on standard error, when none does.
unsigned int FindMetaclass(DeckRegistry const& registry, std::string const& name);

/// The object of a type with an id; null, with the reason on standard error, when there is none.
DeckObject* FindObject(DeckSession const& session, std::string const& type, int id);

/// A metaclass and all that descend from it, in their order.
std::vector<unsigned int> Descendants(DeckRegistry const& registry, unsigned int metaclass);

} // namespace qzDeck
