#include "writer/number_text.h"

#include "reader/field_kind.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <string_view>
#include <vector>

namespace qzDeck {

namespace {

/// A positive decimal number: its digits behind a point, times a power of ten.
struct Decimal {
    std::string digits; // neither the first nor the last is a zero
    int power = 0;

    int Count() const { return static_cast<int>(digits.size()); }
};

/// Of what the standard library writes as `d.ddde+dd`.
Decimal Parse(std::string_view text) {
    Decimal decimal;
    std::size_t const letter = text.find('e');
    std::copy_if(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(letter),
                 std::back_inserter(decimal.digits), [](char c) { return c >= '0' && c <= '9'; });
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    std::string_view const exponent = text.substr(text[letter + 1] == '+' ? letter + 2 : letter + 1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.power);
    ++decimal.power;
    return decimal;
}

/// As few digits as tell the number from its neighbours.
Decimal Shortest(double number) {
    std::array<char, 40> text{};
    auto const end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::scientific);
    return Parse(std::string_view(text.data(), static_cast<std::size_t>(end.ptr - text.data())));
}

/// With an exponent, behind so many digits and the point.
std::string Scaled(Decimal const& number, int digitsBeforePoint) {
    int const exponent = number.power - digitsBeforePoint;
    std::string text = number.digits;
    text.insert(static_cast<std::size_t>(digitsBeforePoint), 1, '.');
    return text.append(1, exponent < 0 ? '-' : '+').append(std::to_string(std::abs(exponent)));
}

/// So many digits, the last one rounded, or cut where rounding would leave the range of numbers.
Decimal Rounded(double number, int digits) {
    std::array<char, 40> text{};
    auto const end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::scientific, digits - 1);
    Decimal rounded = Parse(std::string_view(text.data(), static_cast<std::size_t>(end.ptr - text.data())));
    if (std::isfinite(ReadReal(Scaled(rounded, 1))))
        return rounded;
    rounded = Shortest(number);
    rounded.digits.resize(static_cast<std::size_t>(digits));
    return rounded;
}

/// Without an exponent: `0.0015`, `1.5`, `1500.`.
std::string Plain(Decimal const& number) {
    std::string text = number.digits;
    if (number.power <= 0)
        text.insert(0, "0." + std::string(static_cast<std::size_t>(-number.power), '0'));
    else if (number.power < number.Count())
        text.insert(static_cast<std::size_t>(number.power), 1, '.');
    else
        text.append(static_cast<std::size_t>(number.power - number.Count()), '0').append(1, '.');
    return text;
}

/// The forms of a number: those that people write before those that are short.
std::vector<std::string> Forms(Decimal const& number) {
    constexpr int manyZeros = 7;
    std::vector<std::string> forms;
    if (std::max(-number.power, number.power - number.Count()) < manyZeros) {
        forms.push_back(Plain(number));
        if (forms.back().starts_with('0'))
            forms.push_back(forms.back().substr(1));
    }
    forms.push_back(Scaled(number, 1));
    for (int digitsBeforePoint = 0; digitsBeforePoint <= number.Count(); ++digitsBeforePoint)
        forms.push_back(Scaled(number, digitsBeforePoint));
    return forms;
}

} // namespace

std::string RealText(double number, std::size_t columns) {
    std::string const sign = std::signbit(number) ? "-" : "";
    if (number == 0.0)
        return sign + "0.";
    Decimal const shortest = Shortest(std::abs(number));
    for (int digits = shortest.Count(); digits > 0; --digits) {
        bool const isExact = digits == shortest.Count();
        for (std::string const& form : Forms(isExact ? shortest : Rounded(std::abs(number), digits))) {
            if (sign.size() + form.size() <= columns)
                return sign + form;
        }
    }
    return {}; // not in 8 columns or more
}

} // namespace qzDeck
