#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <cstddef>
#include <cstdint>

namespace qzDescriptor {

/// The type and subtype of an entity, each by number or by name, with a topology kind. The topology kind
/// takes no part in equality.
class QZDESCRIPTOR_API EntityFullType {
public:
    /// What an entity is in the topology of a geometric model. The codes belong to those who create entities.
    enum TopologyType : std::int32_t { TOPOLOGY_NONE = 0 };

    EntityFullType() = default;
    explicit EntityFullType(unsigned int type, unsigned int subtype = 0);
    explicit EntityFullType(qzString const& type, unsigned int subtype = 0);
    EntityFullType(unsigned int type, qzString const& subtype);
    EntityFullType(qzString const& type, qzString const& subtype);
    EntityFullType(TopologyType topology, unsigned int type, unsigned int subtype);
    EntityFullType(TopologyType topology, qzString const& type, unsigned int subtype);
    EntityFullType(TopologyType topology, unsigned int type, qzString const& subtype);
    EntityFullType(TopologyType topology, qzString const& type, qzString const& subtype);

    unsigned int GetTypeNumeric() const { return m_typeNumeric; }
    unsigned int GetSubtypeNumeric() const { return m_subtypeNumeric; }
    qzString const& GetTypeNamed() const { return m_typeNamed; }
    qzString const& GetSubtypeNamed() const { return m_subtypeNamed; }
    TopologyType GetTopologyType() const { return m_topologyType; }

    bool IsTypeNumeric() const { return m_typeNumeric != 0; }
    bool IsSubTypeNumeric() const { return m_subtypeNumeric != 0; }
    bool HaveSubType() const { return m_subtypeNumeric != 0 || !m_subtypeNamed.empty(); }
    bool IsValid() const { return m_typeNumeric != 0 || !m_typeNamed.empty(); }

    QZDESCRIPTOR_API friend bool operator==(EntityFullType const& a, EntityFullType const& b);

    /// The type number modulo 101, else a hash of the type name, 0 without either.
    struct QZDESCRIPTOR_API hash {
        std::size_t operator()(EntityFullType const& type) const;
    };

private:
    unsigned int m_typeNumeric = 0;
    unsigned int m_subtypeNumeric = 0;
    qzString m_typeNamed;
    qzString m_subtypeNamed;
    TopologyType m_topologyType = TOPOLOGY_NONE;
};

} // namespace qzDescriptor
