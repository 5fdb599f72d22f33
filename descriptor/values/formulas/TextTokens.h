#pragma once

#include "qzutl/qzString.h"

#include <charconv>
#include <concepts>
#include <string_view>

namespace qzDescriptor {

/// Reads formula texts from front to back. Each operation skips blanks and takes what it is named after; it
/// is false when something else stands there, and then the reader is where it was, blanks aside.
class TextReader {
public:
    explicit TextReader(std::string_view text) : m_rest(text) {}

    bool IsAtEnd();
    bool TakeSign(char sign);
    /// Letters, digits, dots and underscores, the first being a letter or an underscore.
    bool TakeWord(std::string_view& word);
    /// A word, or any bytes in quotes.
    bool TakeName(qzString& name);
    /// "#" and as many pairs of hexadecimal digits as there are bytes.
    bool TakeHexBytes(unsigned char* bytes, std::size_t count);

    template <std::integral T>
    bool TakeNumber(T& number) {
        P_SkipBlanks();
        auto const [end, error] = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), number);
        if (error != std::errc())
            return false;
        m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
        return true;
    }

private:
    void P_SkipBlanks();
    bool P_TakeQuoted(qzString& text);

    std::string_view m_rest;
};

void AppendNumber(qzString& text, std::integral auto number) { text += std::to_string(number); }

/// Two upper-case hexadecimal digits.
void AppendHexByte(qzString& text, unsigned char byte);
/// In quotes: quotes and backslashes escaped by a backslash, control bytes written as \xHH.
void AppendQuoted(qzString& text, std::string_view bytes);
/// As a word where it is one, else in quotes.
void AppendName(qzString& text, std::string_view name);

} // namespace qzDescriptor
