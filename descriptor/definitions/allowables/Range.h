#pragma once

#include "descriptor/BoundT.h"
#include "qzutl/qzStlVector.h"
#include "values/text/ElementText.h"

#include <limits>
#include <utility>

namespace qzDescriptor {

// Bounds taken together: what they allow, to test by and in words.

/// A bound that restricts something, taken apart.
template <class T>
struct Limit {
    T value{};
    bool isLower = false;
    bool isAllowed = false;

    char const* Sign() const {
        if (isLower)
            return isAllowed ? ">=" : ">";
        return isAllowed ? "<=" : "<";
    }
};

/// False for a bound that restricts nothing.
template <class T>
bool ReadLimit(BoundT<T> const& bound, Limit<T>& limit) {
    auto rule = BoundT<T>::Less;
    return bound.GetValueAndRule(limit.value, rule) && rule >= BoundT<T>::Less &&
           rule <= BoundT<T>::GreaterOrEqual &&
           bound.GetValueAndRule(limit.value, limit.isLower, limit.isAllowed);
}

/// What one limit, or a lower and an upper one, allow: "VALUE < 10", "0 <= VALUE < 10". False when there are
/// others.
template <class T>
bool AppendRange(qzString& text, qzStlVector<BoundT<T>> const& bounds) {
    Limit<T> limits[2];
    std::size_t count = 0;
    for (BoundT<T> const& bound : bounds) {
        Limit<T> limit;
        if (!ReadLimit(bound, limit))
            continue;
        if (count == std::size(limits))
            return false;
        limits[count++] = limit;
    }
    if (count == 1) {
        text.append("VALUE ").append(limits[0].Sign()).append(" ");
        return AppendText(text, limits[0].value, nullptr);
    }
    if (count != 2 || limits[0].isLower == limits[1].isLower)
        return false;
    if (!limits[0].isLower)
        std::swap(limits[0], limits[1]);
    bool const isWritten = AppendText(text, limits[0].value, nullptr);
    text.append(limits[0].isAllowed ? " <= " : " < ").append("VALUE");
    text.append(limits[1].isAllowed ? " <= " : " < ");
    return isWritten && AppendText(text, limits[1].value, nullptr);
}

/// What all bounds together allow. A NaN lies in every range, and bounds that are NaN restrict nothing.
template <class T>
class Range {
public:
    explicit Range(qzStlVector<BoundT<T>> const& bounds) {
        for (BoundT<T> const& bound : bounds)
            P_Add(bound);
    }

    bool Excludes(T const& x) const {
        return (x < m_low) | (x > m_high) | ((x == m_low) & m_excludesLow) | ((x == m_high) & m_excludesHigh);
    }

private:
    using Limits = std::numeric_limits<T>;

    void P_Add(BoundT<T> const& bound) {
        Limit<T> limit;
        if (!ReadLimit(bound, limit))
            return;
        if (limit.isLower && limit.value >= m_low) {
            m_excludesLow = !limit.isAllowed || (m_excludesLow && limit.value == m_low);
            m_low = limit.value;
        }
        if (!limit.isLower && limit.value <= m_high) {
            m_excludesHigh = !limit.isAllowed || (m_excludesHigh && limit.value == m_high);
            m_high = limit.value;
        }
    }

    T m_low = Limits::has_infinity ? -Limits::infinity() : Limits::lowest();
    T m_high = Limits::has_infinity ? Limits::infinity() : Limits::max();
    bool m_excludesLow = false;
    bool m_excludesHigh = false;
};

} // namespace qzDescriptor
