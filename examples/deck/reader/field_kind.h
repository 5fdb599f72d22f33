#pragma once

/// What a field holds, by its text alone.

#include <cstdint>
#include <optional>
#include <string_view>

namespace qzDeck {

enum class FieldKind : std::uint8_t {
    Blank,
    Integer,          ///< 12, -3
    Real,             ///< 7.0, .7E1, 70.-1, .7D1: a point, the letter of the exponent may be missing
    RealWithoutPoint, ///< 1e5
    GappedExponent,   ///< 0.75E 01: unreadable by the rules, but real decks hold it and its value is plain
    Text,             ///< a letter, then letters, digits and _ . / -
    Unreadable
};

/// Whether a field of this kind has a real value; that of a gapped exponent is what its writer meant.
constexpr bool IsReal(FieldKind kind) {
    return kind == FieldKind::Real || kind == FieldKind::RealWithoutPoint ||
           kind == FieldKind::GappedExponent;
}

/// The name of a kind in facts and marks: blank, int, real, real_nodot, bad_gap_exponent, str, bad.
std::string_view NameOf(FieldKind kind);
std::optional<FieldKind> KindNamed(std::string_view name);

/// The kind of a trimmed text.
FieldKind Classify(std::string_view text);

/// The number that a text of a numeric kind stands for, as near as a double can be: infinite beyond its
/// range, zero below it.
double ReadReal(std::string_view text);
/// The number that an integer's text stands for; nothing beyond 32 bits.
std::optional<int> ReadInteger(std::string_view text);

} // namespace qzDeck
