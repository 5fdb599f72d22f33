#pragma once

#include "definitions/allowables/DefaultAllowables.h"
#include "definitions/allowables/Range.h"
#include "definitions/allowables/Refusal.h"

namespace qzDescriptor {

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
          m_range(bounds),
          m_isDefaultOutOfRange(m_range.Excludes(defaultValue)),
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
        if (!m_range.Excludes(value))
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
        m_range = Range<T>(m_bounds);
        m_isDefaultOutOfRange = m_range.Excludes(m_default);
    }

private:
    Range<T> m_range; // of m_bounds
    bool m_isDefaultOutOfRange;
    qzStlVector<Bound> m_bounds;
    mutable Refusal<T> m_refusal{"Value does not lie within allowable range."};
};

} // namespace qzDescriptor
