#include "descriptor/EntityList.h"
#include "descriptor/ISession.h"

namespace qzDescriptor {

unsigned long long ISession::Collect(EntityList& out, EntityFullType const& type,
                                     std::string const& query) const {
    if (m_registry == nullptr || !m_hasEntities)
        return 0;
    P_CollectAll(out, type, query);
    return out.GetIdListCount();
}

} // namespace qzDescriptor
