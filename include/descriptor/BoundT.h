#pragma once

#include <cstdint>

namespace qzDescriptor {

/// One limit of a number: the relation that an allowed value has to the bound, read as VALUE rule bound.
///
///     BoundT<double> positive(0.0, BoundT<double>::Greater);     // VALUE > 0
///     positive.Test(2.5);                                         // 0: allowed
///     positive.Test(0.0);                                         // 1: violated
template <class T>
class BoundT {
public:
    /// Bit 1: what is allowed lies above the bound; bit 0: the bound itself is allowed. Other codes are
    /// carried and restrict nothing.
    enum Rule : std::int32_t { Less = 0, LessOrEqual = 1, Greater = 2, GreaterOrEqual = 3 };

    /// Not set: restricts nothing.
    BoundT() = default;
    BoundT(T const& value, Rule rule) : m_set(true), m_value(value), m_rule(rule) {}
    BoundT(T const& value, bool greater, bool orEqual)
        : BoundT(value, static_cast<Rule>((greater ? 2 : 0) + (orEqual ? 1 : 0))) {}

    /// False, leaving the arguments as they were, when the bound is not set.
    bool GetValueAndRule(T& value, Rule& rule) const {
        if (!m_set)
            return false;
        value = m_value;
        rule = m_rule;
        return true;
    }
    bool GetValueAndRule(T& value, bool& greater, bool& orEqual) const {
        Rule rule = Less;
        if (!GetValueAndRule(value, rule))
            return false;
        greater = (rule & 2) != 0;
        orEqual = (rule & 1) != 0;
        return true;
    }

    /// 1 when the value violates the bound, else 0. A NaN violates none.
    int Test(T const& x) const {
        if (!m_set)
            return 0;
        switch (m_rule) {
        case Less:
            return x >= m_value;
        case LessOrEqual:
            return x > m_value;
        case Greater:
            return x <= m_value;
        case GreaterOrEqual:
            return x < m_value;
        }
        return 0;
    }

    friend bool operator==(BoundT const&, BoundT const&) = default;

private:
    bool m_set = false;
    T m_value{};
    Rule m_rule = Less;
};

} // namespace qzDescriptor
