#pragma once

#include "qzutl/qzString.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace ui::selexpr {

// Letter case is that of ASCII and nothing else: no locale has a say, and UTF-8 stays whole.

constexpr char Fold(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

/// The capital of a letter that is folded.
constexpr char Unfold(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

inline qzString FoldText(std::string_view text) {
    qzString folded(text);
    std::ranges::transform(folded, folded.begin(), Fold);
    return folded;
}

/// Of texts of one size.
constexpr bool EqualsFolded(std::string_view text, std::string_view folded) {
    for (std::size_t k = 0; k < folded.size(); ++k)
        if (Fold(text[k]) != folded[k])
            return false;
    return true;
}

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// A byte that continues a UTF-8 character.
constexpr bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

/// The place behind the character that begins at a place. A byte that is no UTF-8 is a character by itself,
/// as in the encodings of old.
constexpr std::size_t NextCharacter(std::string_view text, std::size_t place) {
    auto const first = static_cast<unsigned char>(text[place]);
    std::size_t const size = first < 0xC2 || first > 0xF4 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    std::size_t end = place + 1;
    while (end < text.size() && end < place + size && IsContinuation(text[end]))
        ++end;
    return end == place + size ? end : place + 1;
}

/// Below, equal to or above 0, as a text comes before, is or comes behind one that is folded already.
constexpr int CompareToFolded(std::string_view text, std::string_view folded) {
    std::size_t const common = text.size() < folded.size() ? text.size() : folded.size();
    for (std::size_t k = 0; k < common; ++k) {
        auto const left = static_cast<unsigned char>(Fold(text[k]));
        auto const right = static_cast<unsigned char>(folded[k]);
        if (left != right)
            return left < right ? -1 : 1;
    }
    return text.size() == folded.size() ? 0 : text.size() < folded.size() ? -1 : 1;
}

} // namespace ui::selexpr
