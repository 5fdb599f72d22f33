#pragma once

#include "descriptor/EntityFullType.h"

#include "qzutl/qzStlVector.h"

#include <cstdint>

namespace qzDescriptor {

/// Entities of one type in order: their ids, and their topology indices while the type has a topology kind.
class QZDESCRIPTOR_API EntityList {
public:
    using iterator = qzStlVector<unsigned int>::iterator;
    using const_iterator = qzStlVector<unsigned int>::const_iterator;

    EntityList() = default;
    explicit EntityList(unsigned int capacity) { m_ids.reserve(capacity); }
    EntityList(EntityFullType const& type, qzStlVector<unsigned int> const& ids,
               qzStlVector<char> const& topologyIndices);

    EntityFullType const& GetEntityFullType() const { return m_type; }
    bool SetEntityFullType(EntityFullType const& type);

    qzStlVector<unsigned int> const& GetList() const { return m_ids; }
    qzStlVector<unsigned int>& GetList() { return m_ids; }
    qzStlVector<char> const& GetTopologyIndexList() const { return m_topologyIndices; }
    qzStlVector<char>& GetTopologyIndexList() { return m_topologyIndices; }
    void GetIdList(qzStlVector<unsigned int>& ids) const { ids = m_ids; }
    bool SetLists(qzStlVector<unsigned int> const& ids, qzStlVector<char> const& topologyIndices);
    unsigned int GetIdListCount() const { return static_cast<unsigned int>(m_ids.size()); }
    bool IsEmpty() const { return m_ids.empty(); }

    /// The id at an index; 0 when there is none.
    unsigned int const& operator[](unsigned int index) const;
    /// The place of an id; a place of no list, 0 at every call, when there is none.
    unsigned int& operator[](unsigned int index) { return index < m_ids.size() ? m_ids[index] : P_NoId(); }
    iterator begin() { return m_ids.begin(); }
    iterator end() { return m_ids.end(); }
    const_iterator begin() const { return m_ids.begin(); }
    const_iterator end() const { return m_ids.end(); }

    bool GetId(unsigned int index, unsigned int& id) const;
    bool GetIdAndTopologyIndex(unsigned int index, unsigned int& id, char& topologyIndex) const;
    bool GetEntity(Entity& entity, unsigned int index) const;

    /// Stores an id; an index past the end lengthens the list, filling with id 0.
    void SetId(unsigned int index, unsigned int id, char topologyIndex);
    /// As SetId. A list without a type takes the entity's; an entity of another type than the list's is
    /// refused.
    bool SetEntity(Entity const& entity, unsigned int index);

    void Reserve(unsigned int capacity);
    void Resize(unsigned int count);

    /// Equal types and equal ids in the same order. Topology indices take no part.
    QZDESCRIPTOR_API friend bool operator==(EntityList const& a, EntityList const& b);

private:
    static unsigned int& P_NoId();
    static bool P_HasTopology(EntityFullType const& type) {
        return type.GetTopologyType() != EntityFullType::TOPOLOGY_NONE;
    }
    bool P_HasTopology() const { return P_HasTopology(m_type); }
    void P_Adopt(EntityFullType type, std::uint64_t count);
    void P_MakeRoom(EntityFullType const& type, std::uint64_t count);
    void P_Resize(std::uint64_t count);
    void P_KeepTopologyInStep();

    EntityFullType m_type;
    qzStlVector<unsigned int> m_ids;
    qzStlVector<char> m_topologyIndices;
};

} // namespace qzDescriptor
