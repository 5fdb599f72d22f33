#pragma once

/// The one place that says under which identifier a card's field is kept.

#include "descriptor/Identifier.h"

#include <cstddef>
#include <string_view>

namespace qzDeck {

/// The identifier of a data field, numbered from 1. Fields of all cards go by their number.
inline qzDescriptor::Identifier FieldIdentifier([[maybe_unused]] std::string_view card, std::size_t number) {
    return qzDescriptor::Identifier(static_cast<int>(number));
}

} // namespace qzDeck
