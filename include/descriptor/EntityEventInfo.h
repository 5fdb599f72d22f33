#pragma once

#include "descriptor/EntityFullType.h"
#include "descriptor/Identifier.h"
#include "qzutl/qzStlVector.h"
#include "qzutl/qzVariant.h"

#include <cstdint>

namespace qzDescriptor {

/// What happened to entities. Codes from 100 on are the application's own; all others than these are carried
/// unchanged.
enum ENTITY_EVENT_TYPE : std::int32_t {
    ENTITY_EVENT_NONE = 0,
    ENTITY_EVENT_CREATED = 1,
    ENTITY_EVENT_CHANGED = 2, ///< an attribute, which the event's identifier names
    ENTITY_EVENT_DELETED = 3,
    ENTITY_EVENT_OWNER_CHANGED = 4,
    ENTITY_EVENT_APPLICATION = 100
};

/// Something that happened to entities of one type. A plain value, not synchronised.
class QZDESCRIPTOR_API EntityEventInfo {
public:
    EntityEventInfo() = default;

    ENTITY_EVENT_TYPE GetEventType() const { return m_eventType; }
    void SetEventType(ENTITY_EVENT_TYPE eventType) { m_eventType = eventType; }
    EntityFullType const& GetEntityType() const { return m_entityType; }
    void SetEntityType(EntityFullType const& entityType) { m_entityType = entityType; }
    /// The attribute or member concerned; empty when the event is about whole entities.
    Identifier const& GetIdentifier() const { return m_identifier; }
    void SetIdentifier(Identifier const& identifier) { m_identifier = identifier; }

    void AddEntityId(unsigned int id) { m_ids.push_back(id); }
    void AddEntityIdList(qzStlVector<unsigned int> const& ids);
    void GetEntityIdList(qzStlVector<unsigned int>& ids) const { ids = m_ids; }

    /// Every field; the ids in their order.
    friend bool operator==(EntityEventInfo const&, EntityEventInfo const&) = default;

private:
    EntityFullType m_entityType;
    qzStlVector<unsigned int> m_ids;
    Identifier m_identifier;
    ENTITY_EVENT_TYPE m_eventType = ENTITY_EVENT_NONE;
};

/// What a script function that is connected to a signal gets for an event: a text, which is a list in Tcl, of
/// what happened, the type, the attribute and the ids, as in "changed {Special ply} T 1 2 3". An event of
/// another kind begins with its number; without an attribute there is {} in its place.
QZDESCRIPTOR_API qzVariant qzScriptArgument(EntityEventInfo const& event);

} // namespace qzDescriptor
