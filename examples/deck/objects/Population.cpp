#include "objects/Population.h"

#include "objects/DeckRegistry.h"
#include "objects/DeckSession.h"

namespace qzDeck {

Population::Population(DeckSession& session, unsigned int metaclass)
    : m_session(session),
      m_metaclass(metaclass),
      m_type(session.GetRegistry().RegisterMetaclass(metaclass)),
      m_members(session.GetRegistry().GetMembers(metaclass, 0)) {}

} // namespace qzDeck
