#pragma once

#include "Number.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace ui::selexpr {

/// One side of a range as it is written. Without a number the range is open to that side.
struct Bound {
    Number const* number = nullptr;
    bool excluded = false; ///< the number itself is outside, as in x > 3
};

// Whatever is written, within one type it means all values from one to another, both included.

template <class T>
struct Interval {
    T low;
    T high;
};

template <class T>
std::optional<T> LowestWithin(Bound const& bound) {
    using Limits = std::numeric_limits<T>;
    Rounded<T> const& number = bound.number->In<T>();
    if (number.beyond != 0)
        return number.beyond > 0 ? Limits::infinity() : Limits::lowest();
    if (!bound.excluded)
        return number.value;
    if (number.value == Limits::infinity())
        return std::nullopt;
    return std::nextafter(number.value, Limits::infinity());
}

template <class T>
std::optional<T> HighestWithin(Bound const& bound) {
    using Limits = std::numeric_limits<T>;
    Rounded<T> const& number = bound.number->In<T>();
    if (number.beyond != 0)
        return number.beyond > 0 ? Limits::max() : -Limits::infinity();
    if (!bound.excluded)
        return number.value;
    if (number.value == -Limits::infinity())
        return std::nullopt;
    return std::nextafter(number.value, -Limits::infinity());
}

template <>
std::optional<long long> LowestWithin(Bound const& bound);
template <>
std::optional<long long> HighestWithin(Bound const& bound);

/// The values of a type within a range; none when there are none.
template <class T>
std::optional<Interval<T>> MakeInterval(Bound const& low, Bound const& high) {
    using Limits = std::numeric_limits<T>;
    if ((low.number != nullptr && low.number->isNan) || (high.number != nullptr && high.number->isNan))
        return std::nullopt;
    T const top = Limits::has_infinity ? Limits::infinity() : Limits::max();
    T const bottom = Limits::has_infinity ? -Limits::infinity() : Limits::min();
    std::optional<T> const lowest = low.number == nullptr ? bottom : LowestWithin<T>(low);
    std::optional<T> const highest = high.number == nullptr ? top : HighestWithin<T>(high);
    if (!lowest || !highest || *lowest > *highest)
        return std::nullopt;
    return Interval<T>{*lowest, *highest};
}

/// Any number of intervals, searched by halving.
template <class T>
class IntervalSet {
public:
    void Add(std::optional<Interval<T>> const& interval) {
        if (interval)
            m_intervals.push_back(*interval);
    }

    /// To be called between the last addition and the first question.
    void Seal() {
        std::ranges::sort(m_intervals, {}, &Interval<T>::low);
        std::vector<Interval<T>> joined;
        for (Interval<T> const& next : m_intervals) {
            if (joined.empty() || joined.back().high < next.low)
                joined.push_back(next);
            else
                joined.back().high = std::max(joined.back().high, next.high);
        }
        m_intervals = std::move(joined);
    }

    bool Contains(T value) const {
        if (m_intervals.size() == 1)
            return m_intervals.front().low <= value && value <= m_intervals.front().high;
        auto const above = std::ranges::upper_bound(m_intervals, value, {}, &Interval<T>::low);
        return above != m_intervals.begin() && value <= (above - 1)->high;
    }

private:
    std::vector<Interval<T>> m_intervals;
};

} // namespace ui::selexpr
