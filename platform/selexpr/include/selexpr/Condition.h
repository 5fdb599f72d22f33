#pragma once

#include "qzutl/qzString.h"
#include "selexpr/Export.h"

namespace ui::selexpr {

/// How a value is compared. Filters may use codes of their own.
enum ConditionType : int {
    CONDITION_CONTAINS = 1, ///< a part of the text, ignoring ASCII case; what a bare word means
    CONDITION_EQUAL = 2,    ///< the whole text, ignoring ASCII case, or the number
    CONDITION_MATCHES = 3,  ///< likewise, with the wildcards * and ?
    CONDITION_REGEX = 4,    ///< a regular expression that fits somewhere in the text
    CONDITION_EXACT = 5,    ///< the whole text to the letter, or the number
    CONDITION_RANGE = 8     ///< one-sided comparisons, and lists with ranges
};

/// What a property holds; settles which values may be written in conditions on it.
enum ValueType : int {
    VALUE_ANY = 0,
    VALUE_TEXT = 1,
    VALUE_NUMBER = 2,
    VALUE_INTEGER = 3,
    VALUE_BOOLEAN = 4
};

/// One condition of a request, such as `id in 1:100, 250`, as the filter's operations see it. Conditions are
/// made by parsing only and live as long as their request.
class QZSELEXPR_API Condition {
public:
    Condition(Condition const&) = delete;
    Condition& operator=(Condition const&) = delete;

    qzString const& GetProperty() const noexcept { return m_property; }
    ConditionType GetConditionType() const noexcept { return m_condition; }
    ValueType GetValueType() const noexcept { return m_valueType; }
    /// Written with `!=` or `not in`: holds for the values that do not match.
    bool IsNegated() const noexcept { return m_negated; }
    /// The condition as the language writes it.
    qzString GetText() const;

protected:
    Condition() = default;
    Condition(Condition&&) = default;
    Condition& operator=(Condition&&) = default;
    ~Condition() = default;

    qzString m_property;
    ConditionType m_condition = CONDITION_EQUAL;
    ValueType m_valueType = VALUE_ANY;
    bool m_negated = false;
};

} // namespace ui::selexpr
