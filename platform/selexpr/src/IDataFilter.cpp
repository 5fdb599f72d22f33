#include "selexpr/IDataFilter.h"
#include "CompiledCondition.h"
#include "Number.h"
#include "Parser.h"
#include "ascii.h"
#include "holds.h"

namespace ui::selexpr {

namespace {

CompiledCondition const& Compiled(Condition const& condition) {
    return static_cast<CompiledCondition const&>(condition);
}

} // namespace

IParser::~IParser() = default;

IDataFilter::IDataFilter(IDataInterface* data) : m_data(data) {}
IDataFilter::~IDataFilter() = default;

IRequest* IDataFilter::Parse(qzString const& text) {
    m_error = ParseError();
    return Parser(*this, text, m_error).Parse().release();
}

ParseError const& IDataFilter::GetError() const { return m_error; }

bool IDataFilter::NumericCondition(ConditionType& condition, ValueType& type, qzString& property,
                                   qzString& refusal) {
    if (property.empty()) {
        refusal = "a property";
        return false;
    }
    if (condition == CONDITION_EQUAL)
        condition = CONDITION_MATCHES;
    SettleValueType(type, property);
    return true;
}

void IDataFilter::SettleValueType(ValueType&, qzString const&) const {}

bool IDataFilter::IsProperty(qzString const&) const { return true; }

bool IDataFilter::IsValueAccepted(qzString const&, ValueType type, qzString const& value) const {
    if (type != VALUE_NUMBER && type != VALUE_INTEGER && type != VALUE_BOOLEAN)
        return true;
    Number number;
    return ReadNumber(value, number) || (type == VALUE_BOOLEAN && (CompareToFolded(value, "true") == 0 ||
                                                                   CompareToFolded(value, "false") == 0));
}

bool IDataFilter::IsExactCaseSensitive() const { return true; }

bool IDataFilter::IsSpecific(qzString const&) const { return false; }

bool IDataFilter::Matching(Scalar const& value, Condition const& condition) const {
    return Compiled(condition).Accepts(value);
}

bool IDataFilter::MatchingRange(Scalar const& value, Condition const& condition) const {
    return Compiled(condition).Accepts(value);
}

bool IDataFilter::MatchingRegex(Scalar const& value, Condition const& condition) const {
    return Compiled(condition).AcceptsByRegex(value);
}

bool IDataFilter::MatchSpecific(void* object, Condition const& condition) const {
    Scalar value;
    qzString scratch;
    return GetValueSpecific(object, condition.GetProperty(), value, scratch) && P_Holds(value, condition);
}

bool IDataFilter::GetValueSpecific(void*, qzString const&, Scalar&, qzString&) const { return false; }

bool IDataFilter::P_Holds(Scalar const& value, Condition const& condition) const {
    return Holds(*this, value, condition);
}

} // namespace ui::selexpr
