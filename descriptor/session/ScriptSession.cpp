#include "descriptor/ScriptSession.h"

#include "descriptor/MetaclassMgr.h"

#include <atomic>

namespace qzDescriptor {

namespace {

std::atomic<MetaclassMgr*> s_scriptRegistry = nullptr;
thread_local ScriptSessionScope* s_innermost = nullptr; // scripts of several sessions may run at once

} // namespace

void SetScriptRegistry(MetaclassMgr* registry) { s_scriptRegistry = registry; }
MetaclassMgr* GetScriptRegistry() { return s_scriptRegistry; }

ISession* GetScriptSession() {
    if (s_innermost != nullptr)
        return s_innermost->m_session;
    MetaclassMgr const* const registry = s_scriptRegistry;
    return registry != nullptr ? registry->P_FindCurrentSession() : nullptr;
}

ScriptSessionScope::ScriptSessionScope(ISession* session) : m_session(session), m_outer(s_innermost) {
    s_innermost = this;
}

ScriptSessionScope::~ScriptSessionScope() { s_innermost = m_outer; }

void ScriptSessionScope::P_Forget(ISession const* session) {
    for (ScriptSessionScope* scope = s_innermost; scope != nullptr; scope = scope->m_outer) {
        if (scope->m_session == session)
            scope->m_session = nullptr;
    }
}

} // namespace qzDescriptor
