#include "descriptor/DataOperationList.h"

namespace qzDescriptor {

DataOperation const& DataOperationList::Get(unsigned int i) const {
    static DataOperation const& separator = *new DataOperation; // still there for objects in static storage
    return i < m_operations.size() ? m_operations[i] : separator;
}

} // namespace qzDescriptor
