#include "descriptor/ScriptSession.h"

#include "descriptor/MetaclassMgr.h"

namespace qzDescriptor {

namespace {

MetaclassMgr* s_scriptRegistry = nullptr;
ScriptSessionScope* s_innermost = nullptr;

} // namespace

void SetScriptRegistry(MetaclassMgr* registry) { s_scriptRegistry = registry; }
MetaclassMgr* GetScriptRegistry() { return s_scriptRegistry; }

ISession* GetScriptSession() {
    if (s_innermost != nullptr)
        return s_innermost->m_session;
    return s_scriptRegistry != nullptr ? s_scriptRegistry->P_FindCurrentSession() : nullptr;
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
