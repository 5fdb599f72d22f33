#pragma once

/// The characters of a deck. A deck is read as Latin-1, whatever it was written in: every byte is one column,
/// and a byte beyond ASCII can never make a line unreadable.

#include <string>
#include <string_view>

namespace qzDeck {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
constexpr bool IsSign(char c) { return c == '+' || c == '-'; }
/// Blanks, tabs and separators, the no-break space of Latin-1 among them.
constexpr bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r') || (c >= '\x1C' && c <= '\x1F') || c == '\x85' || c == '\xA0';
}

std::string_view Trim(std::string_view text);
/// The text without what stands behind its last character that is not a blank.
std::string_view TrimRight(std::string_view text);

/// In capitals, the letters of Latin-1 too.
std::string Upper(std::string_view text);
/// Whether the text begins with an upper-case keyword, in any case, that ends there: `BEGIN` begins
/// `begin bulk`, not `BEGINNING`.
bool BeginsWithWord(std::string_view text, std::string_view keyword);

/// Capitals of Latin-1, as Upper gives them, for those who expect UTF-8.
std::string CapitalsToUtf8(std::string_view capitals);

} // namespace qzDeck
