#pragma once

#include "qzutl/qzString.h"

#include <string_view>

namespace ui::selexpr {

struct Token {
    enum class Kind {
        End,
        Word,
        Number,
        Quoted,
        And,
        Or,
        Not,
        In,
        Comma,
        Colon,
        Open,
        Close,
        Equal,
        Exact,
        Unequal,
        Less,
        LessEqual,
        Greater,
        GreaterEqual,
        Tilde,
        Unfinished, ///< a quote that nothing ends
        Stray       ///< a character that begins nothing
    };

    Kind kind = Kind::End;
    std::size_t offset = 0; ///< in bytes
    std::size_t size = 0;
    qzString text; ///< of a word, a number or, without the quotes, a quoted text

    bool IsText() const { return kind == Kind::Word || kind == Kind::Quoted; }
};

/// Cuts a text into tokens, one at a time.
class Lexer {
public:
    explicit Lexer(std::string_view text) : m_text(text) {}

    Token Next();

private:
    Token P_Word();
    Token P_Quoted();
    Token P_Sign();
    Token P_Take(Token::Kind kind, std::size_t size);

    std::string_view m_text;
    std::size_t m_place = 0;
};

/// A text as the language writes it: as it is where it is a word, else in quotes.
qzString WriteText(std::string_view text);
/// A text in quotes, which may hold any bytes.
qzString Quote(std::string_view text);

} // namespace ui::selexpr
