#include "facts/ExactSum.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace qzDeck {

namespace {

struct Rounded {
    double sum;
    double rest; // what the sum lost in rounding, exactly
};

/// Needs |a| >= |b|.
Rounded AddExactly(double a, double b) {
    double const sum = a + b;
    return {sum, b - (sum - a)};
}

} // namespace

void ExactSum::Add(double term) {
    std::size_t kept = 0;
    for (double part : m_parts) {
        if (std::abs(term) < std::abs(part))
            std::swap(term, part);
        auto const [sum, rest] = AddExactly(term, part);
        if (rest != 0.0)
            m_parts[kept++] = rest;
        term = sum;
        if (!std::isfinite(term))
            break;
    }
    if (!std::isfinite(term)) {
        m_overflow += term;
        m_parts.clear();
        return;
    }
    m_parts.resize(kept);
    m_parts.push_back(term);
}

double ExactSum::Value() const {
    if (m_overflow != 0.0)
        return m_overflow;
    std::size_t n = m_parts.size();
    if (n == 0)
        return 0.0;
    Rounded total{m_parts[--n], 0.0};
    while (n > 0 && total.rest == 0.0)
        total = AddExactly(total.sum, m_parts[--n]);
    // A rest of exactly half a unit was rounded to even; parts below it may pull it the other way.
    if (n > 0 && total.rest != 0.0 && std::signbit(total.rest) == std::signbit(m_parts[n - 1])) {
        double const twice = total.rest * 2.0;
        double const other = total.sum + twice;
        if (other - total.sum == twice)
            return other;
    }
    return total.sum;
}

} // namespace qzDeck
