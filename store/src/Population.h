#pragma once

#include "IdIndex.h"
#include "descriptor/EntityFullType.h"
#include "store/Object.h"

#include <memory>
#include <vector>

namespace qzDescriptor::store {

/// The objects of one metaclass in the order of their creation.
class Population {
public:
    Population(Session& session, unsigned int metaclass, EntityFullType const& type, Members const* members)
        : m_session(session), m_metaclass(metaclass), m_type(type), m_members(members) {}

    Session& GetSession() const { return m_session; }
    unsigned int GetMetaclass() const { return m_metaclass; }
    EntityFullType const& GetType() const { return m_type; }
    Members const* GetMembers() const { return m_members; }
    unsigned int GetCount() const { return static_cast<unsigned int>(m_ids.size()) - m_gone; }

    /// Null when there is none.
    Object* Find(unsigned int id) const;
    /// The id is not 0 and not there yet.
    Object& Add(unsigned int id);
    std::unique_ptr<Object> Remove(Object const& object);
    /// The first one behind the highest that was ever given, or the lowest one that is free.
    unsigned int GetNextId() const;
    void List(qzStlVector<unsigned int>& ids) const;

    /// The first one for which the test says true; null when there is none.
    template <class Test>
    Object const* FindIf(Test&& test) const {
        for (auto const& object : m_objects) {
            if (object && test(*object))
                return object.get();
        }
        return nullptr;
    }

private:
    void P_CloseGaps();

    Session& m_session;
    unsigned int m_metaclass;
    EntityFullType m_type;
    Members const* m_members;
    std::vector<unsigned int> m_ids; // 0 where the object is gone
    std::vector<std::unique_ptr<Object>> m_objects;
    IdIndex m_index;
    unsigned int m_gone = 0;
    unsigned int m_highestId = 0;
};

} // namespace qzDescriptor::store
