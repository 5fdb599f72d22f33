#pragma once

#include "descriptor/Identifier.h"
#include "support/Random.h"

namespace qzDescriptor::test {

/// Any combination of few keys with wildcards, so that many of them are equal without being the same.
inline Identifier RandomIdentifier(Random& random, unsigned int keys = 4) {
    Identifier id; // row and column 0
    if (!random.Chance(3))
        id = "n" + std::to_string(random.Below(keys));
    if (random.Chance(3))
        id = static_cast<int>(random.Below(3)) - 1;
    if (random.Chance(2))
        return random.Chance(2) ? id : Identifier(id.GetNameKey());
    id.SetSolverIdx(random.Pick({0, 0, 1, 2}));
    id.SetRow(random.Pick({Identifier::s_unset, 0U, 1U}));
    id.SetColumn(random.Pick({Identifier::s_unset, 0U, 1U}));
    return id;
}

} // namespace qzDescriptor::test
