#pragma once

#include <vector>

namespace qzDeck {

/// The sum of doubles, rounded once at its end: independent of their order.
class ExactSum {
public:
    void Add(double term);
    double Value() const;

private:
    std::vector<double> m_parts; // of growing magnitude, none overlapping another; their exact sum is the sum
    double m_overflow = 0.0;     // infinite, or not a number, once a term or a part was
};

} // namespace qzDeck
