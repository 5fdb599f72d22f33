#pragma once

#include "descriptor/EntityFullType.h"

namespace qzDescriptor {

/// A reference to one object: its type, its number, and a topology index within it.
class QZDESCRIPTOR_API Entity {
public:
    Entity() = default;
    explicit Entity(EntityFullType const& type, unsigned int id = 0, char topologyIndex = 0)
        : m_type(type), m_id(id), m_topologyIndex(topologyIndex) {}

    EntityFullType const& GetEntityFullType() const { return m_type; }
    unsigned int GetId() const { return m_id; }
    unsigned int const& GetIdRef() const { return m_id; }
    unsigned int& GetIdRef() { return m_id; }
    char GetTopologyIndex() const { return m_topologyIndex; }
    char const& GetTopologyIndexRef() const { return m_topologyIndex; }
    char& GetTopologyIndexRef() { return m_topologyIndex; }

    friend bool operator==(Entity const&, Entity const&) = default;

    /// By id alone: entities of different types with one id are equivalent in ordered containers, which
    /// callers rely on.
    friend bool operator<(Entity const& a, Entity const& b) { return a.m_id < b.m_id; }

private:
    EntityFullType m_type;
    unsigned int m_id = 0;
    char m_topologyIndex = 0;
};

} // namespace qzDescriptor
