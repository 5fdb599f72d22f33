#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "qzutl/qzString.h"

namespace qzDescriptor {

/// A named population of entities over a registry.
class QZDESCRIPTOR_API ISession {
public:
    virtual ~ISession();
    ISession(ISession const&) = delete;
    ISession& operator=(ISession const&) = delete;

    qzString GetName() const { return m_name; }
    MetaclassMgr* GetMetaclassMgr() const { return m_registry; }

protected:
    ISession(qzString const& name, MetaclassMgr* registry);

private:
    friend class MetaclassMgr;

    MetaclassMgr* m_registry;
    qzString m_name;
    MetaclassMgr* m_registeredWith = nullptr;
    bool m_isEnding = false;
};

} // namespace qzDescriptor
