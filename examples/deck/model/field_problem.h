#pragma once

#include "descriptor/Value.h"
#include "reader/Report.h"
#include "reader/Source.h"
#include "reader/field_kind.h"

#include <optional>

namespace qzDeck {

/// What is wrong with a field, if anything, given the kind and the value that were made of it.
std::optional<Problem> FindProblem(LocatedField const& field, FieldKind kind,
                                   qzDescriptor::Value const& value);

} // namespace qzDeck
