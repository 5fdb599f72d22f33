#pragma once

#include "descriptor/Identifier.h"

#include <string>

namespace qzDescriptor {

/// What a person calls an attribute: its name, else its number.
inline qzString NameOf(Identifier const& identifier) {
    if (identifier.UsesNameKey() || !identifier.IsValid())
        return identifier.GetNameKey();
    return std::to_string(identifier.GetNumericKey());
}

} // namespace qzDescriptor
