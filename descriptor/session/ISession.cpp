#include "descriptor/ISession.h"

#include "descriptor/MetaclassMgr.h"

namespace qzDescriptor {

ISession::ISession(qzString const& name, MetaclassMgr* registry) : m_registry(registry), m_name(name) {
    if (m_registry != nullptr && m_registry->P_SessionCreated(this))
        m_registeredWith = m_registry;
}

ISession::~ISession() {
    m_isEnding = true;
    if (m_registeredWith != nullptr) {
        m_registeredWith->P_SessionEnding(this);
        m_registeredWith->P_SessionDeleted(this);
    }
}

} // namespace qzDescriptor
