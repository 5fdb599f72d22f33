#pragma once

#include "descriptor/EntityEventInfo.h"

namespace qzDeck {

/// What listeners are told of entities of one type, and of one of their attributes where one is concerned.
inline qzDescriptor::EntityEventInfo
MakeEvent(qzDescriptor::ENTITY_EVENT_TYPE what, qzDescriptor::EntityFullType const& type,
          qzStlVector<unsigned int> const& ids,
          qzDescriptor::Identifier const& attribute = qzDescriptor::Identifier()) {
    qzDescriptor::EntityEventInfo event;
    event.SetEventType(what);
    event.SetEntityType(type);
    event.SetIdentifier(attribute);
    event.AddEntityIdList(ids);
    return event;
}

} // namespace qzDeck
