#pragma once

#include "definitions/allowables/DefaultAllowables.h"
#include "definitions/allowables/Refusal.h"
#include "values/text/ElementText.h"

namespace qzDescriptor {

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

/// What one limit, or a lower and an upper one, allow: "VALUE < 10", "0 <= VALUE < 10". False when there are
/// others.
template <class T>
bool AppendRange(qzString& text, qzStlVector<BoundT<T>> const& bounds) {
    Limit<T> limits[2];
    std::size_t count = 0;
    for (BoundT<T> const& bound : bounds) {
        typename BoundT<T>::Rule rule = BoundT<T>::Less;
        Limit<T> limit;
        if (!bound.GetValueAndRule(limit.value, rule) || rule < BoundT<T>::Less ||
            rule > BoundT<T>::GreaterOrEqual)
            continue;
        if (count == std::size(limits))
            return false;
        bound.GetValueAndRule(limit.value, limit.isLower, limit.isAllowed);
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

/// A default and the bounds that every other value has to meet.
template <class T, class Bound, BasicType B, CompoundType C>
class AllowablesDataBoundsT
    : public PooledAllowables<AllowablesDataBoundsT<T, Bound, B, C>, AllowablesDataDefaultT<T, B, C>> {
public:
    using AllowablesData::GetBounds;
    using AllowablesData::Test;
    using AllowablesDataDefaultT<T, B, C>::m_default;

    AllowablesDataBoundsT(qzStlVector<Bound> const& bounds, T const& defaultValue)
        : PooledAllowables<AllowablesDataBoundsT, AllowablesDataDefaultT<T, B, C>>(defaultValue),
          m_isDefaultOutOfRange(P_IsViolated(bounds, defaultValue)),
          m_bounds(bounds) {}

    bool Enforceable() const override { return true; }
    bool HaveBounds() const override { return true; }
    bool GetBounds(qzStlVector<Bound>& bounds) const override {
        bounds = m_bounds;
        return true;
    }

    int Test(T const& value) const override {
        if (m_isDefaultOutOfRange && value == m_default) {
            m_refusal.Remember(value);
            return 2;
        }
        if (!P_IsViolated(m_bounds, value))
            return 0;
        m_refusal.Remember(value);
        return 1;
    }

    qzString GetFailureMessage() const override {
        return m_refusal.GetMessage([this](qzString& text, T const& value) {
            text = "Input of ";
            AppendText(text, value, nullptr);
            text += " violates: ";
            return AppendRange(text, m_bounds);
        });
    }
    void SetFailureMessage(qzString const& message) override { m_refusal.SetMessage(message); }

    bool IsEqual(AllowablesDataBoundsT const& other) const {
        return IsSameDefault(m_default, other.m_default) && m_bounds == other.m_bounds;
    }
    void Take(AllowablesDataBoundsT const& other, bool takeAllowed, bool takeDefault) {
        if (takeAllowed)
            m_bounds = other.m_bounds;
        if (takeDefault)
            m_default = other.m_default;
        m_isDefaultOutOfRange = P_IsViolated(m_bounds, m_default);
    }

private:
    static bool P_IsViolated(qzStlVector<Bound> const& bounds, T const& value) {
        for (Bound const& bound : bounds) {
            if (bound.Test(value) != 0)
                return true;
        }
        return false;
    }

    bool m_isDefaultOutOfRange;
    qzStlVector<Bound> m_bounds;
    mutable Refusal<T> m_refusal{"Value does not lie within allowable range."};
};

} // namespace qzDescriptor
