#include "registry/TestRegistry.h"
#include "support/VirtualSlots.h"

// Registries are derived outside the library.
#ifdef QZ_HAVE_VIRTUAL_SLOTS

namespace qzDescriptor::test {
namespace {

TEST(RegistrySlots, StandInTheOrderThatRegistriesOutsideTheLibraryRelyOn) {
    using M = MetaclassMgr;
    using Handle = unsigned int;
    VirtualSlots slots;
    slots.Destructor();
    slots.Next("SetOwnership", &M::SetOwnership);
    slots.Next("RegisterMetaclass", &M::RegisterMetaclass);
    slots.Next("CheckParent", &M::CheckParent);
    slots.Next("GetOwnership by owner",
               static_cast<bool (M::*)(Handle, Handle, qzStlVector<Handle>&) const>(&M::GetOwnership));
    slots.Next("GetOwnership", static_cast<bool (M::*)(Handle, std::map<Handle, qzStlVector<Handle>>&) const>(
                                   &M::GetOwnership));
    slots.Next(
        "GetEntityFullTypeFromMetaclass by name",
        static_cast<bool (M::*)(qzString const&, EntityFullType&) const>(&M::GetEntityFullTypeFromMetaclass));
    slots.Next("GetEntityFullTypeFromMetaclass",
               static_cast<bool (M::*)(Handle, EntityFullType&) const>(&M::GetEntityFullTypeFromMetaclass));
    slots.Next("GetRegisteredEntityFullTypes", &M::GetRegisteredEntityFullTypes);
    slots.Next("GetMetaclass", &M::GetMetaclass);
    slots.Next("GetMetaclassHandle", &M::GetMetaclassHandle);
    slots.Next("GetNamedIdentifier", &M::GetNamedIdentifier);
    slots.Next("CreateSession", &TestRegistry::CreateSession);
}

} // namespace
} // namespace qzDescriptor::test

#endif
