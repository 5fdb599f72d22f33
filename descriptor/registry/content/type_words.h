#pragma once

#include "descriptor/DataTypes.h"
#include "qzutl/qzString.h"

namespace qzDescriptor {

/// What a value of a type is called in a sentence: "a double", "a list of texts", "a bag of entities". Of
/// entities, array dimension 4 is a register of bags.
qzString TypeWords(BasicType basic, CompoundType compound, unsigned int arrayDimension);

} // namespace qzDescriptor
