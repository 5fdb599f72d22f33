#pragma once

#include "cards/families.h"
#include "model/IdSet.h"
#include "model/Model.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace qzDeck {

/// The ids that a model's cards have, by family.
class FamilyIds {
public:
    explicit FamilyIds(Model const& model);

    bool Contains(Family family, WholeNumber const& id) const;

private:
    struct Pool {
        IdSet ids;
        std::vector<std::pair<WholeNumber, WholeNumber>> ranges;
    };

    static void P_AddCard(Pool& pool, Card const& card, PlacedFields& placed);

    std::vector<Pool> m_pools; // in the order of AllFamilies
};

} // namespace qzDeck
