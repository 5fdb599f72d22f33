#pragma once

#include "qzutl/qzString.h"

#include <span>
#include <string_view>
#include <variant>

namespace qzDescriptor {

/// An integer to be written, with its width, which decides how a negative number looks in hexadecimal.
struct FormatInteger {
    unsigned long long bits = 0; ///< sign-extended
    int bytes = 0;

    template <class T>
    static FormatInteger Of(T value) {
        return {static_cast<unsigned long long>(static_cast<long long>(value)), static_cast<int>(sizeof(T))};
    }
};

using FormatArgument = std::variant<FormatInteger, double, std::string_view, void const*>;

/// Appends the arguments by a caller's printf format: literal text and exactly one conversion for each
/// argument, each of a class that fits it, with any flags, width and precision. Length modifiers are allowed
/// and mean nothing, since the arguments know their width. False, appending nothing, for any other format.
bool AppendFormatted(qzString& out, char const* format, std::span<FormatArgument const> arguments);

} // namespace qzDescriptor
