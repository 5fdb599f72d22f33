#include "Number.h"
#include "ascii.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace ui::selexpr {

namespace {

/// A decimal number without sign, taken apart.
struct Decimal {
    std::string_view digits;     ///< with the point, if there is one
    long long integerDigits = 0; ///< how many digits stand before the point once the exponent has moved it
};

long long ReadExponent(std::string_view text) {
    constexpr long long s_far = 1'000'000'000'000'000; // no text has as many digits
    bool const negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    long long exponent = 0;
    for (char const c : text)
        exponent = std::min(10 * exponent + (c - '0'), s_far);
    return negative ? -exponent : exponent;
}

Decimal TakeApart(std::string_view text) {
    Decimal decimal;
    std::size_t const exponent = text.find_first_of("eE");
    decimal.digits = text.substr(0, exponent);
    decimal.integerDigits = static_cast<long long>(std::min(decimal.digits.find('.'), decimal.digits.size()));
    if (exponent != std::string_view::npos)
        decimal.integerDigits += ReadExponent(text.substr(exponent + 1));
    return decimal;
}

/// The part of a number before the point, and whether there is anything behind it.
class IntegerPart {
public:
    explicit IntegerPart(Decimal const& decimal) {
        long long place = 0;
        for (char const c : decimal.digits) {
            if (c == '.')
                continue;
            if (place++ < decimal.integerDigits)
                P_Append(static_cast<unsigned>(c - '0'));
            else
                m_hasFraction |= c != '0';
        }
        for (; place < decimal.integerDigits && m_magnitude != 0 && !m_isBeyond; ++place)
            P_Append(0);
    }

    void Store(bool negative, Number& number) const {
        auto const limit = static_cast<unsigned long long>(std::numeric_limits<long long>::max());
        unsigned long long const steps = m_magnitude + (negative && m_hasFraction ? 1 : 0);
        if (m_isBeyond || steps > limit + (negative ? 1 : 0)) {
            number.beyond = negative ? -1 : 1;
            return;
        }
        number.floor = static_cast<long long>(negative ? 0 - steps : steps);
        number.hasFraction = m_hasFraction;
    }

private:
    void P_Append(unsigned digit) {
        // Far enough above 64-bit integers that a fraction can be added without wrapping.
        constexpr unsigned long long s_limit = std::numeric_limits<unsigned long long>::max() / 10 - 1;
        m_isBeyond |= m_magnitude > s_limit;
        if (!m_isBeyond)
            m_magnitude = 10 * m_magnitude + digit;
    }

    unsigned long long m_magnitude = 0;
    bool m_isBeyond = false;
    bool m_hasFraction = false;
};

/// Whether the first digit that is not 0 stands before the point.
bool IsAboveOne(Decimal const& decimal) {
    long long place = 0;
    for (char const c : decimal.digits) {
        if (c != '.' && c != '0')
            break;
        place += c != '.' ? 1 : 0;
    }
    return place < decimal.integerDigits;
}

template <class T>
Rounded<T> Infinite(bool negative, bool isBeyond) {
    T const infinity = std::numeric_limits<T>::infinity();
    return {negative ? -infinity : infinity, isBeyond ? (negative ? -1 : 1) : 0};
}

template <class T>
void Round(std::string_view text, Decimal const& decimal, bool negative, Rounded<T>& rounded) {
    bool const fits =
        std::from_chars(text.data(), text.data() + text.size(), rounded.value).ec == std::errc();
    if (fits)
        rounded.value = negative ? -rounded.value : rounded.value;
    else if (IsAboveOne(decimal))
        rounded = Infinite<T>(negative, true);
}

bool IsName(std::string_view text, std::string_view folded) { return CompareToFolded(text, folded) == 0; }

bool ReadNamed(std::string_view text, bool negative, Number& number) {
    number.isNan = IsName(text, "nan");
    number.beyond = negative ? -1 : 1;
    number.real = Infinite<double>(negative, false);
    number.single = Infinite<float>(negative, false);
    return number.isNan || IsName(text, "inf") || IsName(text, "infinity");
}

} // namespace

bool ReadNumber(std::string_view text, Number& number) {
    number = Number();
    bool const negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    if (text.empty())
        return false;
    if (!IsDigit(text[0]) && text[0] != '.')
        return ReadNamed(text, negative, number);
    double value = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ptr != text.data() + text.size())
        return false;
    Decimal const decimal = TakeApart(text);
    IntegerPart(decimal).Store(negative, number);
    Round(text, decimal, negative, number.real);
    Round(text, decimal, negative, number.single);
    return true;
}

bool IsNumberLiteral(std::string_view text) {
    Number number;
    return std::ranges::any_of(text, IsDigit) && ReadNumber(text, number);
}

} // namespace ui::selexpr
