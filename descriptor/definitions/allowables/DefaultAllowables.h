#pragma once

#include "definitions/allowables/AllowablesData.h"

#include <algorithm>
#include <cmath>

namespace qzDescriptor {

template <class T>
bool IsSameDefault(T const& a, T const& b) {
    return a == b;
}

/// Matrices come out of computations.
template <class Matrix>
requires s_isOneOf<Matrix, qzTMatrix33<double>, qzTMatrix44<double>>
bool IsSameDefault(Matrix const& a, Matrix const& b) {
    constexpr double tolerance = 1e-8;
    return std::equal(std::begin(a.elements), std::end(a.elements), std::begin(b.elements),
                      [](double x, double y) { return std::abs(x - y) < tolerance; });
}

/// A default that restricts nothing.
template <class T, BasicType B, CompoundType C>
class AllowablesDataDefaultT : public PooledAllowables<AllowablesDataDefaultT<T, B, C>, AllowablesData> {
public:
    using AllowablesData::GetDefault;

    explicit AllowablesDataDefaultT(T const& defaultValue) : m_default(defaultValue) {}

    BasicType GetBasicType() const override { return B; }
    CompoundType GetCompoundType() const override { return C; }
    bool GetDefault(T& value) const override {
        value = m_default;
        return true;
    }

    bool IsEqual(AllowablesDataDefaultT const& other) const {
        return IsSameDefault(m_default, other.m_default);
    }
    void Take(AllowablesDataDefaultT const& other, [[maybe_unused]] bool takeAllowed, bool takeDefault) {
        if (takeDefault)
            m_default = other.m_default;
    }

protected:
    T m_default;
};

} // namespace qzDescriptor
