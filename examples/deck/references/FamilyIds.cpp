#include "references/FamilyIds.h"

#include "references/card_ids.h"

#include <algorithm>
#include <unordered_map>

namespace qzDeck {

namespace {

/// Of each kind of card the families that its cards belong to, by their index in AllFamilies.
std::unordered_map<CardKind const*, std::vector<std::size_t>> FamiliesByKind(Model const& model) {
    std::unordered_map<CardKind const*, std::vector<std::size_t>> families;
    auto const all = AllFamilies();
    for (CardKind const& kind : model.Kinds()) {
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (IsMember(all[i], kind.name))
                families[&kind].push_back(i);
        }
    }
    return families;
}

} // namespace

FamilyIds::FamilyIds(Model const& model) : m_pools(AllFamilies().size()) {
    auto const families = FamiliesByKind(model);
    PlacedFields placed;
    for (Card const& card : model.Cards()) {
        auto const found = families.find(&card.Kind());
        if (found == families.end())
            continue;
        for (std::size_t family : found->second)
            P_AddCard(m_pools[family], card, placed);
    }
    for (Pool& pool : m_pools)
        pool.ids.Seal();
}

void FamilyIds::P_AddCard(Pool& pool, Card const& card, PlacedFields& placed) {
    WholeNumber previous;
    VisitIds(card, placed, [&](std::size_t place, bool endsRange) {
        WholeNumber const id = WholeOf(card.Values()[place]);
        pool.ids.Add(id);
        if (endsRange)
            pool.ranges.emplace_back(previous, id);
        previous = id;
    });
}

bool FamilyIds::Contains(Family family, WholeNumber const& id) const {
    Pool const& pool = m_pools[static_cast<std::size_t>(family) - 1];
    return pool.ids.Contains(id) ||
           std::any_of(pool.ranges.begin(), pool.ranges.end(),
                       [&](auto const& range) { return range.first <= id && id <= range.second; });
}

} // namespace qzDeck
