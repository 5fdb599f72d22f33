#pragma once

#include <compare>

/// Two numbers in order. Tuples and matrices compare member by member and are ordered lexicographically.
template <class T>
struct qzTCouple {
    T first{};
    T second{};

    friend constexpr bool operator==(qzTCouple const&, qzTCouple const&) = default;
    friend constexpr auto operator<=>(qzTCouple const&, qzTCouple const&) = default;
};

/// Three numbers in order.
template <class T>
struct qzTTriple {
    T first{};
    T second{};
    T third{};

    friend constexpr bool operator==(qzTTriple const&, qzTTriple const&) = default;
    friend constexpr auto operator<=>(qzTTriple const&, qzTTriple const&) = default;
};

/// Three rows of three, row-major. The default is the identity.
template <class T>
struct qzTMatrix33 {
    T elements[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};

    constexpr T& operator()(unsigned int row, unsigned int column) { return elements[3 * row + column]; }
    constexpr T operator()(unsigned int row, unsigned int column) const { return elements[3 * row + column]; }

    friend constexpr bool operator==(qzTMatrix33 const&, qzTMatrix33 const&) = default;
    friend constexpr auto operator<=>(qzTMatrix33 const&, qzTMatrix33 const&) = default;
};

/// Four rows of four, row-major. The default is the identity.
template <class T>
struct qzTMatrix44 {
    T elements[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

    constexpr T& operator()(unsigned int row, unsigned int column) { return elements[4 * row + column]; }
    constexpr T operator()(unsigned int row, unsigned int column) const { return elements[4 * row + column]; }

    friend constexpr bool operator==(qzTMatrix44 const&, qzTMatrix44 const&) = default;
    friend constexpr auto operator<=>(qzTMatrix44 const&, qzTMatrix44 const&) = default;
};

namespace qzDescriptor {
using ::qzTCouple;
using ::qzTMatrix33;
using ::qzTMatrix44;
using ::qzTTriple;
} // namespace qzDescriptor
