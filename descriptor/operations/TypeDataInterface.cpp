#include "operations/TypeDataInterface.h"

#include "descriptor/Content.h"
#include "descriptor/DataTypeUtils.h"
#include "descriptor/Entity.h"
#include "descriptor/ISession.h"
#include "descriptor/Identifier.h"
#include "descriptor/MetaclassMgr.h"
#include "descriptor/Metaobject.h"
#include "descriptor/ScalarStorage.h"
#include "operations/query_values.h"

#include <algorithm>
#include <type_traits>

namespace qzDescriptor {

using namespace ui::selexpr;

namespace {

QuerySubject const& AsSubject(void* subject) { return *static_cast<QuerySubject const*>(subject); }

class IdProperty : public IProperty {
public:
    bool Read(void* given, Scalar& value, [[maybe_unused]] qzString& scratch) const override {
        QuerySubject const& subject = AsSubject(given);
        if (subject.content != nullptr)
            value.SetInteger(subject.id);
        else if (subject.object != nullptr)
            value.SetInteger(subject.object->GetEntity().GetId());
        return !value.IsEmpty();
    }
};

/// Where an attribute of a type is.
struct Place {
    unsigned int attribute;
    bool inDescendants; ///< the handle is the same in the descendants of the type
};

/// Reads by handle and in place. An object whose own definition of the attribute has another type than that
/// of the metaclass is read by that one, and one that may have the attribute elsewhere by name.
class AttributeProperty : public IProperty {
public:
    AttributeProperty(Place const& place, QueryType const& type, std::unique_ptr<IProperty> byName)
        : m_place(place), m_read(type.read), m_byName(std::move(byName)) {}

    bool Read(void* given, Scalar& value, qzString& scratch) const override {
        QuerySubject const& subject = AsSubject(given);
        if (subject.content != nullptr)
            return P_Read(*subject.content, value, scratch);
        ValuePtr const* held = nullptr;
        if (m_place.inDescendants && subject.object != nullptr &&
            subject.object->GetValue(m_place.attribute, held) && held != nullptr &&
            m_read(*held, value, scratch))
            return true;
        return m_byName->Read(given, value, scratch);
    }

protected:
    /// What the content, if there is one, has set for the attribute.
    ValuePtr const* P_FindOwn(void* given) const {
        Content const* const content = AsSubject(given).content;
        return content != nullptr ? content->FindOwnValue(m_place.attribute - 1) : nullptr;
    }

private:
    bool P_Read(Content const& content, Scalar& value, qzString& scratch) const {
        ValuePtr const* const held = content.FindValue(m_place.attribute - 1);
        if (held == nullptr || m_read(*held, value, scratch))
            return held != nullptr;
        auto* const read = GetQueryType(content.GetDefinition(m_place.attribute - 1)).read;
        return read != nullptr && read(*held, value, scratch);
    }

    Place m_place;
    decltype(QueryType::read) m_read;
    std::unique_ptr<IProperty> m_byName;
};

/// A number or text of a content that has it set is read at once.
template <class T>
class ScalarProperty final : public AttributeProperty {
public:
    using AttributeProperty::AttributeProperty;

    bool Read(void* given, Scalar& value, qzString& scratch) const override {
        if (ValuePtr const* const own = P_FindOwn(given)) {
            if (auto const* const scalar = ScalarStorage<T>::Of(own)) {
                if constexpr (std::is_same_v<T, qzString>)
                    value.SetText(scalar->m_value);
                else
                    PutNumber(value, scalar->m_value);
                return true;
            }
        }
        return AttributeProperty::Read(given, value, scratch);
    }
};

/// An attribute that has no value for queries unless the object's own definition says so.
bool ReadNothing(ValuePtr const&, Scalar&, qzString&) { return false; }

std::unique_ptr<IProperty> MakeProperty(Place const& place, Definition const* definition,
                                        std::unique_ptr<IProperty> byName) {
    QueryType type = GetQueryType(definition);
    if (type.read == nullptr)
        type.read = ReadNothing;
    auto const make = [&]<class Property>() {
        return std::make_unique<Property>(place, type, std::move(byName));
    };
    switch (DataTypeUtils::GetValueDataType(definition)) {
    case DT_BOOL:
        return make.template operator()<ScalarProperty<bool>>();
    case DT_DOUBLE:
        return make.template operator()<ScalarProperty<double>>();
    case DT_FLOAT:
        return make.template operator()<ScalarProperty<float>>();
    case DT_INT:
        return make.template operator()<ScalarProperty<int>>();
    case DT_STRING:
        return make.template operator()<ScalarProperty<qzString>>();
    case DT_UINT:
        return make.template operator()<ScalarProperty<unsigned int>>();
    default:
        return make.template operator()<AttributeProperty>();
    }
}

} // namespace

TypeDataInterface::TypeDataInterface(ISession const& session, EntityFullType const& type)
    : m_registry(session.GetMetaclassMgr()),
      m_metaclass(m_registry != nullptr ? m_registry->GetMetaclassHandle(type) : 0) {}

bool TypeDataInterface::GetValue(void* subject, qzString const& property, qzVariant& out) {
    return DataInterface::GetValue(const_cast<Metaobject*>(AsSubject(subject).object), property, out);
}

std::unique_ptr<IProperty> TypeDataInterface::Bind(qzString const& property) {
    if (IsIdProperty(property))
        return std::make_unique<IdProperty>();
    auto byName = DataInterface::Bind(property);
    Identifier const identifier(property);
    unsigned int const attribute = P_FindAttribute(m_metaclass, identifier);
    if (attribute == 0) {
        m_unknown.push_back(property);
        return byName;
    }
    m_attributes.push_back(attribute);
    return MakeProperty({attribute, P_IsInDescendants(attribute, identifier)},
                        m_registry->GetDefinition(m_metaclass, attribute, 0), std::move(byName));
}

unsigned int TypeDataInterface::P_FindAttribute(unsigned int metaclass, Identifier const& identifier) const {
    return m_registry != nullptr ? m_registry->FindAttributeHandle(metaclass, identifier, 0, true) : 0;
}

/// What a type gains after its children stands in another place there.
bool TypeDataInterface::P_IsInDescendants(unsigned int attribute, Identifier const& identifier) const {
    qzStlVector<unsigned int> descendants;
    m_registry->FindChildrenHandles(m_metaclass, descendants, true, false);
    return std::ranges::all_of(descendants, [&](unsigned int metaclass) {
        return P_FindAttribute(metaclass, identifier) == attribute;
    });
}

} // namespace qzDescriptor
