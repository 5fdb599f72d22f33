#pragma once

#include "cards/families.h"
#include "model/Card.h"
#include "model/field_value.h"

#include <cstddef>
#include <string_view>

namespace qzDeck {

/// Whether cards of a definition may have more ids than one.
inline bool HasSeveralIds(CardDefinition const* definition) {
    return definition != nullptr && definition->GetTail() != nullptr &&
           HasFlag(definition->TailFields().front(), FIELD_IS_ID);
}

/// The name of the group of cards in which a card's id is unique: a family, or cards of one name. Empty for
/// cards that share ids by design, and for those without any. It may be the name that the kind itself holds.
inline std::string_view IdGroupOf(CardKind const& kind) {
    for (FamilyTraits const& family : AllFamilies()) {
        if (family.hasUniqueIds && IsMember(family, kind.name))
            return family.label;
    }
    bool const hasId =
        kind.definition != nullptr && HasFlag(kind.definition->AllFields().front(), FIELD_IS_ID);
    return hasId ? std::string_view(kind.name) : std::string_view();
}

/// Visits the ids of a card: `visit(place, endsRange)`. It is the first field of most cards; where there are
/// several, a range stands between two of them.
template <class Visit>
void VisitIds(Card const& card, PlacedFields& placed, Visit const& visit) {
    auto const& values = card.Values();
    auto const isInteger = [&](std::size_t place) { return KindOf(values[place]) == FieldKind::Integer; };
    if (!HasSeveralIds(card.Kind().definition)) {
        if (!values.empty() && isInteger(0))
            visit(std::size_t{0}, false);
        return;
    }
    card.Place(placed);
    bool endsRange = false;
    for (std::size_t place = 0; place < values.size(); ++place) {
        Field const* const field = placed[place].field;
        if (field == nullptr || values[place].GetValuePtr() == nullptr)
            continue;
        if (HasFlag(*field, FIELD_IS_ID) && isInteger(place))
            visit(place, endsRange);
        endsRange = HasFlag(*field, FIELD_IS_RANGE);
    }
}

/// Whether a card has an id, or names a range in which it is.
inline bool HoldsId(Card const& card, std::int64_t id) {
    bool holds = false;
    WholeNumber const wanted(id);
    WholeNumber previous;
    PlacedFields placed;
    VisitIds(card, placed, [&](std::size_t place, bool endsRange) {
        WholeNumber const found = WholeOf(card.Values()[place]);
        holds = holds || found == wanted || (endsRange && previous <= wanted && wanted <= found);
        previous = found;
    });
    return holds;
}

} // namespace qzDeck
