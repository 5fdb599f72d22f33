#include "Parser.h"
#include "parse_error.h"

#include <algorithm>

namespace ui::selexpr {

namespace {

constexpr unsigned s_deepest = 200;
constexpr std::size_t s_longest = 16'000'000; // in bytes; each may take three hundred of memory

constexpr std::pair<Token::Kind, Operator> s_comparisons[] = {
    {Token::Kind::Equal, Operator::Equal},
    {Token::Kind::Exact, Operator::Exact},
    {Token::Kind::Unequal, Operator::Unequal},
    {Token::Kind::Less, Operator::Less},
    {Token::Kind::LessEqual, Operator::LessEqual},
    {Token::Kind::Greater, Operator::Greater},
    {Token::Kind::GreaterEqual, Operator::GreaterEqual},
    {Token::Kind::Tilde, Operator::Regex},
};

Literal LiteralOf(Token const& token) {
    return {token.text, token.kind == Token::Kind::Number, token.offset, token.size};
}

bool EndsCondition(Token const& token) {
    using Kind = Token::Kind;
    return token.kind == Kind::End || token.kind == Kind::And || token.kind == Kind::Or ||
           token.kind == Kind::Close;
}

} // namespace

std::unique_ptr<IRequest> Parser::Parse() {
    if (m_text.size() > s_longest) {
        P_Fail(s_longest, m_text.size() - s_longest, "the end: texts have at most 16 MB");
        return nullptr;
    }
    P_Advance();
    if (!P_Query() || (m_token.kind != Kind::End && !P_Fail(P_WhatMayFollow())))
        return nullptr;
    return std::make_unique<Request>(m_filter, std::move(m_parts));
}

// --- conditions put together ----------------------------------------------------------------------------

bool Parser::P_Query() { return P_Chain(&Parser::P_And, Kind::Or, Node::Kind::Or); }

bool Parser::P_And() { return P_Chain(&Parser::P_Not, Kind::And, Node::Kind::And); }

bool Parser::P_Chain(Rule rule, Kind word, Node::Kind kind) {
    std::size_t const start = m_parts.nodes.size();
    if (!(this->*rule)())
        return false;
    if (m_token.kind != word)
        return true;
    while (P_Take(word))
        if (!(this->*rule)())
            return false;
    P_Wrap(start, kind);
    return true;
}

bool Parser::P_Not() {
    if (m_token.kind == Kind::Open)
        return P_Nested(&Parser::P_BracketRest);
    if (m_token.kind != Kind::Not)
        return P_Condition();
    std::size_t const start = m_parts.nodes.size();
    if (!P_Nested(&Parser::P_Not))
        return false;
    P_Wrap(start, Node::Kind::Not);
    return true;
}

bool Parser::P_BracketRest() {
    ++m_openBrackets;
    if (!P_Query() || (m_token.kind != Kind::Close && !P_Fail(P_WhatMayFollow())))
        return false;
    --m_openBrackets;
    P_Advance();
    return true;
}

/// What stands behind a bracket or a "not". However long a text is, it does not exhaust the stack.
bool Parser::P_Nested(Rule rule) {
    if (m_depth == s_deepest)
        return P_Fail("at most " + std::to_string(s_deepest) + " levels of brackets and 'not'");
    ++m_depth;
    P_Advance();
    bool const succeeded = (this->*rule)();
    --m_depth;
    return succeeded;
}

/// Puts a node above those that were added last.
void Parser::P_Wrap(std::size_t start, Node::Kind kind) {
    auto& nodes = m_parts.nodes;
    nodes.insert(nodes.begin() + static_cast<std::ptrdiff_t>(start), {kind, nodes.size() - start + 1});
}

// --- one condition --------------------------------------------------------------------------------------

bool Parser::P_Condition() {
    WrittenCondition written;
    if (m_token.kind == Kind::Number)
        return P_Bare(written) && P_Add(std::move(written));
    if (!m_token.IsText())
        return P_Fail("a condition");
    written.property = LiteralOf(m_token);
    P_Advance();
    if (!EndsCondition(m_token) && m_token.kind != Kind::Comma)
        return P_Operation(written) && P_Add(std::move(written));
    written.items.emplace_back().first = std::exchange(written.property, {});
    return (!P_Take(Kind::Comma) || P_Bare(written)) && P_Add(std::move(written));
}

bool Parser::P_Operation(WrittenCondition& written) {
    written.opOffset = m_token.offset;
    written.opSize = m_token.size;
    auto const* const found =
        std::ranges::find(s_comparisons, m_token.kind, [](auto const& each) { return each.first; });
    if (found != std::end(s_comparisons)) {
        written.op = found->second;
        P_Advance();
        return P_Value(written.items.emplace_back().first);
    }
    written.op = P_Take(Kind::Not) ? Operator::NotIn : Operator::In;
    if (P_Take(Kind::In))
        return P_List(written.items);
    return P_Fail(written.op == Operator::NotIn ? "'in'" : "an operator, " + P_WhatMayFollow());
}

bool Parser::P_Bare(WrittenCondition& written) {
    return P_Items(written.items) && (EndsCondition(m_token) || P_Fail("',', " + P_WhatMayFollow()));
}

bool Parser::P_List(std::vector<WrittenItem>& items) {
    if (!P_Take(Kind::Open))
        return P_Items(items);
    return P_Items(items) && (P_Take(Kind::Close) || P_Fail("',' or ')'"));
}

bool Parser::P_Items(std::vector<WrittenItem>& items) {
    do {
        if (!P_Item(items.emplace_back()))
            return false;
    } while (P_Take(Kind::Comma));
    return true;
}

bool Parser::P_Item(WrittenItem& item) {
    if (!P_Value(item.first))
        return false;
    if (m_token.kind != Kind::Colon)
        return true;
    return item.first.isNumber ? P_RangeRest(item) : P_Fail(item.first, "a number");
}

bool Parser::P_RangeRest(WrittenItem& item) {
    P_Advance();
    item.range = std::make_unique<WrittenItem::Range>();
    if (!P_Number(item.range->last))
        return false;
    return !P_Take(Kind::Colon) || (P_Number(item.range->step.emplace()) && P_CheckSteps(item));
}

bool Parser::P_CheckSteps(WrittenItem const& item) {
    Number numbers[3];
    Literal const* const literals[] = {&item.first, &item.range->last, &*item.range->step};
    for (int k = 0; k < 3; ++k)
        if (!ReadNumber(literals[k]->text, numbers[k]) || !numbers[k].IsInteger())
            return P_Fail(*literals[k], "an integer of 64 bits");
    auto const& [first, last, step] = numbers;
    bool const leads = step.floor > 0 ? first.floor <= last.floor : first.floor >= last.floor;
    return (leads && step.floor != 0) ||
           P_Fail(*literals[2], "a step that leads from " + literals[0]->text + " to " + literals[1]->text);
}

bool Parser::P_Value(Literal& literal) {
    if (m_token.kind != Kind::Number && !m_token.IsText())
        return P_Fail("a value");
    literal = LiteralOf(m_token);
    P_Advance();
    return true;
}

bool Parser::P_Number(Literal& literal) {
    return m_token.kind == Kind::Number ? P_Value(literal) : P_Fail("a number");
}

// --- what the filter says about it ----------------------------------------------------------------------

namespace {

bool HasRange(WrittenCondition const& written) {
    return std::ranges::any_of(written.items, [](WrittenItem const& item) { return item.range != nullptr; });
}

bool HoldsForValues(WrittenCondition const& written, auto&& isOne) {
    return std::ranges::all_of(written.items, [&](WrittenItem const& item) {
        return isOne(item.first) && (!item.range || isOne(item.range->last));
    });
}

bool IsNumber(Literal const& literal) { return literal.isNumber; }

bool IsInteger(Literal const& literal) {
    Number number;
    return literal.isNumber && ReadNumber(literal.text, number) && number.IsInteger();
}

ConditionType TypeOf(WrittenCondition const& written) {
    switch (written.op) {
    case Operator::Less:
    case Operator::LessEqual:
    case Operator::Greater:
    case Operator::GreaterEqual:
        return CONDITION_RANGE;
    case Operator::Regex:
        return CONDITION_REGEX;
    case Operator::Exact:
        return CONDITION_EXACT;
    case Operator::Bare:
        if (!HasRange(written) && !HoldsForValues(written, IsNumber))
            return CONDITION_CONTAINS;
        break;
    default:
        break;
    }
    return HasRange(written) ? CONDITION_RANGE : CONDITION_EQUAL;
}

ValueType ValueTypeOf(WrittenCondition const& written) {
    if (written.op == Operator::Regex || !HoldsForValues(written, IsNumber))
        return VALUE_TEXT;
    return HoldsForValues(written, IsInteger) ? VALUE_INTEGER : VALUE_NUMBER;
}

bool IsText(ValueType type) { return type == VALUE_ANY || type == VALUE_TEXT; }

char const* ExpectedOf(ValueType type) {
    switch (type) {
    case VALUE_NUMBER:
    case VALUE_INTEGER:
        return "a number";
    case VALUE_BOOLEAN:
        return "true or false";
    default:
        return "another value";
    }
}

/// Stands for a property of a filter without data.
class NoProperty : public IProperty {
    bool Read(void*, Scalar&, qzString&) const override { return false; }
};

} // namespace

bool Parser::P_Add(WrittenCondition written) {
    bool const isBare = written.op == Operator::Bare;
    Literal const place = isBare ? written.items.front().first : written.property;
    ConditionType condition = TypeOf(written);
    ValueType type = ValueTypeOf(written);
    qzString property = written.property.text;
    qzString refusal;
    if (!m_filter.NumericCondition(condition, type, property, refusal))
        return P_Fail(place, refusal.empty() ? "another condition" : refusal);
    if (!m_filter.IsProperty(property))
        return P_Fail(place, "a property");
    if (condition == CONDITION_REGEX && !IsText(type))
        return P_Fail(written.opOffset, written.opSize, "another operator");
    if (!P_AcceptValues(written, property, type))
        return false;

    CompiledCondition compiled(std::move(written), std::move(property), condition, type);
    if (auto const refused = compiled.Compile(m_filter.IsExactCaseSensitive()))
        return P_Fail(*refused->literal, refused->expected);
    if (!P_Bind(compiled, place))
        return false;
    m_parts.nodes.push_back({Node::Kind::Condition, 1, m_parts.conditions.size()});
    m_parts.conditions.push_back(std::move(compiled));
    return true;
}

bool Parser::P_AcceptValues(WrittenCondition const& written, qzString const& property, ValueType type) {
    return HoldsForValues(written, [&](Literal const& literal) {
        return m_filter.IsValueAccepted(property, type, literal.text) || P_Fail(literal, ExpectedOf(type));
    });
}

bool Parser::P_Bind(CompiledCondition& condition, Literal const& place) {
    qzString const& property = condition.GetProperty();
    if (m_filter.IsSpecific(property))
        return true;
    auto const [reader, isNew] = m_readers.try_emplace(property, nullptr);
    if (isNew) {
        IDataInterface* const data = m_filter.GetDataInterface();
        auto bound = data != nullptr ? data->Bind(property) : std::make_unique<NoProperty>();
        if (!bound)
            return P_Fail(place, "a property");
        reader->second = bound.get();
        m_parts.properties.push_back(std::move(bound));
    }
    condition.SetReader(reader->second);
    return true;
}

// --- tokens and mistakes --------------------------------------------------------------------------------

bool Parser::P_Take(Kind kind) {
    bool const isThere = m_token.kind == kind;
    if (isThere)
        P_Advance();
    return isThere;
}

qzString Parser::P_WhatMayFollow() const {
    return m_openBrackets > 0 ? "'and', 'or' or ')'" : "'and', 'or' or the end";
}

bool Parser::P_Fail(qzString const& expected) {
    return P_Fail(m_token.offset, m_token.size,
                  m_token.kind == Kind::Unfinished ? "a closing quote" : expected);
}

bool Parser::P_Fail(Literal const& found, qzString const& expected) {
    return P_Fail(found.offset, found.size, expected);
}

bool Parser::P_Fail(std::size_t offset, std::size_t size, qzString const& expected) {
    m_error = DescribeError(m_text, offset, size, expected);
    return false;
}

} // namespace ui::selexpr
