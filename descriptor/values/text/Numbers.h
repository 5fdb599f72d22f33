#pragma once

#include "qzutl/qzString.h"

#include <charconv>
#include <limits>
#include <string_view>

namespace qzDescriptor {

// Numbers as text, the same under every locale.

/// "%d" when the number is integral and within 64 bits, else "%.14g".
void AppendReal(qzString& out, double value);
/// "%.14g".
void AppendRealDigits(qzString& out, double value);

template <class T>
void AppendInteger(qzString& out, T value) {
    char buffer[24];
    out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

/// What scanning a field came to. A number that the target cannot hold is not the same as no number: it ends
/// the reading, where another form of the text may be tried after no match.
enum class Scan { Matched, NoMatch, OutOfRange };

/// An integer as it was written, before any type is asked of it.
struct ScannedInteger {
    bool negative = false;
    unsigned long long magnitude = 0;
};

/// Drops leading white space.
void SkipBlanks(std::string_view& text);

/// Takes a sign and digits of the base from the front; base 0 tells the base from the prefix. No blanks are
/// skipped.
Scan TakeInteger(std::string_view& text, ScannedInteger& value, int base = 10);
/// Takes a decimal or hexadecimal floating number from the front. What is too small becomes 0 or subnormal.
Scan TakeReal(std::string_view& text, double& value);
Scan TakeReal(std::string_view& text, float& value);

/// Reads a text that is nothing but one decimal floating number, infinity or NaN.
bool ReadWholeReal(std::string_view text, double& value);
bool ReadWholeReal(std::string_view text, float& value);

/// Stores a scanned integer if T can hold it.
template <class T>
Scan StoreInteger(ScannedInteger const& scanned, T& value) {
    using Limits = std::numeric_limits<T>;
    unsigned long long limit = static_cast<unsigned long long>(Limits::max());
    if (scanned.negative)
        limit = Limits::is_signed ? limit + 1 : 0;
    if (scanned.magnitude > limit)
        return Scan::OutOfRange;
    value = static_cast<T>(scanned.negative ? 0 - scanned.magnitude : scanned.magnitude);
    return Scan::Matched;
}

/// Skips blanks and takes an integer that T can hold, as "%d" and "%u" do.
template <class T>
Scan ScanInteger(std::string_view& text, T& value) {
    SkipBlanks(text);
    ScannedInteger scanned;
    Scan const result = TakeInteger(text, scanned);
    return result == Scan::Matched ? StoreInteger(scanned, value) : result;
}

} // namespace qzDescriptor
