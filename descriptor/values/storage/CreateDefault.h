#pragma once

#include "descriptor/Forward.h"

namespace qzDescriptor {

/// A holder of the default element of a type, or of its empty list or bag; null when the triple is no type.
/// For entities, dimension 4 makes a register of bags.
ValuePtr* CreateDefault(BasicType basic, CompoundType compound, unsigned int arrayDimension,
                        DisplayStatus status);

} // namespace qzDescriptor
