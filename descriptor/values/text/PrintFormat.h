#pragma once

#include "qzutl/qzString.h"

#include <span>
#include <string_view>
#include <variant>

namespace qzDescriptor {

/// An integer to be written, promoted as printf's arguments are: what is narrower than an int is written as
/// an int. The width decides how a negative number looks in hexadecimal.
struct FormatInteger {
    unsigned long long bits = 0; ///< sign-extended
    int bytes = 0;
    bool isCharacter = false; ///< as wide as one, and so may be written by "%c"

    template <class T>
    static FormatInteger Of(T value) {
        return {static_cast<unsigned long long>(static_cast<long long>(value)),
                static_cast<int>(sizeof(+value)), sizeof(T) == 1};
    }
};

using FormatArgument = std::variant<FormatInteger, double, std::string_view, void const*>;

/// Appends the arguments by a caller's printf format: literal text and exactly one conversion for each
/// argument, each of a class that fits it, with any flags, width and precision. Length modifiers are allowed
/// and mean nothing, since the arguments know their width. False, appending nothing, for any other format.
bool AppendFormatted(qzString& out, char const* format, std::span<FormatArgument const> arguments);

} // namespace qzDescriptor
