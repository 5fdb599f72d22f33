#pragma once

#include "Lexer.h"
#include "Request.h"

#include <map>

namespace ui::selexpr {

/// Parses one text, with a function for each rule of the grammar:
///
///     query     = and { "or" and }
///     and       = not { "and" not }
///     not       = "not" not | "(" query ")" | condition
///     condition = property comparison value | property [ "not" ] "in" list | items
///     list      = items | "(" items ")"
///     items     = item { "," item }
///     item      = value | number ":" number [ ":" number ]
///
/// Each gives false after a mistake, which is then in the error.
class Parser {
public:
    Parser(IDataFilter& filter, qzString const& text, ParseError& error)
        : m_filter(filter), m_text(text), m_lexer(text), m_error(error) {}

    std::unique_ptr<IRequest> Parse();

private:
    using Kind = Token::Kind;
    using Rule = bool (Parser::*)();

    bool P_Query();
    bool P_And();
    bool P_Not();
    bool P_BracketRest();
    bool P_Chain(Rule rule, Kind word, Node::Kind kind);
    bool P_Nested(Rule rule);
    void P_Wrap(std::size_t start, Node::Kind kind);

    bool P_Condition();
    bool P_Operation(WrittenCondition& written);
    bool P_Bare(WrittenCondition& written);
    bool P_List(std::vector<WrittenItem>& items);
    bool P_Items(std::vector<WrittenItem>& items);
    bool P_Item(WrittenItem& item);
    bool P_RangeRest(WrittenItem& item);
    bool P_CheckSteps(WrittenItem const& item);
    bool P_Value(Literal& literal);
    bool P_Number(Literal& literal);

    // The filter adjusts and accepts a condition, which becomes a part of the request.
    bool P_Add(WrittenCondition written);
    bool P_AcceptValues(WrittenCondition const& written, qzString const& property, ValueType type);
    bool P_Bind(CompiledCondition& condition, Literal const& place);

    void P_Advance() { m_token = m_lexer.Next(); }
    bool P_Take(Kind kind);
    qzString P_WhatMayFollow() const;
    bool P_Fail(qzString const& expected);
    bool P_Fail(Literal const& found, qzString const& expected);
    bool P_Fail(std::size_t offset, std::size_t size, qzString const& expected);

    IDataFilter& m_filter;
    qzString const& m_text;
    Lexer m_lexer;
    Token m_token;
    unsigned m_depth = 0;
    unsigned m_openBrackets = 0;
    Request::Parts m_parts;
    std::map<qzString, IProperty const*> m_readers;
    ParseError& m_error;
};

} // namespace ui::selexpr
