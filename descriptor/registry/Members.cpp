#include "descriptor/Members.h"

#include "registry/MembersPrivate.h"

#include <algorithm>

namespace qzDescriptor {

Members::~Members() = default;

Members* Members::Create(qzString const& name, bool uniqueIdentifiers, unsigned int capacity,
                         unsigned int growth) {
    return CreateWithParent(name, nullptr, uniqueIdentifiers, capacity, growth);
}

Members* Members::CreateWithParent(qzString const& name, Members const* parent, bool uniqueIdentifiers,
                                   unsigned int capacity, unsigned int growth) {
    constexpr unsigned int s_most = 1024; // hints come from callers and cost memory
    auto members =
        std::make_unique<MembersPrivate>(name, parent, uniqueIdentifiers, std::min(growth, s_most));
    members->Reserve(std::min(capacity, s_most));
    return members.release();
}

unsigned int Members::InsertVariable(Identifier const& id, Definition const& definition,
                                     Identifier const& secondaryId, bool replace, unsigned int at,
                                     qzString const& memberName, qzStlVector<qzString> const& configNames) {
    return InsertVariable(id, std::make_shared<Definition const>(definition), secondaryId, replace, at,
                          memberName, configNames);
}

unsigned int Members::InsertAction(Identifier const& id, ActionDefinition const& definition, bool replace,
                                   unsigned int at, qzString const& memberName,
                                   qzStlVector<qzString> const& configNames) {
    return InsertAction(id, std::make_shared<ActionDefinition const>(definition), replace, at, memberName,
                        configNames);
}

} // namespace qzDescriptor
