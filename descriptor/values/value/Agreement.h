#pragma once

#include "values/storage/tuple_numbers.h"

#include "descriptor/Forward.h"
#include "qzutl/qzStlVector.h"

#include <algorithm>
#include <cmath>
#include <concepts>
#include <limits>

namespace qzDescriptor {

/// Compares data of one type: floating numbers within a tolerance, everything else exactly. A tolerance that
/// is not above 0 means the least one.
class Agreement {
public:
    Agreement(double tolerance, bool relative)
        : m_tolerance(tolerance > 0 ? tolerance : s_leastTolerance), m_relative(relative) {}

    template <class T>
    bool operator()(T const& a, T const& b) const {
        return a == b;
    }

    // In the numbers' own precision.
    template <std::floating_point T>
    bool operator()(T const& a, T const& b) const {
        if (a == b)
            return true; // infinities too, whose difference is no number
        T const tolerance = m_tolerance > std::numeric_limits<T>::max() ? std::numeric_limits<T>::infinity()
                                                                        : static_cast<T>(m_tolerance);
        T const difference = std::abs(a - b);
        if (!m_relative)
            return difference <= tolerance;
        T const mean = std::abs(a) / 2 + std::abs(b) / 2;
        return mean < static_cast<T>(s_leastTolerance) || difference / mean <= tolerance;
    }

    template <class T>
    requires std::floating_point<typename Numbers<T>::Number> &&(Numbers<T>::s_count > 1) bool
    operator()(T const& a, T const& b) const {
        for (unsigned int k = 0; k < Numbers<T>::s_count; ++k) {
            if (!(*this)(Numbers<T>::At(a, k), Numbers<T>::At(b, k)))
                return false;
        }
        return true;
    }

    template <class T>
    bool operator()(qzStlVector<T> const& a, qzStlVector<T> const& b) const {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), *this);
    }

    /// The body stands with tables.
    bool operator()(Tabular const& a, Tabular const& b) const;

private:
    static constexpr double s_leastTolerance = 1e-12;

    double m_tolerance;
    bool m_relative;
};

} // namespace qzDescriptor
