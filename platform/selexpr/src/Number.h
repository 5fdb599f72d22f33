#pragma once

#include <string_view>

namespace ui::selexpr {

/// A number in a floating type. One that lies beyond all finite ones is told apart from infinity, which it is
/// rounded to.
template <class T>
struct Rounded {
    T value = 0;
    int beyond = 0;
};

/// A number as it is written, ready to be compared in every type: exactly with 64-bit integers, and rounded
/// once to each floating type.
struct Number {
    bool isNan = false;
    // The greatest integer that is not above the number, and whether the number is above it; or on which side
    // of all 64-bit integers the number lies.
    long long floor = 0;
    bool hasFraction = false;
    int beyond = 0;
    Rounded<double> real;
    Rounded<float> single;

    bool IsInteger() const { return !isNan && beyond == 0 && !hasFraction; }
    template <class T>
    Rounded<T> const& In() const;
};

template <>
inline Rounded<double> const& Number::In<double>() const {
    return real;
}
template <>
inline Rounded<float> const& Number::In<float>() const {
    return single;
}

/// Reads a text that is nothing but one decimal number, infinity or NaN, under every locale the same.
bool ReadNumber(std::string_view text, Number& number);

/// Likewise, of texts with digits: inf and nan are words.
bool IsNumberLiteral(std::string_view text);

} // namespace ui::selexpr
