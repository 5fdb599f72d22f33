#pragma once

#include <boost/container/vector.hpp>

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <ranges>
#include <type_traits>
#include <utility>

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

    // Pointers are iterators that every release of the base agrees on and that std::span accepts.
    using iterator = T*;
    using const_iterator = T const*;

    iterator begin() noexcept { return Base::data(); }
    const_iterator begin() const noexcept { return Base::data(); }
    const_iterator cbegin() const noexcept { return Base::data(); }
    iterator end() noexcept { return begin() + Base::size(); }
    const_iterator end() const noexcept { return begin() + Base::size(); }
    const_iterator cend() const noexcept { return begin() + Base::size(); }

    // The base moves elements before it reads a value that is one of them, so values are taken as copies.
    void push_back(T item) { Base::push_back(std::move(item)); }
    template <class... Args>
    T& emplace_back(Args&&... args) {
        return Base::emplace_back(T(std::forward<Args>(args)...));
    }

    void resize(std::size_t count) { Base::resize(count); }
    void resize(std::size_t count, T value) { Base::resize(count, value); }

    void assign(std::size_t count, T value) { Base::assign(count, value); }
    void assign(std::initializer_list<T> items) { Base::assign(items); }
    template <std::input_iterator It>
    void assign(It first, It last) {
        Base::assign(first, last);
    }

    iterator insert(const_iterator at, T item) { return P_Here(Base::insert(P_There(at), std::move(item))); }
    iterator insert(const_iterator at, std::size_t count, T item) {
        return P_Here(Base::insert(P_There(at), count, item));
    }
    iterator insert(const_iterator at, std::initializer_list<T> items) {
        return P_Here(Base::insert(P_There(at), items));
    }
    template <std::input_iterator It>
    iterator insert(const_iterator at, It first, It last) {
        return P_Here(Base::insert(P_There(at), first, last));
    }
    template <class... Args>
    iterator emplace(const_iterator at, Args&&... args) {
        return insert(at, T(std::forward<Args>(args)...));
    }

    iterator erase(const_iterator at) { return P_Here(Base::erase(P_There(at))); }
    iterator erase(const_iterator first, const_iterator last) {
        return P_Here(Base::erase(P_There(first), P_There(last)));
    }

    template <class R>
    requires qzutl_detail::RangeOf<R, T> && qzutl_detail::NoVector<R>
    friend bool operator==(qzStlVector const& list, R const& other) {
        return std::ranges::equal(list, other);
    }

private:
    typename Base::const_iterator P_There(const_iterator at) const { return Base::cbegin() + (at - begin()); }
    iterator P_Here(typename Base::iterator at) { return begin() + (at - Base::begin()); }
};

namespace qzDescriptor {
using ::qzStlVector;
}
