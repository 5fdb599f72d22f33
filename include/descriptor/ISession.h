#pragma once

#include "descriptor/EntityFullType.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "descriptor/qzReturnStatus.h"
#include "qzutl/qzString.h"

#include <memory>
#include <string>
#include <vector>

namespace qzDescriptor {

/// One named population of entities over a registry of metaclasses. What follows from the metaclasses is done
/// here: which entity may be created under which owner, what is an instance of what, which entities a query
/// finds. Where entities are kept is the application's: it derives from this class.
///
///     ISession* const session = registry.GetSession("bridge");
///     Entity part, ply;
///     session->Create(EntityFullType("Laminate"), part, Entity(), Identifier());
///     qzReturnStatus const status = session->Create(EntityFullType("Ply"), ply, part, Identifier("plies"));
///     if (status.status != 0)
///         std::cerr << status.message;
///     EntityList thick;
///     session->Collect(thick, EntityFullType("Ply"), "T > 0.002");
///
/// A session is registered under its name by its construction and tells its end to the listeners of its
/// signal handler. It is not synchronised: a session and its registry are used by one thread at a time, but
/// any number may read while nothing changes. None of its operations throws of its own accord.
class QZDESCRIPTOR_API ISession {
public:
    /// Creates an entity of a type under an owner, if the ownership rules allow it; without one for an empty
    /// `owner`. The attribute of the owner may be left out (an invalid identifier) where only one comes into
    /// question. On failure the status says why, and `created` is what it was.
    virtual qzReturnStatus Create(EntityFullType const& type, Entity& created, Entity const& owner,
                                  Identifier const& ownerAttribute) const;
    /// Ends an entity and all that it owns.
    virtual qzReturnStatus Delete(Entity const& entity) = 0;
    /// Finds an entity of a type by its name; false when there is none.
    virtual bool Find(EntityFullType const& type, qzString const& name, Entity& entity) const = 0;
    /// Fills a bag with what an entity owns under one of its attributes.
    virtual void GetOwnedEntities(EntityListBag& owned, Entity const& owner,
                                  Identifier const& ownerAttribute) const = 0;
    /// The owner of an entity and the attribute under which; false when nothing owns it.
    virtual bool GetOwner(Entity const& entity, Entity& owner, Identifier& ownerAttribute) const = 0;
    /// Lists the entities of a type that a query finds, all of them for an empty one, and returns how many
    /// they are. A query that cannot be read finds none; see CheckQuery for the reason.
    virtual unsigned long long Collect(EntityList& out, EntityFullType const& type,
                                       std::string const& query) const;

    /// Tells the listeners and leaves the registry, in this order; what listeners throw goes no further. A
    /// registry that removes a session, or ends, takes it out of its table before.
    virtual ~ISession();

    /// A session over the same registry and under the same name, which has no entities, no listeners and no
    /// place in the registry: those stay with the other one.
    ISession(ISession const& other);
    /// Takes over the name and the registry; the place in the one that it is registered with stays as it is.
    ISession& operator=(ISession const& other);

    qzString GetName() const { return m_name; }
    MetaclassMgr* GetMetaclassMgr() const { return m_registry; }
    qzSigSlotHandler* GetSigSlotHandler() const { return m_handler.get(); }

    /// The object of an entity; null when there is none.
    Metaobject const* Get(Entity const& entity) const;
    /// Whether the entity's metaclass is the type's or descends from it.
    bool IsA(Entity const& entity, EntityFullType type) const;
    /// The parent of the type's metaclass; an empty type when there is none.
    EntityFullType GetParentType(EntityFullType const& type) const;
    /// Lists the identifiers of a type's attributes and returns how many they are.
    unsigned int GetDatanameIdentifiers(EntityFullType type, std::vector<Identifier>& out) const;
    /// Lists the entities of a type that an entity owns under one of its attributes; returns how many they
    /// are.
    unsigned int GetOwnedList(Entity const& owner, EntityFullType const& type,
                              Identifier const& ownerAttribute, EntityList& out) const;
    /// Puts a list of all entities of each type into the bag; returns how many they are.
    unsigned long long GetAllEntities(EntityListBag& out) const;
    /// Adds the entities that an entity refers to by its attributes, in single values, lists and bags, to the
    /// bag, each once; returns how many they are. An id of 0 refers to nothing.
    unsigned int GetReferred(EntityListBag& out, Entity const& entity) const;

protected:
    /// Registers the session under its name unless that is taken. Without a registry it is a session in which
    /// nothing can be created or found.
    ISession(qzString const& name, MetaclassMgr* registry);

    /// The object of an entity; null when there is none. It is read before the next one is asked for.
    virtual Metaobject const* GetMetaobject(Entity const& entity) const = 0;
    /// Creates an entity whose owner and owner attribute have been found right.
    virtual qzReturnStatus P_CreateEntity(EntityFullType const& type, Entity& created, Entity const& owner,
                                          Identifier const& ownerAttribute) const = 0;
    /// Lists all entities of a type. The query is for those who can narrow the list by it; it is applied to
    /// what they list.
    virtual void P_CollectAll(EntityList& out, EntityFullType const& type,
                              std::string const& query) const = 0;

    /// Tells the listeners of the end now. For destructors of derived sessions: otherwise they are told when
    /// nothing of the derived session is left: what this class does answers then that there are no entities,
    /// and what the derived one did must not be called.
    void P_AnnounceEnd();

private:
    friend class MetaclassMgr;

    ISession();

    // Completes the attribute when it is not given. Throws std::runtime_error for one that no rule allows.
    qzReturnStatus P_CheckDirectOwnership(EntityFullType const& child, EntityFullType const& owner,
                                          Identifier& attribute) const;
    qzReturnStatus P_CheckOwnershipRules(EntityFullType const& child, EntityFullType const& owner,
                                         Identifier& attribute) const;
    qzReturnStatus P_CheckOwnershipOfAncestry(EntityFullType const& child, EntityFullType const& owner,
                                              Identifier& attribute) const;
    qzReturnStatus P_CheckNoOwnerNeeded(EntityFullType const& child) const;

    std::unique_ptr<qzSigSlotHandler> m_handler;
    MetaclassMgr* m_registry = nullptr;
    qzString m_name;
    MetaclassMgr* m_registeredWith = nullptr; // whose table holds it, whatever it is assigned later
    bool m_isEnding = false;                  // its listeners may ask for its end once more
    bool m_hasEntities = true;                // until the derived session is gone
};

} // namespace qzDescriptor
