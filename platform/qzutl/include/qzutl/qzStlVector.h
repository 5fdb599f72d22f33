#pragma once

#include <boost/container/vector.hpp>

#include <algorithm>
#include <concepts>
#include <initializer_list>
#include <ranges>
#include <type_traits>

template <class T>
class qzStlVector;

namespace qzutl_detail {

template <class R, class T>
concept RangeOf = std::ranges::input_range<R> && std::same_as<std::ranges::range_value_t<R>, T>;

template <class R>
concept NoVector =
    !std::derived_from<std::remove_cvref_t<R>, boost::container::vector<std::ranges::range_value_t<R>>>;

} // namespace qzutl_detail

/// A vector whose elements lie side by side for every T, bool included: element addresses are real and
/// std::span works over all of them. It is made from, and compares with, any range of the same element type.
///
///     std::vector<double> measured = ...;
///     qzStlVector<double> list = measured;
///     bool same = list == measured;
template <class T>
class qzStlVector : public boost::container::vector<T> {
    using Base = boost::container::vector<T>;

public:
    using Base::Base;
    qzStlVector() = default;
    qzStlVector(std::initializer_list<T> items) : Base(items.begin(), items.end()) {}

    template <class R>
    requires qzutl_detail::RangeOf<R, T> && qzutl_detail::NoVector<R> qzStlVector(R const& items)
        : Base(std::ranges::begin(items), std::ranges::end(items)) {}

    template <class R>
    requires qzutl_detail::RangeOf<R, T> && qzutl_detail::NoVector<R>
    friend bool operator==(qzStlVector const& list, R const& other) {
        return std::ranges::equal(list, other);
    }
};

namespace qzDescriptor {
using ::qzStlVector;
}
