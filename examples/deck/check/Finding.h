#pragma once

#include "model/Model.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qzDeck {

/// Something about a field of a deck that is not as it should be.
struct Finding {
    enum Kind : std::uint8_t { Violation, DanglingReference, DuplicateId, Warning };

    Kind kind;
    Card const* card;
    std::size_t place;
    std::string field; ///< its name with row and column
    std::string message;
};
using Findings = std::vector<Finding>;

/// `file:line` of a card; `a new card` for one that was not read.
std::string WhereIs(Card const& card, Model const& model);

/// `file:line: CARD FIELD value: message`; without the value when the field is blank.
std::string Describe(Finding const& finding, Model const& model);

/// What is wrong with a value that is not blank, by itself; null is a field without a definition.
std::optional<std::string> FindFault(Field const* field, qzDescriptor::Value const& value);

/// What the definitions of the cards do not allow: fields that cannot be read, of a wrong type, outside of
/// what is allowed, blank although required.
Findings CheckFields(Model const& model);

/// References to what the deck does not hold.
Findings CheckReferences(Model const& model);

/// Cards with the id of another one of their family. One that repeats the other to the letter is a warning.
Findings CheckIds(Model const& model);

} // namespace qzDeck
