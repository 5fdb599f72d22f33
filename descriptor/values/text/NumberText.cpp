#include "values/storage/tuple_numbers.h"
#include "values/text/ElementText.h"
#include "values/text/Numbers.h"
#include "values/text/PrintFormat.h"
#include "values/text/ScanFormat.h"

#include <array>
#include <concepts>

namespace qzDescriptor {

// Scalars, tuples and matrices are all some numbers in rows: one blank between numbers, two between rows.

namespace {

template <std::floating_point T>
FormatArgument ArgumentOf(T value) {
    return static_cast<double>(value);
}

/// char is a signed 8-bit number here, whatever it is to the compiler.
template <std::integral T>
using Numeric = std::conditional_t<std::is_same_v<T, char>, signed char, T>;

template <std::integral T>
FormatArgument ArgumentOf(T value) {
    return FormatInteger::Of(static_cast<Numeric<T>>(value));
}

template <class T>
constexpr bool Fits(ScanFormat::Class kind) {
    if (std::floating_point<T>)
        return kind == ScanFormat::Class::Real;
    return kind == ScanFormat::Class::Integer || (sizeof(T) == 1 && kind == ScanFormat::Class::Text);
}

bool StoreField(ScanFormat::Field const& field, double& value) {
    value = std::get<ScannedReal>(field).value;
    return true;
}

bool StoreField(ScanFormat::Field const& field, float& value) {
    ScannedReal const& real = std::get<ScannedReal>(field);
    if (real.fitsSingle)
        value = real.single;
    return real.fitsSingle;
}

template <std::integral T>
bool StoreField(ScanFormat::Field const& field, T& value) {
    if (auto const* const integer = std::get_if<ScannedInteger>(&field)) {
        Numeric<T> number{};
        if (StoreInteger(*integer, number) != Scan::Matched)
            return false;
        value = static_cast<T>(number);
        return true;
    }
    if constexpr (sizeof(T) == 1) { // "%c" into an 8-bit number
        qzString const& character = std::get<qzString>(field);
        if (character.size() != 1)
            return false;
        value = static_cast<T>(character[0]);
        return true;
    } else {
        return false;
    }
}

template <class T>
bool ReadByFormat(qzString const& text, char const* format, T& value) {
    using N = Numbers<T>;
    ScanFormat const scan(format);
    if (!scan.IsValid() || scan.GetClasses().size() != N::s_count)
        return false;
    for (ScanFormat::Class const kind : scan.GetClasses()) {
        if (!Fits<typename N::Number>(kind))
            return false;
    }
    std::vector<ScanFormat::Field> fields;
    if (scan.Read(text, fields) != Scan::Matched)
        return false;
    T read{};
    for (unsigned int k = 0; k < N::s_count; ++k) {
        if (!StoreField(fields[k], N::At(read, k)))
            return false;
    }
    value = read;
    return true;
}

template <std::floating_point T>
Scan ScanNumber(std::string_view& text, T& value) {
    SkipBlanks(text);
    return TakeReal(text, value);
}

template <std::integral T>
Scan ScanNumber(std::string_view& text, T& value) {
    Numeric<T> number{};
    Scan const result = ScanInteger(text, number);
    if (result == Scan::Matched)
        value = static_cast<T>(number);
    return result;
}

template <class T>
bool ReadNumbers(qzString const& text, char const* format, T& value) {
    if (format != nullptr)
        return ReadByFormat(text, format, value);
    if constexpr (std::floating_point<T>) {
        return ReadWholeReal(text, value);
    } else {
        using N = Numbers<T>;
        std::string_view rest = text;
        T read{};
        for (unsigned int k = 0; k < N::s_count; ++k) {
            if (ScanNumber(rest, N::At(read, k)) != Scan::Matched)
                return false;
        }
        value = read;
        return true;
    }
}

template <std::integral T>
using Widest = std::conditional_t<std::is_signed_v<Numeric<T>>, long long, unsigned long long>;

template <class T>
bool AppendNumbers(qzString& out, T const& value, char const* format) {
    using N = Numbers<T>;
    if (format != nullptr) {
        std::array<FormatArgument, N::s_count> arguments;
        for (unsigned int k = 0; k < N::s_count; ++k)
            arguments[k] = ArgumentOf(N::At(value, k));
        return AppendFormatted(out, format, arguments);
    }
    for (unsigned int k = 0; k < N::s_count; ++k) {
        if (k > 0)
            out += k % N::s_perRow == 0 ? "  " : " ";
        if constexpr (std::integral<typename N::Number>)
            AppendInteger(
                out, Widest<typename N::Number>{static_cast<Numeric<typename N::Number>>(N::At(value, k))});
        else if constexpr (N::s_count == 1)
            AppendReal(out, static_cast<double>(N::At(value, k)));
        else
            AppendRealDigits(out, static_cast<double>(N::At(value, k)));
    }
    return true;
}

} // namespace

#define QZ_NUMBER_TEXT(T)                                                                                    \
    bool AppendText(qzString& out, T const& value, char const* format) {                                     \
        return AppendNumbers(out, value, format);                                                            \
    }                                                                                                        \
    bool ReadText(qzString const& text, char const* format, T& value) {                                      \
        return ReadNumbers(text, format, value);                                                             \
    }
QZ_NUMBER_TEXT(char)
QZ_NUMBER_TEXT(unsigned char)
QZ_NUMBER_TEXT(int)
QZ_NUMBER_TEXT(unsigned int)
QZ_NUMBER_TEXT(short)
QZ_NUMBER_TEXT(unsigned short)
QZ_NUMBER_TEXT(long)
QZ_NUMBER_TEXT(unsigned long)
QZ_NUMBER_TEXT(float)
QZ_NUMBER_TEXT(double)
QZ_NUMBER_TEXT(qzTCouple<double>)
QZ_NUMBER_TEXT(qzTCouple<float>)
QZ_NUMBER_TEXT(qzTCouple<int>)
QZ_NUMBER_TEXT(qzTTriple<double>)
QZ_NUMBER_TEXT(qzTTriple<float>)
QZ_NUMBER_TEXT(qzTTriple<int>)
QZ_NUMBER_TEXT(qzTMatrix33<double>)
QZ_NUMBER_TEXT(qzTMatrix44<double>)
#undef QZ_NUMBER_TEXT

} // namespace qzDescriptor
