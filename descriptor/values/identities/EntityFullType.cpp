#include "descriptor/EntityFullType.h"

#include "values/identities/StringHash.h"

namespace qzDescriptor {

EntityFullType::EntityFullType(unsigned int type, unsigned int subtype)
    : EntityFullType(TOPOLOGY_NONE, type, subtype) {}

EntityFullType::EntityFullType(qzString const& type, unsigned int subtype)
    : EntityFullType(TOPOLOGY_NONE, type, subtype) {}

EntityFullType::EntityFullType(unsigned int type, qzString const& subtype)
    : EntityFullType(TOPOLOGY_NONE, type, subtype) {}

EntityFullType::EntityFullType(qzString const& type, qzString const& subtype)
    : EntityFullType(TOPOLOGY_NONE, type, subtype) {}

EntityFullType::EntityFullType(TopologyType topology, unsigned int type, unsigned int subtype)
    : m_typeNumeric(type), m_subtypeNumeric(subtype), m_topologyType(topology) {}

EntityFullType::EntityFullType(TopologyType topology, qzString const& type, unsigned int subtype)
    : m_subtypeNumeric(subtype), m_typeNamed(type), m_topologyType(topology) {}

EntityFullType::EntityFullType(TopologyType topology, unsigned int type, qzString const& subtype)
    : m_typeNumeric(type), m_subtypeNamed(subtype), m_topologyType(topology) {}

EntityFullType::EntityFullType(TopologyType topology, qzString const& type, qzString const& subtype)
    : m_typeNamed(type), m_subtypeNamed(subtype), m_topologyType(topology) {}

bool operator==(EntityFullType const& a, EntityFullType const& b) {
    return a.m_typeNumeric == b.m_typeNumeric && a.m_subtypeNumeric == b.m_subtypeNumeric &&
           a.m_typeNamed == b.m_typeNamed && a.m_subtypeNamed == b.m_subtypeNamed;
}

std::size_t EntityFullType::hash::operator()(EntityFullType const& type) const {
    if (type.IsTypeNumeric())
        return type.m_typeNumeric % 101;
    return StringHash(type.m_typeNamed); // of no name: 0
}

} // namespace qzDescriptor
