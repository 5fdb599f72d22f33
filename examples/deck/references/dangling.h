#pragma once

/// References that lead nowhere.

#include "cards/families.h"
#include "model/Model.h"
#include "model/WholeNumber.h"

#include <functional>
#include <optional>

namespace qzDeck {

/// The family that a field refers to.
Family FamilyOf(Field const& field);

/// Whether a number in a field that refers to others is none of theirs.
bool IsSpecialReference(Field const& field, WholeNumber const& number);

struct DanglingReference {
    Card const& card;
    std::size_t place;
    PlacedField const& field;
    Family family;
    std::optional<WholeNumber> id; ///< what is missing, unless neither the field nor the card has a number
};

/// Whether a blank field means what another card of the deck says about blank ones of its kind.
enum class Blanks { AsWritten, ByDefaultsCard };

/// Visits the references of all cards to what the model does not hold, in their order. A blank and 0 refer to
/// nothing, nor does a negative number that the field allows; a blank property is the one with the id of the
/// element. What a list with a range names need not be there.
void FindDanglingReferences(Model const& model, Blanks blanks,
                            std::function<void(DanglingReference const&)> const& visit);

} // namespace qzDeck
