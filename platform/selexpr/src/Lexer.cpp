#include "Lexer.h"
#include "Number.h"
#include "ascii.h"

#include <algorithm>
#include <utility>

namespace ui::selexpr {

namespace {

using Kind = Token::Kind;

constexpr bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr bool IsWordCharacter(char c) {
    auto const byte = static_cast<unsigned char>(c);
    return byte > ' ' && byte != 0x7F && std::string_view("()=!<>~,:\"'").find(c) == std::string_view::npos;
}

// Longer signs stand before those that they begin with.
constexpr std::pair<std::string_view, Kind> s_signs[] = {
    {"==", Kind::Exact}, {"!=", Kind::Unequal}, {"<=", Kind::LessEqual}, {">=", Kind::GreaterEqual},
    {"=", Kind::Equal},  {"<", Kind::Less},     {">", Kind::Greater},    {"~", Kind::Tilde},
    {",", Kind::Comma},  {":", Kind::Colon},    {"(", Kind::Open},       {")", Kind::Close},
};

constexpr std::pair<std::string_view, Kind> s_reserved[] = {
    {"and", Kind::And}, {"or", Kind::Or}, {"not", Kind::Not}, {"in", Kind::In}};

Kind KindOfWord(std::string_view word) {
    for (auto const& [name, kind] : s_reserved)
        if (CompareToFolded(word, name) == 0)
            return kind;
    return IsNumberLiteral(word) ? Kind::Number : Kind::Word;
}

/// What a backslash can stand before in quotes. Before anything else it is a character like others, so that
/// regular expressions and paths are written as they are.
constexpr bool IsEscapable(char c) { return c == '"' || c == '\'' || c == '\\'; }

} // namespace

Token Lexer::Next() {
    while (m_place < m_text.size() && IsBlank(m_text[m_place]))
        ++m_place;
    if (m_place == m_text.size())
        return P_Take(Kind::End, 0);
    char const first = m_text[m_place];
    if (first == '"' || first == '\'')
        return P_Quoted();
    return IsWordCharacter(first) ? P_Word() : P_Sign();
}

Token Lexer::P_Take(Kind kind, std::size_t size) {
    Token token{kind, m_place, size, {}};
    m_place += size;
    return token;
}

Token Lexer::P_Word() {
    auto const begin = m_text.begin() + static_cast<std::ptrdiff_t>(m_place);
    auto const end = std::find_if_not(begin, m_text.end(), IsWordCharacter);
    std::string_view const word(begin, end);
    Token token = P_Take(KindOfWord(word), word.size());
    token.text = word;
    return token;
}

Token Lexer::P_Quoted() {
    char const quote = m_text[m_place];
    qzString text;
    for (std::size_t place = m_place + 1; place < m_text.size(); ++place) {
        if (m_text[place] == quote) {
            Token token = P_Take(Kind::Quoted, place + 1 - m_place);
            token.text = std::move(text);
            return token;
        }
        if (m_text[place] == '\\' && place + 1 < m_text.size() && IsEscapable(m_text[place + 1]))
            ++place;
        text += m_text[place];
    }
    return P_Take(Kind::Unfinished, m_text.size() - m_place);
}

Token Lexer::P_Sign() {
    std::string_view const rest = m_text.substr(m_place);
    for (auto const& [sign, kind] : s_signs)
        if (rest.starts_with(sign))
            return P_Take(kind, sign.size());
    return P_Take(Kind::Stray, 1);
}

qzString Quote(std::string_view text) {
    qzString quoted = "\"";
    for (char const c : text) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

qzString WriteText(std::string_view text) {
    Token const token = Lexer(text).Next();
    bool const isWord = token.kind == Kind::Word && token.text == text;
    return isWord ? qzString(text) : Quote(text);
}

} // namespace ui::selexpr
