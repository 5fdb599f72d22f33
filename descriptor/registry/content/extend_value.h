#pragma once

#include "descriptor/Value.h"

namespace qzDescriptor {

/// Whether a value is a list, a bag or a table, which can be extended.
bool HoldsMany(ValuePtr const& value);

/// A value with the elements of both of two such values: of lists, two-level lists and tables the second
/// one's elements or rows behind those of the first, of bags all entities once, and the first one's formula
/// where both have one for a type. Empty when they are of different types, hold entities of different types,
/// or are tables with different columns.
Value ExtendedBy(ValuePtr const& first, ValuePtr const& second);

} // namespace qzDescriptor
