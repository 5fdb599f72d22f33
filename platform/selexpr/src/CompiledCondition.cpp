#include "CompiledCondition.h"
#include "Lexer.h"
#include "ascii.h"

#include <algorithm>

namespace ui::selexpr {

namespace {

// Time grows with the product of the lengths of text and pattern, so one of them is bounded.
constexpr std::size_t s_longestPattern = 1000;

bool IsTooLong(qzString const& pattern) { return pattern.size() > s_longestPattern; }

Refusal TooLong(Literal const& literal) {
    return {&literal, "a pattern of at most " + std::to_string(s_longestPattern) + " bytes"};
}

Number NumberOf(Literal const& literal) {
    Number number;
    ReadNumber(literal.text, number);
    return number;
}

struct OperatorFacts {
    Operator op;
    std::string_view sign;
    bool isOneSided;
    bool isAbove;  ///< the values above the written one
    bool excludes; ///< the written value itself is outside
    TextSet::Side side;
};

// In the order of the enumeration.
constexpr OperatorFacts s_operators[] = {
    {Operator::Bare, "", false, false, false, {}},
    {Operator::Equal, " = ", false, false, false, {}},
    {Operator::Exact, " == ", false, false, false, {}},
    {Operator::Unequal, " != ", false, false, false, {}},
    {Operator::Less, " < ", true, false, true, TextSet::Side::Below},
    {Operator::LessEqual, " <= ", true, false, false, TextSet::Side::UpTo},
    {Operator::Greater, " > ", true, true, true, TextSet::Side::Above},
    {Operator::GreaterEqual, " >= ", true, true, false, TextSet::Side::From},
    {Operator::Regex, " ~ ", false, false, false, {}},
    {Operator::In, " in ", false, false, false, {}},
    {Operator::NotIn, " not in ", false, false, false, {}},
};

OperatorFacts const& FactsOf(Operator op) { return s_operators[static_cast<std::size_t>(op)]; }

qzString Write(Literal const& literal) { return literal.isNumber ? literal.text : WriteText(literal.text); }

qzString Write(WrittenItem const& item) {
    qzString text = Write(item.first);
    if (item.range)
        text += ":" + Write(item.range->last);
    if (item.range && item.range->step)
        text += ":" + Write(*item.range->step);
    return text;
}

} // namespace

CompiledCondition::CompiledCondition(WrittenCondition written, qzString property, ConditionType condition,
                                     ValueType valueType)
    : m_written(std::move(written)) {
    m_property = std::move(property);
    m_condition = condition;
    m_valueType = valueType;
    m_negated = m_written.op == Operator::Unequal || m_written.op == Operator::NotIn;
}

std::optional<Refusal> CompiledCondition::Compile(bool exactCaseSensitive) {
    for (WrittenItem const& item : m_written.items)
        if (auto refusal = P_AddItem(item, exactCaseSensitive))
            return refusal;
    m_numbers.Seal();
    m_textNumbers.Seal();
    m_texts.Seal();
    for (int const truth : {0, 1})
        m_booleans[truth] |= m_numbers.Contains(static_cast<long long>(truth));
    return std::nullopt;
}

std::optional<Refusal> CompiledCondition::P_AddItem(WrittenItem const& item, bool exactCaseSensitive) {
    if (m_condition == CONDITION_REGEX)
        return item.range ? Refusal{&item.first, "a regular expression"} : P_AddRegex(item.first);
    if (item.range)
        P_AddRange(item);
    else if (P_IsOneSided())
        P_AddSide(item.first);
    else
        return P_AddValue(item.first, exactCaseSensitive);
    return std::nullopt;
}

/// A filter may turn a comparison into an equality.
bool CompiledCondition::P_IsOneSided() const {
    return m_condition == CONDITION_RANGE && FactsOf(m_written.op).isOneSided;
}

void CompiledCondition::P_AddRange(WrittenItem const& item) {
    Number const first = NumberOf(item.first);
    Number const last = NumberOf(item.range->last);
    if (item.range->step) {
        long long const stride = NumberOf(*item.range->step).floor;
        m_numbers.AddSteps(first.floor, last.floor, stride);
        m_textNumbers.AddSteps(first.floor, last.floor, stride);
        return;
    }
    // Backwards is as good as forwards; of both, one is empty or they are the same.
    for (NumberSet* const numbers : {&m_numbers, &m_textNumbers}) {
        numbers->Add({&first}, {&last});
        numbers->Add({&last}, {&first});
    }
}

/// In quotes a number is a text to texts and a number to numbers.
void CompiledCondition::P_AddToNumbers(Literal const& literal, Bound const& low, Bound const& high) {
    m_numbers.Add(low, high);
    if (literal.isNumber)
        m_textNumbers.Add(low, high);
}

void CompiledCondition::P_AddSide(Literal const& literal) {
    OperatorFacts const& facts = FactsOf(m_written.op);
    if (!literal.isNumber)
        m_texts.AddSide(facts.side, literal.text);
    Number number;
    if (!ReadNumber(literal.text, number))
        return;
    Bound const end{&number, facts.excludes};
    P_AddToNumbers(literal, facts.isAbove ? end : Bound(), facts.isAbove ? Bound() : end);
}

std::optional<Refusal> CompiledCondition::P_AddValue(Literal const& literal, bool exactCaseSensitive) {
    bool const isExact = m_condition == CONDITION_EXACT;
    bool const isPart = m_condition == CONDITION_CONTAINS;
    bool const isPattern = (m_condition == CONDITION_MATCHES || m_condition == CONDITION_RANGE) &&
                           !literal.isNumber && Wildcard::IsOne(literal.text);
    if ((isPart || isPattern) && IsTooLong(literal.text))
        return TooLong(literal);

    if (isPattern)
        m_texts.AddPattern(literal.text);
    else if (isPart)
        m_texts.AddPart(literal.text);
    else if (isExact && exactCaseSensitive)
        m_texts.AddExact(literal.text);
    else
        m_texts.AddEqual(literal.text);

    m_booleans[0] |= CompareToFolded(literal.text, "false") == 0;
    m_booleans[1] |= CompareToFolded(literal.text, "true") == 0;

    Number number;
    if (!ReadNumber(literal.text, number))
        return std::nullopt;
    m_numbers.Add({&number}, {&number});
    if (literal.isNumber && !isExact && !isPart)
        m_textNumbers.Add({&number}, {&number});
    return std::nullopt;
}

std::optional<Refusal> CompiledCondition::P_AddRegex(Literal const& literal) {
    if (IsTooLong(literal.text))
        return TooLong(literal);
    qzString failure;
    auto regex = Regex::Compile(literal.text, failure);
    if (!regex)
        return Refusal{&literal, "a regular expression: " + failure};
    m_regexes.push_back(std::move(regex));
    return std::nullopt;
}

bool CompiledCondition::P_AcceptsText(std::string_view text) const {
    if (m_texts.Contains(text))
        return true;
    Number number;
    return !m_textNumbers.IsEmpty() && ReadNumber(text, number) && m_textNumbers.Contains(number);
}

bool CompiledCondition::AcceptsByRegex(Scalar const& value) const {
    return value.GetKind() == Scalar::KIND_TEXT &&
           std::ranges::any_of(m_regexes, [&](auto const& regex) { return regex->Finds(value.GetText()); });
}

qzString CompiledCondition::Write() const {
    bool const isBare = m_written.op == Operator::Bare;
    qzString text = isBare ? qzString() : WriteText(m_property);
    text += FactsOf(m_written.op).sign;
    for (std::size_t k = 0; k < m_written.items.size(); ++k)
        text += (k == 0 ? "" : ", ") + selexpr::Write(m_written.items[k]);
    return text;
}

qzString Condition::GetText() const { return static_cast<CompiledCondition const&>(*this).Write(); }

} // namespace ui::selexpr
