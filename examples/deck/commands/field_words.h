#pragma once

#include "descriptor/Identifier.h"
#include "descriptor/ValuePtr.h"

#include <string>

namespace qzDeck {

/// The field that people name: `T`, `MID(3)`, `DIM(2,1)`, where they count from 1; a number is a field
/// without a name.
qzDescriptor::Identifier FieldNamed(std::string const& label);
/// The same the other way round.
std::string LabelOf(qzDescriptor::Identifier const& field);

/// A value in words; the elements of a list between blanks, and its rows between semicolons.
std::string TextOf(qzDescriptor::ValuePtr const& value);

} // namespace qzDeck
