#include "descriptor/QueryParser.h"

#include "descriptor/ISession.h"
#include "descriptor/Identifier.h"
#include "descriptor/MetaclassMgr.h"
#include "operations/query_values.h"

namespace qzDescriptor {

using namespace ui::selexpr;

QueryParser::QueryParser(IDataInterface* data, ISession* session, EntityFullType const& type)
    : IDataFilter(data), m_type(type), m_session(session) {}

QueryParser::~QueryParser() = default;

bool QueryParser::NumericCondition(ConditionType& condition, ValueType& type, qzString& property,
                                   [[maybe_unused]] qzString& refusal) {
    if (condition == CONDITION_CONTAINS || condition == CONDITION_EQUAL)
        condition = CONDITION_MATCHES;
    if (property.empty())
        property = "id";
    if (IsIdProperty(property)) {
        if (condition != CONDITION_RANGE)
            condition = CONDITION_EQUAL;
        type = VALUE_INTEGER;
    } else {
        SettleValueType(type, property);
    }
    return true;
}

void QueryParser::SettleValueType(ValueType& type, qzString const& property) const {
    MetaclassMgr const* const registry = m_session != nullptr ? m_session->GetMetaclassMgr() : nullptr;
    if (registry == nullptr)
        return;
    unsigned int const metaclass = registry->GetMetaclassHandle(m_type);
    unsigned int const attribute = registry->FindAttributeHandle(metaclass, Identifier(property), 0, true);
    ValueType const settled = GetQueryType(registry->GetDefinition(metaclass, attribute, 0)).valueType;
    if (settled != VALUE_ANY)
        type = settled;
}

} // namespace qzDescriptor
