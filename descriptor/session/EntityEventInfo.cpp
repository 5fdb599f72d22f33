#include "descriptor/EntityEventInfo.h"

namespace qzDescriptor {

void EntityEventInfo::AddEntityIdList(qzStlVector<unsigned int> const& ids) {
    m_ids.insert(m_ids.end(), ids.begin(), ids.end());
}

} // namespace qzDescriptor
