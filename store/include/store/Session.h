#pragma once

#include "descriptor/ISession.h"
#include "descriptor/Identifier.h"
#include "store/Export.h"

#include <atomic>
#include <memory>
#include <vector>

namespace qzDescriptor::store {

class Object;
class Population;

/// A session whose objects are kept in memory, by metaclass and in the order of their creation.
///
///     Entity plate;
///     session.Create(EntityFullType("Plate"), plate, Entity(), Identifier());    // takes the next free id
///     session.CreateWithId(EntityFullType("Plate"), 101, plate, Entity(), Identifier());
///     session.Get(plate)->SetValue(Identifier("T"), Value(2.5));
///     session.Delete(plate);                                                      // and all that it owns
///
/// Listeners of its signal handler are told of every entity that is created, changed or deleted, once it has
/// happened: the ids of deleted entities come by type, owners before what they owned. Listeners may do
/// anything, end the session included. What they throw passes through, behind a change that is done.
///
/// One thread changes it; any number may read while nothing changes.
class QZSTORE_API Session : public ISession {
public:
    Session(qzString const& name, MetaclassMgr* registry);
    Session(Session const&) = delete;
    Session& operator=(Session const&) = delete;
    /// Tells the listeners first, while everything is still there to be read.
    ~Session() override;

    /// As Create, under an id that the caller chooses: not 0, and not that of another entity of the type.
    qzReturnStatus CreateWithId(EntityFullType const& type, unsigned int id, Entity& created,
                                Entity const& owner, Identifier const& ownerAttribute);
    qzReturnStatus Delete(Entity const& entity) override;
    /// As Get, for those who give an object allowed values of its own; null when there is none.
    Object* GetObject(Entity const& entity) const;
    /// Compares names as Object::GetName gives them; the first in the order of creation.
    bool Find(EntityFullType const& type, qzString const& name, Entity& entity) const override;
    void GetOwnedEntities(EntityListBag& owned, Entity const& owner,
                          Identifier const& ownerAttribute) const override;
    bool GetOwner(Entity const& entity, Entity& owner, Identifier& ownerAttribute) const override;

    /// As that of the base, and faster: values are read as they lie. Derived sessions, which may list and
    /// find objects in their own way, have that of the base.
    unsigned long long Collect(EntityList& out, EntityFullType const& type,
                               std::string const& query) const override;
    /// Puts what a query finds of a type and of all types that descend from it into the bag, a list for each;
    /// returns how many they are.
    unsigned long long CollectInstances(EntityListBag& out, EntityFullType const& type,
                                        std::string const& query) const;
    /// How many entities of exactly this type there are.
    unsigned int GetCount(EntityFullType const& type) const;

    /// Which attribute holds the name of an object: "name" at first.
    Identifier const& GetNameAttribute() const { return m_nameAttribute; }
    void SetNameAttribute(Identifier const& attribute) { m_nameAttribute = attribute; }

protected:
    Metaobject const* GetMetaobject(Entity const& entity) const override;
    qzReturnStatus P_CreateEntity(EntityFullType const& type, Entity& created, Entity const& owner,
                                  Identifier const& ownerAttribute) const override;
    void P_CollectAll(EntityList& out, EntityFullType const& type, std::string const& query) const override;

private:
    friend class Object;

    Object* P_Find(Entity const& entity) const;
    Population* P_FindPopulation(EntityFullType const& type) const;
    Population* P_GetPopulation(EntityFullType const& type) const;
    void P_EmitChanged(Object const& object, unsigned int attribute) const;

    // Creation is const: what changes is the application's population.
    mutable std::vector<std::unique_ptr<Population>>
        m_populations;                                      // by metaclass handle; null until one lives
    mutable std::atomic<Population*> m_lastFound = nullptr; // most look-ups are for the type of the last one
    mutable unsigned int m_wantedId = 0;
    Identifier m_nameAttribute;
    std::shared_ptr<bool const> m_alive; // expires with the session, for those who may have ended it
};

} // namespace qzDescriptor::store
