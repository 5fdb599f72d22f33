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
    /// Whether somebody walks over what is in the session, who would not survive its end.
    bool IsRead() const { return *m_readers > 0; }

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
    friend class SessionReading;

    Kept m_self;
    std::shared_ptr<unsigned int> m_readers = std::make_shared<unsigned int>(0);
    std::shared_ptr<SessionToken> m_token; // for hooks that end the session
    // What was handed out lives on until the entity is deleted or has another object.
    mutable std::unordered_map<Entity, Kept, EntityHash> m_handedOut;
};

/// While one lives, scripts do not end the session, should it be one that asks them what is in it.
class SessionReading {
public:
    explicit SessionReading(ISession const& session) {
        if (auto const* const derived = dynamic_cast<DerivedSession const*>(&session)) {
            m_readers = derived->m_readers;
            ++*m_readers;
        }
    }
    ~SessionReading() {
        if (m_readers)
            --*m_readers;
    }
    SessionReading(SessionReading const&) = delete;
    SessionReading& operator=(SessionReading const&) = delete;

private:
    std::shared_ptr<unsigned int> m_readers;
};

} // namespace qzPython
