#pragma once

#include "descriptor/Forward.h"

namespace qzDescriptor {

/// The worst result of testing every element of a value by its own type: 1, else 2, else 0. What is no
/// allowable type passes. Other than Allowables::Test of a Value, it always tests, and qualifiers as well.
int TestElements(Allowables const& allowables, ValuePtr const& value);

} // namespace qzDescriptor
