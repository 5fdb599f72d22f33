#pragma once

#include "definitions/allowables/allowable_types.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <vector>

namespace qzDescriptor {

// What orders values such that equal ones come together. Equality may ask for more than this key.

template <class T>
T const& OrderKey(T const& value) {
    return value;
}
inline auto OrderKey(Color const& value) {
    unsigned int index = Color::s_rgbIndex;
    unsigned char red = 0, green = 0, blue = 0;
    value.GetIndex(index);
    value.GetRGB(red, green, blue);
    return std::tuple(index, red, green, blue);
}
inline auto OrderKey(EntityFullType const& value) {
    return std::tuple(value.GetTypeNumeric(), value.GetSubtypeNumeric(),
                      std::string_view(value.GetTypeNamed()), std::string_view(value.GetSubtypeNamed()));
}
inline auto OrderKey(Qualifier const& value) { // what is unset in it matches anything
    return std::tuple(value.GetNumericKey(), std::string_view(value.GetNameKey()), value.GetSolverIdPool(),
                      OrderKey(value.GetEntityFullType()));
}

/// Whether every needle equals something in the haystack. NaNs equal nothing.
template <class T>
bool ContainsAll(qzStlVector<T> const& haystack, qzStlVector<T> const& needles) {
    struct ByKey {
        bool operator()(T const* a, T const* b) const { return OrderKey(*a) < OrderKey(*b); }
    };
    auto const equalsItself = [](T const& value) { return value == value; };
    if (!std::all_of(needles.begin(), needles.end(), equalsItself))
        return false;
    std::vector<T const*> sorted;
    sorted.reserve(haystack.size());
    for (T const& value : haystack) {
        if (equalsItself(value))
            sorted.push_back(&value);
    }
    std::sort(sorted.begin(), sorted.end(), ByKey());
    return std::all_of(needles.begin(), needles.end(), [&](T const& needle) {
        auto const [first, last] = std::equal_range(sorted.begin(), sorted.end(), &needle, ByKey());
        return std::any_of(first, last, [&](T const* value) { return *value == needle; });
    });
}

} // namespace qzDescriptor
