// Metaclasses as types of entities. Operations go through the virtual ones, which an application may replace.

#include "descriptor/EntityFullType.h"
#include "descriptor/MetaclassMgr.h"
#include "registry/MetaclassMgrPrivate.h"

namespace qzDescriptor {

bool MetaclassMgr::GetEntityFullTypeFromMetaclass(unsigned int metaclass, EntityFullType& type) const {
    MetaclassRecord const* const record = m_private->Find(metaclass);
    type = record == nullptr ? EntityFullType() : EntityFullType(record->name);
    return true;
}

bool MetaclassMgr::GetEntityFullTypeFromMetaclass(qzString const& name, EntityFullType& type) const {
    unsigned int const metaclass = FindHandle(name);
    return metaclass != 0 && GetEntityFullTypeFromMetaclass(metaclass, type);
}

EntityFullType MetaclassMgr::RegisterMetaclass(unsigned int metaclass) const {
    EntityFullType type;
    GetEntityFullTypeFromMetaclass(metaclass, type);
    return type;
}

bool MetaclassMgr::GetRegisteredEntityFullTypes(qzStlVector<EntityFullType>& types) const {
    bool isAppended = false;
    unsigned int const count = GetHandlesCount(); // those who are asked may insert more, each time
    for (unsigned int metaclass = 1; metaclass <= count; ++metaclass) {
        EntityFullType type;
        if (GetEntityFullTypeFromMetaclass(metaclass, type)) {
            types.push_back(type);
            isAppended = true;
        }
    }
    return isAppended;
}

bool MetaclassMgr::GetMetaclass(EntityFullType type, qzString& name) const {
    name = type.GetTypeNamed();
    return !name.empty();
}

unsigned int MetaclassMgr::GetMetaclassHandle(EntityFullType type) const {
    qzString name;
    return GetMetaclass(std::move(type), name) ? FindHandle(name) : 0;
}

Identifier MetaclassMgr::GetNamedIdentifier(EntityFullType type, Identifier identifier) const {
    Members const* const members = GetMembers(GetMetaclassHandle(std::move(type)), 0);
    if (identifier.UsesNameKey() || members == nullptr)
        return identifier;
    unsigned int const index = members->FindVariableIndexFromIdentifier(identifier, 0, true);
    for (bool const secondary : {false, true}) {
        Identifier const& candidate = members->GetVariableIdentifier(index, false, secondary);
        if (candidate.UsesNameKey())
            return candidate;
    }
    return identifier;
}

} // namespace qzDescriptor
