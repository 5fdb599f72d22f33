#pragma once

#include "model/Card.h"
#include "model/field_value.h"

#include <cstddef>

namespace qzDeck {

/// Whether cards of a definition may have more ids than one.
inline bool HasSeveralIds(CardDefinition const* definition) {
    return definition != nullptr && definition->GetTail() != nullptr &&
           HasFlag(definition->TailFields().front(), FIELD_IS_ID);
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

} // namespace qzDeck
