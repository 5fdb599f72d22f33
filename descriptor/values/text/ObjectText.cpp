#include "values/text/ElementText.h"
#include "values/text/Numbers.h"
#include "values/text/PrintFormat.h"
#include "values/text/ScanFormat.h"

#include "descriptor/FormulaText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <locale>
#include <optional>
#include <regex>

namespace qzDescriptor {

namespace {

using Fields = std::vector<ScanFormat::Field>;

/// Reads a text by a format whose conversions are exactly these; nothing when either does not fit.
std::optional<Fields> ReadFields(qzString const& text, char const* format,
                                 std::initializer_list<ScanFormat::Class> classes) {
    ScanFormat const scan(format);
    Fields fields;
    if (!scan.IsValid() || !std::ranges::equal(scan.GetClasses(), classes) ||
        scan.Read(text, fields) != Scan::Matched)
        return std::nullopt;
    return fields;
}

template <class T>
bool StoreInto(ScanFormat::Field const& field, T& value) {
    return StoreInteger(std::get<ScannedInteger>(field), value) == Scan::Matched;
}

} // namespace

// bool: "true" and "false"; by format also 1 and 0.

bool AppendText(qzString& out, bool const& value, char const* format) {
    std::string_view const word = value ? "true" : "false";
    if (format == nullptr) {
        out += word;
        return true;
    }
    return AppendFormatted(out, format, std::array<FormatArgument, 1>{word}) ||
           AppendFormatted(out, format, std::array<FormatArgument, 1>{FormatInteger::Of(int{value})});
}

bool ReadText(qzString const& text, char const* format, bool& value) {
    if (format != nullptr) {
        if (auto const word = ReadFields(text, format, {ScanFormat::Class::Text}))
            return ReadText(std::get<qzString>(word->front()), nullptr, value);
        auto const number = ReadFields(text, format, {ScanFormat::Class::Integer});
        unsigned int bit = 0;
        if (!number || !StoreInto(number->front(), bit) || bit > 1)
            return false;
        value = bit == 1;
        return true;
    }
    qzString lower = text;
    for (char& c : lower)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    if (lower != "true" && lower != "false")
        return false;
    value = lower == "true";
    return true;
}

// Texts stand for themselves.

bool AppendText(qzString& out, qzString const& value, char const* format) {
    if (format != nullptr)
        return AppendFormatted(out, format, std::array<FormatArgument, 1>{std::string_view(value)});
    out += value;
    return true;
}

bool ReadText(qzString const& text, char const* format, qzString& value) {
    if (format == nullptr) {
        value = text;
        return true;
    }
    auto fields = ReadFields(text, format, {ScanFormat::Class::Text});
    if (fields)
        value = std::move(std::get<qzString>(fields->front()));
    return fields.has_value();
}

// Pointers are numbers to carry, in hexadecimal; what is read is never followed here.

bool AppendText(qzString& out, void* const& value, char const* format) {
    if (format != nullptr)
        return AppendFormatted(out, format, std::array<FormatArgument, 1>{static_cast<void const*>(value)});
    char digits[2 * sizeof(void*)];
    auto const end =
        std::to_chars(digits, digits + sizeof digits, reinterpret_cast<std::uintptr_t>(value), 16).ptr;
    out += "0x";
    out.append(digits, end);
    return true;
}

bool ReadText(qzString const& text, char const* format, void*& value) {
    auto const fields = ReadFields(text, format == nullptr ? "%p" : format, {ScanFormat::Class::Pointer});
    std::uintptr_t address = 0;
    if (!fields || !StoreInto(fields->front(), address))
        return false;
    value = reinterpret_cast<void*>(address); // NOLINT(performance-no-int-to-ptr): carried, never followed
    return true;
}

// Colors: "#0A14FF", or the index.

bool AppendText(qzString& out, Color const& value, char const* format) {
    unsigned char red = 0, green = 0, blue = 0;
    if (value.GetRGB(red, green, blue)) {
        std::array<FormatArgument, 3> const components{FormatInteger::Of(red), FormatInteger::Of(green),
                                                       FormatInteger::Of(blue)};
        return AppendFormatted(out, format == nullptr ? "#%02X%02X%02X" : format, components);
    }
    unsigned int index = 0;
    value.GetIndex(index);
    return AppendFormatted(out, format == nullptr ? "%d" : format,
                           std::array<FormatArgument, 1>{FormatInteger::Of(index)});
}

namespace {

bool ReadColorByFormat(qzString const& text, char const* format, Color& value) {
    using enum ScanFormat::Class;
    unsigned char components[3] = {};
    unsigned int index = 0;
    if (auto const rgb = ReadFields(text, format, {Integer, Integer, Integer})) {
        for (std::size_t k = 0; k < 3; ++k) {
            if (!StoreInto((*rgb)[k], components[k]))
                return false;
        }
        value.SetRGB(components[0], components[1], components[2]);
        return true;
    }
    auto const fields = ReadFields(text, format, {Integer});
    if (!fields || !StoreInto(fields->front(), index) || index == Color::s_rgbIndex)
        return false;
    value.SetIndex(index);
    return true;
}

// Not destroyed: objects in static storage may still read texts at exit.
std::regex const& RgbExpression() {
    static auto const& expression = *[] {
        auto* const compiled = new std::regex;
        compiled->imbue(std::locale::classic());
        compiled->assign(R"re(^([{'"]?)#([0-9a-fA-F]{2})([0-9a-fA-F]{2})([0-9a-fA-F]{2})(['"}]?)$)re");
        return compiled;
    }();
    return expression;
}

// Indices from 2^31 on are written as negative numbers, and read either way.
bool ReadColorIndex(std::string_view text, Color& value) {
    long long number = 0;
    if (ScanInteger(text, number) != Scan::Matched || !text.empty())
        return false;
    if (number < std::numeric_limits<int>::min() || number >= Color::s_rgbIndex || number == -1)
        return false;
    value.SetIndex(static_cast<unsigned int>(number));
    return true;
}

unsigned char HexPair(std::string const& pair) {
    return static_cast<unsigned char>(std::stoi(pair, nullptr, 16));
}

} // namespace

bool ReadText(qzString const& text, char const* format, Color& value) {
    if (format != nullptr)
        return ReadColorByFormat(text, format, value);
    constexpr std::size_t s_longestColor = 9;
    std::smatch match;
    if (text.size() <= s_longestColor && std::regex_match(text, match, RgbExpression())) {
        value.SetRGB(HexPair(match[2]), HexPair(match[3]), HexPair(match[4]));
        return true;
    }
    return ReadColorIndex(text, value);
}

// Formulas and functions in the words of FormulaText.h; a format of numbers cannot hold them.

bool AppendText(qzString& out, Formula const& value, char const* format) {
    if (format != nullptr)
        return false;
    out += GetAsString(value);
    return true;
}

bool ReadText(qzString const& text, char const* format, Formula& value) {
    return format == nullptr && SetFromString(value, text);
}

bool AppendText(qzString& out, Function const& value, char const* format) {
    if (format != nullptr)
        return false;
    out += GetAsString(value);
    return true;
}

// A callback cannot come out of a text.
bool ReadText(qzString const&, char const*, Function&) { return false; }

} // namespace qzDescriptor
