#include "descriptor/UnitsDimensionality.h"

namespace qzDescriptor {

// The empty texts are still there for objects in static storage.

qzString const& UnitsDimensionality::GetDimensionality(unsigned int i) const {
    static qzString const& none = *new qzString;
    return i == 0 ? m_first.first : i == 1 ? m_second.first : none;
}

qzString const& UnitsDimensionality::GetDimensionalityDisplayName(unsigned int i) const {
    static qzString const& none = *new qzString;
    return i == 0 ? m_first.second : i == 1 ? m_second.second : none;
}

} // namespace qzDescriptor
