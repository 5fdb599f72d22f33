#include "descriptor/Value.h"

#include "values/storage/holder_parts.h"
#include "values/storage/tuple_numbers.h"

#include <cmath>
#include <concepts>
#include <limits>

namespace qzDescriptor {

namespace {

/// Compares data of one type: floating numbers within a tolerance, everything else exactly.
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

private:
    static constexpr double s_leastTolerance = 1e-12;

    double m_tolerance;
    bool m_relative;
};

template <class T>
bool ElementsAgree(ValuePtr const& a, ValuePtr const& b, Agreement const& agree) {
    T scratchA{}, scratchB{};
    T const* const left = ReadElement(a, scratchA);
    T const* const right = ReadElement(b, scratchB);
    return left != nullptr && right != nullptr && agree(*left, *right);
}

template <class Container>
bool ContainersAgree(ValuePtr const& a, ValuePtr const& b, Agreement const& agree) {
    if constexpr (std::is_void_v<Container>) {
        return false;
    } else {
        Container scratchA, scratchB;
        Container const* const left = ReadContainer(a, scratchA);
        Container const* const right = ReadContainer(b, scratchB);
        return left != nullptr && right != nullptr && agree(*left, *right);
    }
}

template <class T>
bool HoldersAgree(ValuePtr const& a, ValuePtr const& b, Agreement const& agree) {
    switch (a.GetArrayDimension()) {
    case 0:
        return ElementsAgree<T>(a, b, agree);
    case 1:
        return ContainersAgree<typename ContainerFor<T, Kind::Array1>::Type>(a, b, agree);
    case 2:
        return ContainersAgree<typename ContainerFor<T, Kind::Array2>::Type>(a, b, agree);
    default:
        return ContainersAgree<typename ContainerFor<T, Kind::Bag>::Type>(a, b, agree) ||
               ContainersAgree<typename ContainerFor<T, Kind::BagList>::Type>(a, b, agree);
    }
}

} // namespace

bool Value::AreEqualWithinTolerance(Value const& a, Value const& b, double tolerance, bool relative) {
    if (a.m_holder == nullptr || b.m_holder == nullptr)
        return a.m_holder == b.m_holder;
    if (a.GetBasicType() != b.GetBasicType() || a.GetCompoundType() != b.GetCompoundType() ||
        a.GetArrayDimension() != b.GetArrayDimension() || a.IsBagType() != b.IsBagType())
        return false;
    bool agreed = false;
    VisitElement(a.GetBasicType(), a.GetCompoundType(), [&]<class T>(std::type_identity<T>) {
        agreed = HoldersAgree<T>(*a.m_holder, *b.m_holder, Agreement(tolerance, relative));
    });
    return agreed;
}

} // namespace qzDescriptor
