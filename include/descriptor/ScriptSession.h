#pragma once

/// Which session a script works on when it does not name one: that of the object whose action is running, and
/// otherwise the current session of the registry that the application has named for scripts.

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

namespace qzDescriptor {

/// Names the registry whose sessions scripts reach; null for none. A registry that ends is forgotten.
QZDESCRIPTOR_API void SetScriptRegistry(MetaclassMgr* registry);
QZDESCRIPTOR_API MetaclassMgr* GetScriptRegistry();

/// The session of the innermost `ScriptSessionScope`, else the current session of the script registry; null
/// when there is none, or it has ended.
QZDESCRIPTOR_API ISession* GetScriptSession();

/// While one lives, scripts of its thread work on its session. Scopes nest, and end in the reverse order.
class QZDESCRIPTOR_API ScriptSessionScope {
public:
    explicit ScriptSessionScope(ISession* session);
    ~ScriptSessionScope();
    ScriptSessionScope(ScriptSessionScope const&) = delete;
    ScriptSessionScope& operator=(ScriptSessionScope const&) = delete;

private:
    friend class ISession;
    friend QZDESCRIPTOR_API ISession* GetScriptSession();

    // A session that ends is taken out of every scope.
    static void P_Forget(ISession const* session);

    ISession* m_session;
    ScriptSessionScope* m_outer;
};

} // namespace qzDescriptor
