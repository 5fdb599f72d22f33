#include "reader/latin1.h"

#include <algorithm>

namespace qzDeck {

namespace {

constexpr unsigned char s_sharpS = 0xDF; // its capital is two letters
constexpr unsigned char s_micro = 0xB5;  // its capital and that of the next are outside Latin-1
constexpr unsigned char s_yDiaeresis = 0xFF;

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

bool IsAccentedSmallLetter(char c) { return Byte(c) >= 0xE0 && Byte(c) != 0xF7 && Byte(c) != s_yDiaeresis; }

char UpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool IsWordCharacter(char c) {
    if (Byte(c) >= 0xC0)
        return Byte(c) != 0xD7 && Byte(c) != 0xF7;
    constexpr std::string_view letterLike =
        "\xAA\xB2\xB3\xB5\xB9\xBA\xBC\xBD\xBE"; // ordinals, fractions, ...
    return IsLetter(c) || IsDigit(c) || c == '_' || letterLike.find(c) != std::string_view::npos;
}

void AppendUtf8(std::string& text, unsigned codePoint) {
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
        return;
    }
    text += static_cast<char>(0xC0 | (codePoint >> 6));
    text += static_cast<char>(0x80 | (codePoint & 0x3F));
}

} // namespace

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    return TrimRight(text);
}

std::string_view TrimRight(std::string_view text) {
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string Upper(std::string_view text) {
    std::string capitals;
    capitals.reserve(text.size());
    for (char c : text) {
        if (Byte(c) == s_sharpS)
            capitals += "SS";
        else
            capitals += IsAccentedSmallLetter(c) ? static_cast<char>(Byte(c) - 0x20) : UpperAscii(c);
    }
    return capitals;
}

bool BeginsWithWord(std::string_view text, std::string_view keyword) {
    if (text.size() < keyword.size())
        return false;
    auto const sameLetter = [](char a, char b) { return a == UpperAscii(b); };
    if (!std::equal(keyword.begin(), keyword.end(), text.begin(), sameLetter))
        return false;
    return text.size() == keyword.size() || !IsWordCharacter(text[keyword.size()]);
}

std::string CapitalsToUtf8(std::string_view capitals) {
    std::string text;
    text.reserve(capitals.size());
    for (char c : capitals) {
        switch (Byte(c)) {
        case s_micro:
            AppendUtf8(text, 0x039C);
            break;
        case s_yDiaeresis:
            AppendUtf8(text, 0x0178);
            break;
        default:
            AppendUtf8(text, Byte(c));
        }
    }
    return text;
}

} // namespace qzDeck
