#include "values/text/Numbers.h"

#include "values/text/ClassicLocale.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

namespace qzDescriptor {

namespace {

constexpr std::string_view s_blanks = " \t\n\v\f\r";

int DigitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return 99;
}

bool IsHexPrefix(std::string_view text) {
    return text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

bool TakeSign(std::string_view& text) {
    if (text.empty() || (text[0] != '+' && text[0] != '-'))
        return false;
    bool const negative = text[0] == '-';
    text.remove_prefix(1);
    return negative;
}

double ConvertInCLibrary(char const* text, double) { return std::strtod(text, nullptr); }
float ConvertInCLibrary(char const* text, float) { return std::strtof(text, nullptr); }

// std::from_chars reports a number that is too small just as one that is too large; the C library tells them
// apart and gives the nearest value of the former.
template <class T>
Scan ConvertExtreme(std::string_view number, T& value) {
    ClassicLocale const locale;
    T const converted = ConvertInCLibrary(std::string(number).c_str(), T());
    if (std::isinf(converted))
        return Scan::OutOfRange;
    value = converted;
    return Scan::Matched;
}

template <class T>
Scan TakeUnsignedReal(std::string_view& text, std::chars_format format, T& value) {
    char const* const end = text.data() + text.size();
    T parsed{};
    auto const [rest, error] = std::from_chars(text.data(), end, parsed, format);
    if (error == std::errc::invalid_argument)
        return Scan::NoMatch;
    std::string_view const number = text.substr(0, static_cast<std::size_t>(rest - text.data()));
    text.remove_prefix(number.size());
    if (error == std::errc::result_out_of_range)
        return ConvertExtreme(
            format == std::chars_format::hex ? "0x" + std::string(number) : std::string(number), value);
    value = parsed;
    return Scan::Matched;
}

// The number begun by "1e" or "0x1p" has no end: that is no number, not the number 1.
bool IsUnfinishedExponent(std::string_view rest, bool hex) {
    return !rest.empty() && (hex ? rest[0] == 'p' || rest[0] == 'P' : rest[0] == 'e' || rest[0] == 'E');
}

template <class T>
Scan TakeSignedReal(std::string_view& text, T& value) {
    std::string_view rest = text;
    bool const negative = TakeSign(rest);
    if (!rest.empty() && (rest[0] == '+' || rest[0] == '-'))
        return Scan::NoMatch;
    bool const hex = IsHexPrefix(rest);
    if (hex) {
        rest.remove_prefix(2);
        if (DigitValue(rest[0]) >= 16 && rest[0] != '.')
            return Scan::NoMatch; // from_chars would take a sign or a word here
    }
    T magnitude{};
    Scan const result =
        TakeUnsignedReal(rest, hex ? std::chars_format::hex : std::chars_format::general, magnitude);
    if (result == Scan::NoMatch || IsUnfinishedExponent(rest, hex))
        return Scan::NoMatch;
    text = rest;
    if (result == Scan::Matched)
        value = negative ? -magnitude : magnitude;
    return result;
}

template <class T>
bool ReadWhole(std::string_view text, T& value) {
    std::string_view digits = text;
    TakeSign(digits);
    if (IsHexPrefix(digits))
        return false;
    T read{};
    if (TakeSignedReal(text, read) != Scan::Matched || !text.empty())
        return false;
    value = read;
    return true;
}

// Takes the prefix that names the base, and gives the base of what follows.
int TakeBase(std::string_view& text, int base) {
    bool const hex = (base == 0 || base == 16) && IsHexPrefix(text) && DigitValue(text[2]) < 16;
    if (hex)
        text.remove_prefix(2);
    if (base != 0)
        return base;
    if (hex)
        return 16;
    return !text.empty() && text[0] == '0' ? 8 : 10;
}

} // namespace

void AppendRealDigits(qzString& out, double value) {
    char buffer[40];
    out.append(buffer,
               std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 14).ptr);
}

void AppendReal(qzString& out, double value) {
    constexpr double s_limit = 9223372036854775808.0; // 2^63
    if (value >= -s_limit && value < s_limit) {
        auto const integral = static_cast<long long>(value);
        if (static_cast<double>(integral) == value) {
            AppendInteger(out, integral);
            return;
        }
    }
    AppendRealDigits(out, value);
}

void SkipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(s_blanks), text.size()));
}

Scan TakeInteger(std::string_view& text, ScannedInteger& value, int base) {
    std::string_view rest = text;
    ScannedInteger scanned;
    scanned.negative = TakeSign(rest);
    base = TakeBase(rest, base);
    std::size_t digits = 0;
    bool overflow = false;
    for (; digits < rest.size() && DigitValue(rest[digits]) < base; ++digits) {
        auto const digit = static_cast<unsigned long long>(DigitValue(rest[digits]));
        auto const factor = static_cast<unsigned long long>(base);
        overflow = overflow || scanned.magnitude > (~0ULL - digit) / factor;
        scanned.magnitude = scanned.magnitude * factor + digit;
    }
    if (digits == 0)
        return Scan::NoMatch;
    rest.remove_prefix(digits);
    text = rest;
    if (overflow)
        return Scan::OutOfRange;
    value = scanned;
    return Scan::Matched;
}

Scan TakeReal(std::string_view& text, double& value) { return TakeSignedReal(text, value); }
Scan TakeReal(std::string_view& text, float& value) { return TakeSignedReal(text, value); }
bool ReadWholeReal(std::string_view text, double& value) { return ReadWhole(text, value); }
bool ReadWholeReal(std::string_view text, float& value) { return ReadWhole(text, value); }

} // namespace qzDescriptor
