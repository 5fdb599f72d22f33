#include "descriptor/EntityList.h"

#include "descriptor/Entity.h"
#include "values/collections/Growth.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace qzDescriptor {

EntityList::EntityList(EntityFullType const& type, qzStlVector<unsigned int> const& ids,
                       qzStlVector<char> const& topologyIndices)
    : m_type(type), m_ids(ids), m_topologyIndices(topologyIndices) {
    P_KeepTopologyInStep();
}

bool EntityList::SetEntityFullType(EntityFullType const& type) {
    P_Adopt(type, m_ids.size());
    P_KeepTopologyInStep();
    return true;
}

bool EntityList::SetLists(qzStlVector<unsigned int> const& ids, qzStlVector<char> const& topologyIndices) {
    EntityList lists(m_type, ids, topologyIndices);
    m_ids = std::move(lists.m_ids);
    m_topologyIndices = std::move(lists.m_topologyIndices);
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
    P_Resize(std::max<std::uint64_t>(m_ids.size(), std::uint64_t{index} + 1));
    m_ids[index] = id;
    if (P_HasTopology())
        m_topologyIndices[index] = topologyIndex;
}

bool EntityList::SetEntity(Entity const& entity, unsigned int index) {
    if (!m_type.IsValid())
        P_Adopt(entity.GetEntityFullType(), std::uint64_t{index} + 1);
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

void EntityList::Resize(unsigned int count) { P_Resize(count); }

// Takes the type once there is room for that many of its ids: a type that is taken stays.
void EntityList::P_Adopt(EntityFullType type, std::uint64_t count) {
    static_assert(std::is_nothrow_move_assignable_v<EntityFullType>);
    P_MakeRoom(type, std::max<std::uint64_t>(m_ids.size(), count));
    m_type = std::move(type);
}

void EntityList::P_MakeRoom(EntityFullType const& type, std::uint64_t count) {
    MakeRoom(m_ids, count);
    if (P_HasTopology(type))
        MakeRoom(m_topologyIndices, count);
}

void EntityList::P_Resize(std::uint64_t count) {
    P_MakeRoom(m_type, count);
    m_ids.resize(static_cast<std::size_t>(count));
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
