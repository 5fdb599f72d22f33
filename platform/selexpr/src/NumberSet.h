#pragma once

#include "Intervals.h"

#include <vector>

namespace ui::selexpr {

/// Which numbers a condition names, in every type that a value can have.
class NumberSet {
public:
    void Add(Bound const& low, Bound const& high);
    /// Integers from one towards another. The stride is not 0 and leads from the first to the last.
    void AddSteps(long long first, long long last, long long stride);
    /// To be called between the last addition and the first question.
    void Seal();

    bool IsEmpty() const { return m_isEmpty; }
    bool Contains(long long value) const { return m_integers.Contains(value) || P_IsOnStep(value); }
    bool Contains(double value) const { return m_doubles.Contains(value) || P_IsOnStep(value); }
    bool Contains(float value) const { return m_singles.Contains(value) || P_IsOnStep(double{value}); }
    bool Contains(Number const& number) const;

private:
    struct Steps {
        long long low;
        long long high;
        unsigned long long stride;
        long long reach; ///< the highest of these steps and those that stand before them
    };

    bool P_IsOnStep(long long value) const { return !m_steps.empty() && P_IsOnAnyStep(value); }
    bool P_IsOnStep(double value) const { return !m_steps.empty() && P_IsOnAnyStep(value); }
    bool P_IsOnAnyStep(long long value) const;
    bool P_IsOnAnyStep(double value) const;

    IntervalSet<long long> m_integers;
    IntervalSet<double> m_doubles;
    IntervalSet<float> m_singles;
    std::vector<Steps> m_steps; ///< sorted by their lowest
    bool m_isEmpty = true;
};

} // namespace ui::selexpr
