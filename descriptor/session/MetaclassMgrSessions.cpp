// The registry's table of sessions. The operations belong to MetaclassMgr, whose folder knows nothing of
// sessions.

#include "descriptor/ISession.h"
#include "descriptor/MetaclassMgr.h"
#include "descriptor/ScriptSession.h"
#include "registry/MetaclassMgrPrivate.h"

#include <algorithm>
#include <map>

namespace qzDescriptor {

namespace {

using Table = std::map<qzString, ISession*>;

/// A session may have been given another name since it entered the table.
Table::iterator FindSession(Table& table, qzString const& name, ISession const* session) {
    auto found = table.find(name);
    if (found == table.end() || found->second != session)
        found = std::ranges::find(table, session, &Table::value_type::second);
    return found;
}

} // namespace

ISession* MetaclassMgr::GetSession(qzString const& name) {
    if (name.empty()) {
        if (m_private->currentSession != nullptr)
            return m_private->currentSession;
    } else if (auto const known = m_private->sessions.find(name); known != m_private->sessions.end()) {
        return known->second;
    }
    // The derived registry, which makes sessions, is gone before the sessions are.
    if (m_private->end != MetaclassMgrPrivate::End::No)
        return nullptr;
    ISession* const session = CreateSession(name);
    // One made over no registry is ours now; one that another registry has stays there.
    if (session != nullptr && session->m_registeredWith == nullptr && P_SessionCreated(session))
        session->m_registeredWith = this;
    return session;
}

bool MetaclassMgr::SetCurrentSession(qzString const& name) {
    auto const known = m_private->sessions.find(name);
    if (known == m_private->sessions.end())
        return false;
    m_private->currentSession = known->second;
    return true;
}

ISession* MetaclassMgr::P_FindCurrentSession() const {
    Table const& sessions = m_private->sessions;
    auto const known = std::ranges::find(sessions, m_private->currentSession, &Table::value_type::second);
    return known != sessions.end() ? known->second : nullptr;
}

bool MetaclassMgr::P_SessionCreated(ISession* session) {
    if (m_private->end == MetaclassMgrPrivate::End::LastSessions)
        return false;
    Table& table = m_private->sessions;
    bool const isTaken = table.try_emplace(session->GetName(), session).second;
    if (table.size() == 1)
        m_private->currentSession = table.begin()->second;
    return isTaken;
}

void MetaclassMgr::P_SessionEnding(ISession* session) { m_private->endingSessions.insert(session); }

// The current session stays what it was, ended or not: callers compare with it.
void MetaclassMgr::P_SessionDeleted(ISession* session) {
    m_private->endingSessions.erase(session);
    auto const known = FindSession(m_private->sessions, session->GetName(), session);
    if (known != m_private->sessions.end())
        m_private->sessions.erase(known);
}

// Listeners of the end may ask for it once more.
void MetaclassMgr::RemoveSession(ISession* session) {
    if (session == nullptr || session->m_isEnding || m_private->endingSessions.contains(session))
        return;
    P_SessionDeleted(session);
    P_SessionEnding(session);
    delete session;
    m_private->endingSessions.erase(session);
}

// One at a time: listeners may end other sessions, and begin new ones. New ones are deleted in a second
// round; what begins in that is left to those who began it, for it might never end.
void MetaclassMgr::P_DeleteSessions() {
    using End = MetaclassMgrPrivate::End;
    for (End const stage : {End::Begun, End::LastSessions}) {
        m_private->end = stage;
        Table const sessions = m_private->sessions;
        for (auto const& [name, session] : sessions) {
            auto const known = m_private->sessions.find(name);
            if (known != m_private->sessions.end() && known->second == session)
                RemoveSession(session);
        }
    }
    if (GetScriptRegistry() == this)
        SetScriptRegistry(nullptr);
}

} // namespace qzDescriptor
