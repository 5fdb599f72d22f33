#pragma once

#include "selexpr/Condition.h"
#include "selexpr/IDataFilter.h"
#include "selexpr/Scalar.h"

#include <cmath>

namespace ui::selexpr {

inline bool IsNan(Scalar const& value) {
    return (value.GetKind() == Scalar::KIND_DOUBLE && std::isnan(value.GetDouble())) ||
           (value.GetKind() == Scalar::KIND_FLOAT && std::isnan(value.GetFloat()));
}

/// Whether a value satisfies a condition, as a filter sees it. In line, since it is asked of every object.
inline bool Holds(IDataFilter const& filter, Scalar const& value, Condition const& condition) {
    if (value.IsEmpty() || IsNan(value))
        return false;
    bool matches = false;
    switch (condition.GetConditionType()) {
    case CONDITION_RANGE:
        matches = filter.MatchingRange(value, condition);
        break;
    case CONDITION_REGEX:
        matches = filter.MatchingRegex(value, condition);
        break;
    default:
        matches = filter.Matching(value, condition);
    }
    return matches != condition.IsNegated();
}

} // namespace ui::selexpr
