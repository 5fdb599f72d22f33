#pragma once

#include "descriptor/EntityFullType.h"
#include "descriptor/qzReturnStatus.h"
#include "qzutl/qzStlVector.h"

#include <vector>

namespace qzDescriptor {
class Members;
}

namespace qzDeck {

class DeckObject;
class DeckSession;

/// The objects of one metaclass.
class Population {
public:
    Population(DeckSession& session, unsigned int metaclass);
    Population(Population const&) = delete;
    Population& operator=(Population const&) = delete;
    virtual ~Population() = default;

    DeckSession& GetSession() const { return m_session; }
    unsigned int GetMetaclass() const { return m_metaclass; }
    qzDescriptor::EntityFullType const& GetType() const { return m_type; }
    qzDescriptor::Members const& GetMembers() const { return *m_members; }

    /// Null when there is none.
    virtual DeckObject* Find(unsigned int id) const = 0;
    /// The ids of all, in the order of the deck.
    virtual void List(qzStlVector<unsigned int>& ids) const = 0;
    virtual unsigned int GetCount() const = 0;
    /// Makes an object under an owner that may own it; null for none. An id of 0 asks for the next free one.
    virtual qzDescriptor::qzReturnStatus Create(unsigned int id, DeckObject* owner, DeckObject*& created) = 0;

private:
    DeckSession& m_session;
    unsigned int m_metaclass;
    qzDescriptor::EntityFullType m_type;
    qzDescriptor::Members const* m_members;
};

} // namespace qzDeck
