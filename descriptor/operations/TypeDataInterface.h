#pragma once

#include "descriptor/DataInterface.h"
#include "descriptor/EntityFullType.h"

#include <memory>
#include <vector>

namespace qzDescriptor {

/// Of what the conditions of an `ObjectQuery` are asked: of an object, or of the content of one.
struct QuerySubject {
    Metaobject const* object = nullptr;
    Content const* content = nullptr;
    unsigned int id = 0; ///< of the object that has the content
};

/// What queries know of objects of one type, whose attributes are found once for all of them. Its objects are
/// `QuerySubject`s.
class TypeDataInterface : public DataInterface {
public:
    TypeDataInterface(ISession const& session, EntityFullType const& type);

    bool GetValue(void* subject, qzString const& property, qzVariant& out) override;
    std::unique_ptr<ui::selexpr::IProperty> Bind(qzString const& property) override;

    /// The handles of the attributes that were met, in their order.
    std::vector<unsigned int> const& GetAttributes() const { return m_attributes; }
    /// Properties that the type does not have, in the order in which they were met.
    std::vector<qzString> const& GetUnknown() const { return m_unknown; }

private:
    unsigned int P_FindAttribute(unsigned int metaclass, Identifier const& identifier) const;
    bool P_IsInDescendants(unsigned int attribute, Identifier const& identifier) const;

    MetaclassMgr const* m_registry;
    unsigned int m_metaclass;
    std::vector<unsigned int> m_attributes;
    std::vector<qzString> m_unknown;
};

} // namespace qzDescriptor
