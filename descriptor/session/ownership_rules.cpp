// Which entity may be created under which owner: the rules that a registry holds, applied for a session.

#include "descriptor/Entity.h"
#include "descriptor/ISession.h"
#include "descriptor/Identifier.h"
#include "descriptor/MetaclassMgr.h"
#include "qzutl/qzStlVector.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace qzDescriptor {

qzReturnStatus ISession::Create(EntityFullType const& type, Entity& created, Entity const& owner,
                                Identifier const& ownerAttribute) const {
    if (!type.IsValid())
        return {-1, "Invalid entity type"};
    Identifier attribute = ownerAttribute;
    qzReturnStatus const allowed = P_CheckOwnershipRules(type, owner.GetEntityFullType(), attribute);
    if (allowed.status != 0)
        return allowed;
    if (!m_hasEntities)
        return {-1, "The session is at its end."};
    return P_CreateEntity(type, created, owner, attribute);
}

qzReturnStatus ISession::P_CheckOwnershipRules(EntityFullType const& child, EntityFullType const& owner,
                                               Identifier& attribute) const {
    if (m_registry == nullptr)
        return {-1, "MetaclassMgr is null."};
    if (!owner.IsValid())
        return P_CheckNoOwnerNeeded(child);
    try {
        return P_CheckOwnershipOfAncestry(child, owner, attribute);
    } catch (std::exception const& reason) {
        return {-1, reason.what()};
    }
}

// Rules hold for all descendants of the metaclass that they are declared for. A registry that is derived may
// map types to metaclasses in circles: no ancestry is longer than there are metaclasses.
qzReturnStatus ISession::P_CheckOwnershipOfAncestry(EntityFullType const& child, EntityFullType const& owner,
                                                    Identifier& attribute) const {
    qzReturnStatus result;
    EntityFullType current = child;
    for (unsigned int n = 0; n <= m_registry->GetHandlesCount() && current.IsValid(); ++n) {
        result = P_CheckDirectOwnership(current, owner, attribute);
        if (result.status == 0)
            break;
        current = GetParentType(current);
    }
    return result;
}

qzReturnStatus ISession::P_CheckNoOwnerNeeded(EntityFullType const& child) const {
    EntityFullType current = child;
    for (unsigned int n = 0; n <= m_registry->GetHandlesCount() && current.IsValid(); ++n) {
        std::map<unsigned int, qzStlVector<unsigned int>> owners;
        if (m_registry->GetOwnership(m_registry->GetMetaclassHandle(current), owners) && !owners.empty())
            return {-1, "Owner is manadatory for this type."};
        current = GetParentType(current);
    }
    return {};
}

qzReturnStatus ISession::P_CheckDirectOwnership(EntityFullType const& child, EntityFullType const& owner,
                                                Identifier& attribute) const {
    if (m_registry == nullptr)
        return {-1, "MetaclassMgr is null."};
    unsigned int const ownerHandle = m_registry->GetMetaclassHandle(owner);
    std::map<unsigned int, qzStlVector<unsigned int>> owners;
    m_registry->GetOwnership(m_registry->GetMetaclassHandle(child), owners);
    auto const rule = owners.find(ownerHandle);
    if (rule == owners.end())
        return {-1, "No valid ownership rule found to create entity under owner."};
    qzStlVector<unsigned int> const& attributes = rule->second;
    if (attribute.IsValid()) {
        unsigned int const handle = m_registry->FindAttributeHandle(ownerHandle, attribute, 0, false);
        if (std::find(attributes.begin(), attributes.end(), handle) == attributes.end())
            throw std::runtime_error("Identifier is not valid for ownership of given entity.");
        return {};
    }
    if (attributes.size() != 1)
        throw std::runtime_error("Multiple identifiers found for ownership of given entity. Specify which "
                                 "identifier to use.");
    attribute = m_registry->GetIdentifier(ownerHandle, attributes.front(), 0, false);
    return {};
}

} // namespace qzDescriptor
