#pragma once

#include "descriptor/Tuples.h"

namespace qzDescriptor {

/// The numbers of a scalar, tuple or matrix, in order, and how many of them stand in a row.
template <class T>
struct Numbers {
    using Number = T;
    static constexpr unsigned int s_count = 1;
    static constexpr unsigned int s_perRow = 1;
    static auto& At(auto& element, unsigned int) { return element; }
};

template <class T>
struct Numbers<qzTCouple<T>> {
    using Number = T;
    static constexpr unsigned int s_count = 2;
    static constexpr unsigned int s_perRow = 2;
    static auto& At(auto& couple, unsigned int k) { return k == 0 ? couple.first : couple.second; }
};

template <class T>
struct Numbers<qzTTriple<T>> {
    using Number = T;
    static constexpr unsigned int s_count = 3;
    static constexpr unsigned int s_perRow = 3;
    static auto& At(auto& triple, unsigned int k) {
        return k == 0 ? triple.first : k == 1 ? triple.second : triple.third;
    }
};

template <class T, unsigned int Size>
struct MatrixNumbers {
    using Number = T;
    static constexpr unsigned int s_count = Size * Size;
    static constexpr unsigned int s_perRow = Size;
    static auto& At(auto& matrix, unsigned int k) { return matrix.elements[k]; }
};

template <class T>
struct Numbers<qzTMatrix33<T>> : MatrixNumbers<T, 3> {};
template <class T>
struct Numbers<qzTMatrix44<T>> : MatrixNumbers<T, 4> {};

} // namespace qzDescriptor
