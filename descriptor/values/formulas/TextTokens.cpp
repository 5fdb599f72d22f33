#include "values/formulas/TextTokens.h"

#include <algorithm>
#include <array>

namespace qzDescriptor {

namespace {

constexpr std::string_view s_blanks = " \t\r\n";
constexpr std::string_view s_hexDigits = "0123456789ABCDEF";

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsWordStart(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
constexpr bool IsWordPart(char c) { return IsWordStart(c) || IsDigit(c) || c == '.'; }
constexpr bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

std::size_t CountWord(std::string_view text) {
    if (text.empty() || !IsWordStart(text.front()))
        return 0;
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsWordPart) - text.begin());
}

bool ReadHexByte(std::string_view text, unsigned char& byte) {
    if (text.size() < 2)
        return false;
    auto const [end, error] = std::from_chars(text.data(), text.data() + 2, byte, 16);
    return error == std::errc() && end == text.data() + 2;
}

// The byte behind a backslash; returns how many characters stand for it, 0 when it is no escape.
std::size_t ReadEscape(std::string_view text, char& byte) {
    if (text.starts_with('"') || text.starts_with('\\')) {
        byte = text.front();
        return 1;
    }
    unsigned char value = 0;
    if (!text.starts_with('x') || !ReadHexByte(text.substr(1), value))
        return 0;
    byte = static_cast<char>(value);
    return 3;
}

} // namespace

bool TextReader::IsAtEnd() {
    P_SkipBlanks();
    return m_rest.empty();
}

bool TextReader::TakeSign(char sign) {
    P_SkipBlanks();
    if (!m_rest.starts_with(sign))
        return false;
    m_rest.remove_prefix(1);
    return true;
}

bool TextReader::TakeWord(std::string_view& word) {
    P_SkipBlanks();
    word = m_rest.substr(0, CountWord(m_rest));
    m_rest.remove_prefix(word.size());
    return !word.empty();
}

bool TextReader::TakeName(qzString& name) {
    std::string_view word;
    if (!TakeWord(word))
        return P_TakeQuoted(name);
    name = word;
    return true;
}

bool TextReader::TakeHexBytes(unsigned char* bytes, std::size_t count) {
    P_SkipBlanks();
    if (!m_rest.starts_with('#'))
        return false;
    for (std::size_t i = 0; i < count; ++i)
        if (!ReadHexByte(m_rest.substr(std::min(m_rest.size(), 1 + 2 * i)), bytes[i]))
            return false;
    m_rest.remove_prefix(1 + 2 * count);
    return true;
}

void TextReader::P_SkipBlanks() {
    m_rest.remove_prefix(std::min(m_rest.find_first_not_of(s_blanks), m_rest.size()));
}

bool TextReader::P_TakeQuoted(qzString& text) {
    if (!m_rest.starts_with('"'))
        return false;
    qzString bytes;
    for (std::size_t i = 1; i < m_rest.size(); ++i) {
        char byte = m_rest[i];
        if (byte == '"') {
            m_rest.remove_prefix(i + 1);
            text = std::move(bytes);
            return true;
        }
        if (byte == '\\') {
            std::size_t const length = ReadEscape(m_rest.substr(i + 1), byte);
            if (length == 0)
                return false;
            i += length;
        }
        bytes += byte;
    }
    return false;
}

void AppendHexByte(qzString& text, unsigned char byte) {
    text += s_hexDigits[byte >> 4];
    text += s_hexDigits[byte & 0x0F];
}

void AppendQuoted(qzString& text, std::string_view bytes) {
    text += '"';
    for (char const byte : bytes) {
        if (IsControl(byte)) {
            text += "\\x";
            AppendHexByte(text, static_cast<unsigned char>(byte));
            continue;
        }
        if (byte == '"' || byte == '\\')
            text += '\\';
        text += byte;
    }
    text += '"';
}

void AppendName(qzString& text, std::string_view name) {
    if (!name.empty() && CountWord(name) == name.size())
        text += name;
    else
        AppendQuoted(text, name);
}

} // namespace qzDescriptor
