// Which metaclass may own entities of which, and under which attribute.

#include "descriptor/MetaclassMgr.h"
#include "registry/MetaclassMgrPrivate.h"

#include <algorithm>

namespace qzDescriptor {

bool MetaclassMgr::SetOwnership(unsigned int child, unsigned int owner, unsigned int ownerAttribute) {
    m_private->ownership[child][owner].push_back(ownerAttribute);
    m_private->ownerAttributes[owner].insert(ownerAttribute);
    return true;
}

bool MetaclassMgr::GetOwnership(unsigned int child, unsigned int owner,
                                qzStlVector<unsigned int>& ownerAttributes) const {
    auto const owners = m_private->ownership.find(child);
    if (owners == m_private->ownership.end())
        return false;
    auto const attributes = owners->second.find(owner);
    if (attributes != owners->second.end())
        ownerAttributes.insert(ownerAttributes.end(), attributes->second.begin(), attributes->second.end());
    return true;
}

bool MetaclassMgr::GetOwnership(unsigned int child,
                                std::map<unsigned int, qzStlVector<unsigned int>>& owners) const {
    auto const known = m_private->ownership.find(child);
    if (known == m_private->ownership.end())
        return false;
    owners = known->second;
    return true;
}

// Rules speak about the metaclass's own set; a configuration shows some of its attributes under handles of
// its own.
bool MetaclassMgr::GetOwnerAttributeHandles(unsigned int metaclass, qzStlVector<unsigned int>& attributes,
                                            unsigned int config) const {
    attributes.clear();
    Members const* const members = m_private->FindMembers(metaclass, 0);
    Members const* const shown = m_private->FindMembers(metaclass, config);
    auto const known = m_private->ownerAttributes.find(metaclass);
    if (members == nullptr || shown == nullptr || known == m_private->ownerAttributes.end())
        return false;
    for (unsigned int const attribute : known->second) {
        if (attribute == 0 || attribute > members->GetVariableCount())
            continue;
        Identifier const& id = members->GetVariableIdentifier(attribute - 1);
        unsigned int const index =
            shown == members ? attribute - 1 : shown->FindVariableIndexFromIdentifier(id, 0, false);
        if (index != Members::s_none)
            attributes.push_back(index + 1);
    }
    std::ranges::sort(attributes);
    return !attributes.empty();
}

} // namespace qzDescriptor
