#pragma once

#include "objects/DeckSession.h"

#include <string>
#include <vector>

namespace qzDeck {

/// Whether a query can be asked of objects of several types, the first of which names them all. Each
/// attribute in it has to be one of some type; a condition on what an object lacks does not hold. The message
/// says what is wrong.
qzDescriptor::qzReturnStatus CheckQueryOverTypes(DeckSession const& session,
                                                 std::vector<unsigned int> const& metaclasses,
                                                 std::string const& query);

} // namespace qzDeck
