#include "descriptor/EntityList.h"

#include "descriptor/Entity.h"
#include "values/collections/Growth.h"

namespace qzDescriptor {

EntityList::EntityList(EntityFullType const& type, qzStlVector<unsigned int> const& ids,
                       qzStlVector<char> const& topologyIndices)
    : m_type(type), m_ids(ids), m_topologyIndices(topologyIndices) {
    P_KeepTopologyInStep();
}

bool EntityList::SetEntityFullType(EntityFullType const& type) {
    m_type = type;
    P_KeepTopologyInStep();
    return true;
}

bool EntityList::SetLists(qzStlVector<unsigned int> const& ids, qzStlVector<char> const& topologyIndices) {
    m_ids = ids;
    m_topologyIndices = topologyIndices;
    P_KeepTopologyInStep();
    return true;
}

unsigned int const& EntityList::operator[](unsigned int index) const {
    static unsigned int const s_noId = 0;
    return index < m_ids.size() ? m_ids[index] : s_noId;
}

unsigned int& EntityList::P_NoId() {
    thread_local unsigned int s_noId;
    s_noId = 0;
    return s_noId;
}

bool EntityList::GetId(unsigned int index, unsigned int& id) const {
    if (index >= m_ids.size())
        return false;
    id = m_ids[index];
    return true;
}

bool EntityList::GetIdAndTopologyIndex(unsigned int index, unsigned int& id, char& topologyIndex) const {
    if (!GetId(index, id))
        return false;
    topologyIndex = index < m_topologyIndices.size() ? m_topologyIndices[index] : char{0};
    return true;
}

bool EntityList::GetEntity(Entity& entity, unsigned int index) const {
    unsigned int id = 0;
    char topologyIndex = 0;
    if (!GetIdAndTopologyIndex(index, id, topologyIndex))
        return false;
    entity = Entity(m_type, id, topologyIndex);
    return true;
}

void EntityList::SetId(unsigned int index, unsigned int id, char topologyIndex) {
    GrowToHold(m_ids, index);
    P_KeepTopologyInStep();
    m_ids[index] = id;
    if (P_HasTopology())
        m_topologyIndices[index] = topologyIndex;
}

bool EntityList::SetEntity(Entity const& entity, unsigned int index) {
    if (!m_type.IsValid())
        m_type = entity.GetEntityFullType();
    else if (m_type != entity.GetEntityFullType())
        return false;
    SetId(index, entity.GetId(), entity.GetTopologyIndex());
    return true;
}

void EntityList::Reserve(unsigned int capacity) {
    m_ids.reserve(capacity);
    if (P_HasTopology())
        m_topologyIndices.reserve(capacity);
}

void EntityList::Resize(unsigned int count) {
    m_ids.resize(count);
    P_KeepTopologyInStep();
}

void EntityList::P_KeepTopologyInStep() {
    if (P_HasTopology())
        m_topologyIndices.resize(m_ids.size());
    else
        m_topologyIndices.clear();
}

bool operator==(EntityList const& a, EntityList const& b) {
    return a.m_type == b.m_type && a.m_ids == b.m_ids;
}

} // namespace qzDescriptor
