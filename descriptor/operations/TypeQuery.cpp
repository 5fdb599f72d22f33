#include "operations/TypeQuery.h"

#include "descriptor/Entity.h"
#include "descriptor/ISession.h"
#include "descriptor/Identifier.h"
#include "descriptor/MetaclassMgr.h"
#include "descriptor/Metaobject.h"
#include "operations/query_values.h"

namespace qzDescriptor {

using namespace ui::selexpr;

namespace {

Metaobject const* AsMetaobject(void* object) { return static_cast<Metaobject const*>(object); }

class IdProperty : public IProperty {
public:
    bool Read(void* object, Scalar& value, [[maybe_unused]] qzString& scratch) const override {
        if (object != nullptr)
            value.SetInteger(AsMetaobject(object)->GetEntity().GetId());
        return object != nullptr;
    }
};

/// Reads by handle and in place. An object whose own definition of the attribute has another type is read by
/// name.
class AttributeProperty : public IProperty {
public:
    AttributeProperty(unsigned int attribute, QueryType const& type, std::unique_ptr<IProperty> byName)
        : m_attribute(attribute), m_read(type.read), m_byName(std::move(byName)) {}

    bool Read(void* object, Scalar& value, qzString& scratch) const override {
        ValuePtr const* held = nullptr;
        if (object != nullptr && AsMetaobject(object)->GetValue(m_attribute, held) && held != nullptr &&
            m_read(*held, value, scratch))
            return true;
        return m_byName->Read(object, value, scratch);
    }

private:
    unsigned int m_attribute;
    decltype(QueryType::read) m_read;
    std::unique_ptr<IProperty> m_byName;
};

} // namespace

TypeDataInterface::TypeDataInterface(ISession const& session, EntityFullType const& type)
    : m_registry(session.GetMetaclassMgr()),
      m_metaclass(m_registry != nullptr ? m_registry->GetMetaclassHandle(type) : 0) {}

std::unique_ptr<IProperty> TypeDataInterface::Bind(qzString const& property) {
    if (IsIdProperty(property))
        return std::make_unique<IdProperty>();
    auto byName = DataInterface::Bind(property);
    unsigned int const attribute =
        m_registry != nullptr ? m_registry->FindAttributeHandle(m_metaclass, Identifier(property), 0, true)
                              : 0;
    if (attribute == 0) {
        m_unknown.push_back(property);
        return byName;
    }
    QueryType const& type = GetQueryType(m_registry->GetDefinition(m_metaclass, attribute, 0));
    if (type.read == nullptr)
        return byName;
    return std::make_unique<AttributeProperty>(attribute, type, std::move(byName));
}

TypeQuery::TypeQuery(ISession const& session, EntityFullType const& type, qzString const& text)
    : m_type(type),
      m_data(session, type),
      m_parser(&m_data, const_cast<ISession*>(&session), type),
      m_request(m_parser.Parse(text)) {}

qzString TypeQuery::GetProblem() const {
    if (m_request == nullptr)
        return m_parser.GetError().message;
    if (!m_data.GetUnknown().empty())
        return "'" + m_data.GetUnknown().front() + "' is no attribute of " + m_type.GetTypeNamed();
    return qzString();
}

} // namespace qzDescriptor
