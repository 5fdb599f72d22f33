#include "values/text/PrintFormat.h"

#include "values/text/ClassicLocale.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace qzDescriptor {

namespace {

// Wider fields are a mistake or an attack; nothing that a person reads is as wide.
constexpr int s_largestField = 1 << 20;

bool IsOneOf(char c, std::string_view set) { return set.find(c) != std::string_view::npos; }

/// One conversion of a format: "%-8.3lf" without its length modifier.
struct Conversion {
    qzString flags;
    int width = 0;
    int precision = -1; ///< -1: not given
    char letter = '\0';

    bool LeftAligned() const { return flags.find('-') != qzString::npos; }

    /// For the C library: with the flags that mean something to the letter, since others are undefined there.
    qzString Format(char const* modifier) const {
        qzString text = "%";
        std::copy_if(flags.begin(), flags.end(), std::back_inserter(text), [this](char flag) {
            switch (flag) {
            case '#':
                return IsOneOf(letter, "oxXaAeEfFgG");
            case '0':
                return IsOneOf(letter, "diouxXaAeEfFgG");
            case '+':
            case ' ':
                return IsOneOf(letter, "diaAeEfFgG");
            default:
                return true;
            }
        });
        if (width > 0)
            text += std::to_string(width);
        if (precision >= 0 && letter != 'p')
            text += '.' + std::to_string(precision);
        return text + modifier + letter;
    }
};

bool TakeCount(char const*& at, int& count) {
    for (count = 0; *at >= '0' && *at <= '9'; ++at) {
        count = count * 10 + (*at - '0');
        if (count > s_largestField)
            return false;
    }
    return true;
}

// `at` stands behind the percent sign.
bool TakeConversion(char const*& at, Conversion& conversion) {
    for (; *at != '\0' && IsOneOf(*at, "-+ #0'"); ++at) {
        if (*at != '\'') // grouping of digits: the classic locale has none
            conversion.flags += *at;
    }
    if (!TakeCount(at, conversion.width))
        return false;
    if (*at == '.') {
        ++at;
        if (!TakeCount(at, conversion.precision))
            return false;
    }
    while (*at != '\0' && IsOneOf(*at, "hlLqjzt"))
        ++at;
    if (*at == '\0')
        return false;
    conversion.letter = *at++;
    return true;
}

template <class T>
bool AppendPrinted(qzString& out, qzString const& format, T value) {
    // This format was put together here, from checked pieces, for exactly this argument.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    int const length = std::snprintf(nullptr, 0, format.c_str(), value);
    if (length < 0)
        return false;
    std::size_t const before = out.size();
    out.resize(before + static_cast<std::size_t>(length) + 1);
    std::snprintf(out.data() + before, static_cast<std::size_t>(length) + 1, format.c_str(), value);
#pragma GCC diagnostic pop
    out.pop_back();
    return true;
}

// Written here and not by the C library, so that zero bytes pass.
void AppendPadded(qzString& out, Conversion const& conversion, std::string_view text) {
    auto const width = static_cast<std::size_t>(conversion.width);
    std::size_t const padding = width > text.size() ? width - text.size() : 0;
    if (!conversion.LeftAligned())
        out.append(padding, ' ');
    out.append(text);
    if (conversion.LeftAligned())
        out.append(padding, ' ');
}

/// Appends one argument by one conversion; false when they do not fit.
struct ArgumentWriter {
    qzString& out;
    Conversion const& conversion;

    bool operator()(FormatInteger value) const {
        unsigned long long const mask =
            value.bytes >= 8 ? ~0ULL : (1ULL << (8 * static_cast<unsigned int>(value.bytes))) - 1;
        if (IsOneOf(conversion.letter, "di"))
            return AppendPrinted(out, conversion.Format("ll"), SignExtended(value.bits & mask, value.bytes));
        if (IsOneOf(conversion.letter, "ouxX"))
            return AppendPrinted(out, conversion.Format("ll"), value.bits & mask);
        if (conversion.letter == 'c' && value.isCharacter) {
            auto const character = static_cast<char>(value.bits);
            AppendPadded(out, conversion, {&character, 1});
            return true;
        }
        return false;
    }

    bool operator()(double value) const {
        if (!IsOneOf(conversion.letter, "fFeEgGaA"))
            return false;
        ClassicLocale const locale;
        return AppendPrinted(out, conversion.Format(""), value);
    }

    bool operator()(std::string_view value) const {
        if (conversion.letter != 's')
            return false;
        if (conversion.precision >= 0)
            value = value.substr(0, static_cast<std::size_t>(conversion.precision));
        AppendPadded(out, conversion, value);
        return true;
    }

    bool operator()(void const* value) const {
        return conversion.letter == 'p' && AppendPrinted(out, conversion.Format(""), value);
    }

    static long long SignExtended(unsigned long long bits, int bytes) {
        int const unused = 64 - 8 * bytes;
        return static_cast<long long>(bits << unused) >> unused;
    }
};

} // namespace

bool AppendFormatted(qzString& out, char const* format, std::span<FormatArgument const> arguments) {
    qzString text;
    std::size_t used = 0;
    for (char const* at = format; *at != '\0';) {
        if (*at != '%') {
            text += *at++;
            continue;
        }
        ++at;
        if (*at == '%') {
            text += *at++;
            continue;
        }
        Conversion conversion;
        if (!TakeConversion(at, conversion) || used == arguments.size() ||
            !std::visit(ArgumentWriter{text, conversion}, arguments[used]))
            return false;
        ++used;
    }
    if (used != arguments.size())
        return false;
    out += text;
    return true;
}

} // namespace qzDescriptor
