#pragma once

#include "bindings.h"

#include "descriptor/ISession.h"
#include "descriptor/Metaobject.h"
#include "store/Session.h"

#include <functional>
#include <memory>
#include <vector>

/// What Python holds of sessions, objects and registries: handles that know when these have ended.

namespace qzPython {

struct EntityHash {
    std::size_t operator()(Entity const& entity) const {
        return EntityFullType::hash()(entity.GetEntityFullType()) * 31 + entity.GetId();
    }
};

/// Knows of one session whether it still is. The session's own signal handler keeps the proof, so that no end
/// goes unnoticed.
class SessionToken {
public:
    /// The token of a session, the same one for as long as the session lives.
    static std::shared_ptr<SessionToken> Of(ISession& session);

    /// Null once it has ended.
    ISession* Find() const { return m_session; }
    /// Listeners of the end are called, in order, while the session can still be read.
    void AddEndListener(Kept const& listener) { m_endListeners.push_back(listener); }

private:
    friend class EndSlot;

    void P_TellEnd();
    void P_End();

    ISession* m_session = nullptr;
    std::vector<Kept> m_endListeners;
};

/// `Session` in Python.
class SessionHandle {
public:
    SessionHandle() = default;
    explicit SessionHandle(ISession& session) : m_token(SessionToken::Of(session)) {}

    /// Throws Ended.
    ISession& Get() const;
    /// A session with objects in memory; throws Refused for any other.
    store::Session& GetStore() const;
    ISession* Find() const { return m_token ? m_token->Find() : nullptr; }
    std::shared_ptr<SessionToken> const& GetToken() const { return m_token; }

    friend bool operator==(SessionHandle const&, SessionHandle const&) = default;

private:
    std::shared_ptr<SessionToken> m_token;
};

/// `Object` in Python: an entity of a session, looked up at every use; or an object itself, one that is
/// written in Python or one that a callback was given and that no session finds, for as long as the call
/// lasts.
class ObjectHandle {
public:
    ObjectHandle() = default;
    ObjectHandle(SessionHandle session, Entity entity)
        : m_session(std::move(session)), m_entity(std::move(entity)) {}
    ObjectHandle(std::shared_ptr<Metaobject const*> lent, SessionHandle session, Entity entity)
        : m_session(std::move(session)), m_entity(std::move(entity)), m_lent(std::move(lent)) {}

    /// Throws Ended.
    Metaobject const& Get() const;
    Metaobject const* Find() const;
    Entity const& GetEntity() const { return m_entity; }
    SessionHandle const& GetSession() const { return m_session; }

    friend bool operator==(ObjectHandle const&, ObjectHandle const&) = default;

private:
    SessionHandle m_session;
    Entity m_entity;
    std::shared_ptr<Metaobject const*> m_lent;
};

class PythonRegistry;

/// `Registry` in Python: one of its own, or another one for as long as its session lives.
class RegistryHandle {
public:
    /// A registry of its own; one of a derived class asks the methods of that class.
    explicit RegistryHandle(bool isDerived);
    RegistryHandle(MetaclassMgr& registry, std::function<bool()> isAlive);
    RegistryHandle(RegistryHandle const&) = delete;
    RegistryHandle& operator=(RegistryHandle const&) = delete;
    ~RegistryHandle();

    /// Throws Ended.
    MetaclassMgr& Get() const;
    PythonRegistry* GetOwn() const { return m_own.get(); }

private:
    std::unique_ptr<PythonRegistry> m_own;
    MetaclassMgr* m_registry = nullptr;
    std::function<bool()> m_isAlive;
};

/// The Python object for a session: None for null, and itself for one that is written in Python.
py::object GiveSession(ISession* session);
py::object GiveObject(Metaobject const* object, SessionHandle const& session);
py::object GiveRegistry(MetaclassMgr* registry, std::function<bool()> isAlive);

/// Makes a handle of an object for the length of a call, whoever holds the object.
class LentObject {
public:
    explicit LentObject(Metaobject const* object);
    ~LentObject();
    LentObject(LentObject const&) = delete;
    LentObject& operator=(LentObject const&) = delete;

    py::object const& Get() const { return m_given; }
    /// Whether the object has ended since, with another one in its place or none.
    bool IsGone() const;

private:
    Metaobject const* m_object = nullptr; ///< of a session's own, which nothing keeps: only to compare with
    std::shared_ptr<Metaobject const*> m_lent;
    py::object m_given;
};

/// The entity of an `Entity`, or of an `Object`.
Entity ToEntity(py::handle object);

} // namespace qzPython
