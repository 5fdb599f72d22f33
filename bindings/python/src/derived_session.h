#pragma once

#include "handles.h"

#include <memory>
#include <unordered_map>

/// Sessions that are written in Python: C++ calls what a Python class overrides. What fails there is
/// reported, and answered as a failure.

namespace qzPython {

/// `CustomSession` in Python, which C++ keeps for as long as there is the session behind it.
class CustomSessionHandle : public SessionHandle {
public:
    using SessionHandle::SessionHandle;
};

/// The session behind a `CustomSession`. It belongs to its registry.
class DerivedSession final : public ISession {
public:
    DerivedSession(qzString const& name, MetaclassMgr& registry, py::object self);
    ~DerivedSession() override;

    py::object GetSelf() const { return m_self.Get(); }

    qzReturnStatus Create(EntityFullType const& type, Entity& created, Entity const& owner,
                          Identifier const& ownerAttribute) const override;
    unsigned long long Collect(EntityList& out, EntityFullType const& type,
                               std::string const& query) const override;
    qzReturnStatus Delete(Entity const& entity) override;
    bool Find(EntityFullType const& type, qzString const& name, Entity& entity) const override;
    void GetOwnedEntities(EntityListBag& owned, Entity const& owner,
                          Identifier const& ownerAttribute) const override;
    bool GetOwner(Entity const& entity, Entity& owner, Identifier& ownerAttribute) const override;

protected:
    Metaobject const* GetMetaobject(Entity const& entity) const override;
    qzReturnStatus P_CreateEntity(EntityFullType const& type, Entity& created, Entity const& owner,
                                  Identifier const& ownerAttribute) const override;
    void P_CollectAll(EntityList& out, EntityFullType const& type, std::string const& query) const override;

private:
    Kept m_self;
    std::shared_ptr<SessionToken> m_token; // for hooks that end the session
    // What was handed out lives on until the entity is deleted or has another object.
    mutable std::unordered_map<Entity, Kept, EntityHash> m_handedOut;
};

} // namespace qzPython
