#pragma once

/// How a field becomes a value: an integer an int, a real a double, a text a string, a blank an empty value.
/// What none of these can hold as it was written (an integer beyond 32 bits, a real out of range, something
/// unreadable) is a string with the field's text, and a real written without a point is a double; both are
/// marked by the name of their kind as the value's associated string.

#include "descriptor/Value.h"
#include "model/WholeNumber.h"
#include "reader/field_kind.h"

namespace qzDeck {

qzDescriptor::Value MakeValue(FieldKind kind, std::string_view text);

FieldKind KindOf(qzDescriptor::Value const& value);

/// The number in a value of a numeric kind.
double RealOf(qzDescriptor::Value const& value);
/// The number in an integer's value.
WholeNumber WholeOf(qzDescriptor::Value const& value);

} // namespace qzDeck
