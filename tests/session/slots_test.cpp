#include "descriptor/ISession.h"
#include "descriptor/Metaobject.h"
#include "support/VirtualSlots.h"

// Sessions and objects are derived outside the library.
#ifdef QZ_HAVE_VIRTUAL_SLOTS

namespace qzDescriptor {
namespace {

struct AnySession : ISession {
    using ISession::GetMetaobject;
    using ISession::P_CollectAll;
    using ISession::P_CreateEntity;
};

TEST(SessionSlots, StandInTheOrderThatSessionsOutsideTheLibraryRelyOn) {
    VirtualSlots slots;
    slots.Next("Create", &ISession::Create);
    slots.Next("Delete", &ISession::Delete);
    slots.Next("Find", &ISession::Find);
    slots.Next("GetOwnedEntities", &ISession::GetOwnedEntities);
    slots.Next("GetOwner", &ISession::GetOwner);
    slots.Next("Collect", &ISession::Collect);
    slots.Destructor();
    slots.Next("GetMetaobject", &AnySession::GetMetaobject);
    slots.Next("P_CreateEntity", &AnySession::P_CreateEntity);
    slots.Next("P_CollectAll", &AnySession::P_CollectAll);
}

struct AnyObject : Metaobject {
    using Metaobject::P_GetActionData;
    using Metaobject::P_SetAllowables;
};

TEST(MetaobjectSlots, StandInTheOrderThatObjectsOutsideTheLibraryRelyOn) {
    using M = Metaobject;
    VirtualSlots slots;
    slots.Next("GetEntityFullType", &M::GetEntityFullType);
    slots.Next("GetEntity", &M::GetEntity);
    slots.Next("GetSession", &M::GetSession);
    slots.Next("GetAttributeIdentifiers", &M::GetAttributeIdentifiers);
    slots.Next("GetActionIdentifiers", &M::GetActionIdentifiers);
    slots.Next("IsActionEnabled", &M::IsActionEnabled);
    slots.Next("IsActionVisible", &M::IsActionVisible);
    slots.Next("GetDefinition", &M::GetDefinition);
    slots.Next("SetAllowables", &M::SetAllowables);
    slots.Next("GetAllowables", &M::GetAllowables);
    slots.Next("GetValue", static_cast<bool (M::*)(Identifier const&, ValuePtr const*&) const>(&M::GetValue));
    slots.Next("GetValue by handle",
               static_cast<bool (M::*)(unsigned int, ValuePtr const*&) const>(&M::GetValue));
    slots.Next("SetValue", &M::SetValue);
    slots.Next("GetValueAsString", &M::GetValueAsString);
    slots.Next("SetValueFromString", &M::SetValueFromString);
    slots.Next("GetDisplayStatus", &M::GetDisplayStatus);
    slots.Next("SetDisplayStatus", &M::SetDisplayStatus);
    slots.Next("GetOwner", &M::GetOwner);
    slots.Next("GetName", &M::GetName);
    slots.Next("InvokeAction", &M::InvokeAction);
    slots.Next("GetContent", &M::GetContent);
    slots.Next("GetDataOperations", &M::GetDataOperations);
    slots.Next("IsValid", &M::IsValid);
    slots.Destructor();
    slots.Next("P_SetAllowables", &AnyObject::P_SetAllowables);
    slots.Next("P_GetActionData", &AnyObject::P_GetActionData);
}

} // namespace
} // namespace qzDescriptor

#endif
