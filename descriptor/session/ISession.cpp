#include "descriptor/ISession.h"

#include "descriptor/Entity.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/Identifier.h"
#include "descriptor/Members.h"
#include "descriptor/MetaclassMgr.h"
#include "descriptor/ScriptSession.h"
#include "descriptor/qzSigSlotHandler.h"

namespace qzDescriptor {

ISession::ISession() : m_handler(std::make_unique<qzSigSlotHandler>()) {}

ISession::ISession(qzString const& name, MetaclassMgr* registry)
    : m_handler(std::make_unique<qzSigSlotHandler>()), m_registry(registry), m_name(name) {
    if (m_registry != nullptr && m_registry->P_SessionCreated(this))
        m_registeredWith = m_registry;
}

ISession::ISession(ISession const& other)
    : m_handler(std::make_unique<qzSigSlotHandler>()), m_registry(other.m_registry), m_name(other.m_name) {}

ISession& ISession::operator=(ISession const& other) {
    m_registry = other.m_registry;
    m_name = other.m_name;
    return *this;
}

void ISession::P_AnnounceEnd() {
    if (m_isEnding)
        return;
    m_isEnding = true;
    if (m_registeredWith != nullptr)
        m_registeredWith->P_SessionEnding(this);
    try {
        m_handler->Emit(EVENT_CATEGORY_SESSION_END, m_name);
    } catch (...) { // this is part of a destructor: the session ends, whatever its listeners say
    }
}

ISession::~ISession() {
    m_hasEntities = false;
    P_AnnounceEnd();
    if (m_registeredWith != nullptr)
        m_registeredWith->P_SessionDeleted(this);
    ScriptSessionScope::P_Forget(this);
}

Metaobject const* ISession::Get(Entity const& entity) const {
    return m_hasEntities && entity.GetEntityFullType().IsValid() ? GetMetaobject(entity) : nullptr;
}

bool ISession::IsA(Entity const& entity, EntityFullType type) const {
    return m_registry != nullptr &&
           m_registry->CheckParent(m_registry->GetMetaclassHandle(entity.GetEntityFullType()),
                                   m_registry->GetMetaclassHandle(type));
}

EntityFullType ISession::GetParentType(EntityFullType const& type) const {
    qzString name, parentName;
    if (m_registry == nullptr ||
        !m_registry->GetNameAndOfParent(m_registry->GetMetaclassHandle(type), name, parentName))
        return EntityFullType();
    return EntityFullType(parentName);
}

unsigned int ISession::GetDatanameIdentifiers(EntityFullType type, std::vector<Identifier>& out) const {
    if (m_registry == nullptr)
        return 0;
    Members const* const members = m_registry->GetMembers(m_registry->GetMetaclassHandle(type), 0);
    return members != nullptr ? members->GetVariableIdentifiers(out, false, false) : 0;
}

unsigned int ISession::GetOwnedList(Entity const& owner, EntityFullType const& type,
                                    Identifier const& ownerAttribute, EntityList& out) const {
    EntityListBag owned;
    if (m_hasEntities)
        GetOwnedEntities(owned, owner, ownerAttribute);
    out = static_cast<EntityListBag const&>(owned).GetList(type);
    return out.GetIdListCount();
}

unsigned long long ISession::GetAllEntities(EntityListBag& out) const {
    if (m_registry == nullptr)
        return 0;
    qzStlVector<EntityFullType> types;
    m_registry->GetRegisteredEntityFullTypes(types);
    unsigned long long count = 0;
    for (EntityFullType const& type : types) {
        EntityList entities;
        count += Collect(entities, type, std::string());
        if (!entities.GetEntityFullType().IsValid())
            entities.SetEntityFullType(type);
        out.SetList(entities);
    }
    return count;
}

} // namespace qzDescriptor
