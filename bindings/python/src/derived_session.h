#pragma once

#include "handles.h"

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

/// Sessions that are written in Python: C++ calls what a Python class overrides. What fails there is
/// reported, and answered as a failure.

namespace qzPython {

/// What those who read a session have in common.
struct SessionReaders {
    unsigned int count = 0;
    std::optional<Kept> registry; // one of Python's, which would take the session with it
    std::vector<Kept> displaced;  // objects that the session no longer has, and somebody may still read
};

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
    bool IsRead() const { return m_readers->count > 0; }

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
    /// Makes that object, if any, the one of the entity. The one before ends, when nobody reads it.
    void P_HandOut(Entity const& entity, std::optional<Kept> object) const;

    std::shared_ptr<SessionReaders> m_readers = std::make_shared<SessionReaders>();
    std::shared_ptr<SessionToken> m_token; // for hooks that end the session
    // What was handed out lives on until the entity is deleted or has another object.
    mutable std::unordered_map<Entity, Kept, EntityHash> m_handedOut;
};

/// While one lives, scripts end neither the session, should it be one that asks them what is in it, nor its
/// registry, should that be one of Python, nor what the session has handed out.
class SessionReading {
public:
    explicit SessionReading(ISession const& session);
    ~SessionReading();
    SessionReading(SessionReading const&) = delete;
    SessionReading& operator=(SessionReading const&) = delete;

    /// What would end with this one goes on living there.
    void TakeDisplaced(std::vector<Kept>& into);

private:
    std::shared_ptr<SessionReaders> m_readers;
};

/// A session for the length of one question.
class SessionInUse {
public:
    /// Throws Ended.
    explicit SessionInUse(SessionHandle const& session) : m_session(session.Get()), m_reading(m_session) {}

    ISession& operator*() const { return m_session; }
    ISession* operator->() const { return &m_session; }

private:
    ISession& m_session;
    SessionReading m_reading;
};

} // namespace qzPython
