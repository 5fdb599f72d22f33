#pragma once

#include "IdIndex.h"
#include "descriptor/Content.h"
#include "descriptor/EntityFullType.h"
#include "qzutl/qzPrefetch.h"
#include "qzutl/qzStlVector.h"
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

    /// Lists the ids of those objects that a test of their content accepts. The attributes, given by their
    /// handles, are those that the test reads.
    template <class Test>
    void ListIf(qzStlVector<unsigned int>& ids, std::vector<unsigned int> const& attributes,
                Test&& test) const {
        ids.clear();
        auto const listIf = [&](std::size_t place) {
            if (m_ids[place] != 0 && test(*m_contents[place], m_ids[place]))
                ids.push_back(m_ids[place]);
        };
        std::size_t place = 0;
        for (; !attributes.empty() && place + 3 * s_ahead < m_contents.size(); ++place) {
            P_Prefetch(place, attributes);
            listIf(place);
        }
        for (; place < m_contents.size(); ++place)
            listIf(place);
    }

private:
    static constexpr std::size_t s_ahead = 16; // so many objects are read while a piece of memory comes

    // From a place to a value there are three steps, each of which leads to the next. They are taken ahead of
    // time for three objects that come later, so that nobody waits for memory.
    void P_Prefetch(std::size_t place, std::vector<unsigned int> const& attributes) const {
        qzPrefetch(m_contents[place + 3 * s_ahead]);
        if (Content const* const content = m_contents[place + 2 * s_ahead])
            content->PrefetchValues();
        if (Content const* const content = m_contents[place + s_ahead]) {
            for (unsigned int const attribute : attributes)
                content->PrefetchValue(attribute - 1);
        }
    }
    void P_CloseGaps();

    Session& m_session;
    unsigned int m_metaclass;
    EntityFullType m_type;
    Members const* m_members;
    std::vector<unsigned int> m_ids; // 0 where the object is gone
    std::vector<std::unique_ptr<Object>> m_objects;
    std::vector<Content const*> m_contents; // of the objects, for those who need no more
    IdIndex m_index;
    unsigned int m_gone = 0;
    unsigned int m_highestId = 0;
};

} // namespace qzDescriptor::store
