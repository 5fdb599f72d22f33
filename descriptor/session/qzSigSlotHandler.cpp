#include "descriptor/qzSigSlotHandler.h"

#include <algorithm>
#include <utility>

qzSigSlotHandler::qzSigSlotHandler()
    : m_entityEvents(std::make_shared<Signal<EntityEventInfo>>()),
      m_sessionsDeleted(std::make_shared<Signal<qzString>>()) {}

qzSigSlotHandler::qzSigSlotHandler(qzSigSlotHandler const& other)
    : m_entityEvents(std::make_shared<Signal<EntityEventInfo>>(*other.m_entityEvents)),
      m_sessionsDeleted(std::make_shared<Signal<qzString>>(*other.m_sessionsDeleted)),
      m_buffering(other.m_buffering),
      m_heldEvents(other.m_heldEvents),
      m_heldSessions(other.m_heldSessions) {}

qzSigSlotHandler& qzSigSlotHandler::operator=(qzSigSlotHandler const& other) {
    if (this == &other)
        return *this;
    qzSigSlotHandler copy(other);
    std::swap(m_entityEvents, copy.m_entityEvents);
    std::swap(m_sessionsDeleted, copy.m_sessionsDeleted);
    std::swap(m_buffering, copy.m_buffering);
    m_heldEvents.swap(copy.m_heldEvents);
    m_heldSessions.swap(copy.m_heldSessions);
    return *this;
}

// A flush that is under way reaches nobody any more.
qzSigSlotHandler::~qzSigSlotHandler() {
    m_entityEvents->DisconnectAll();
    m_sessionsDeleted->DisconnectAll();
}

void qzSigSlotHandler::Emit(qzDescriptor::EVENT_CATEGORY, EntityEventInfo const& event) {
    if (m_buffering)
        m_heldEvents.push_back(event);
    else
        m_entityEvents->Emit(event);
}

void qzSigSlotHandler::Emit(qzDescriptor::EVENT_CATEGORY, qzString const& sessionName) {
    if (m_buffering)
        m_heldSessions.push_back(sessionName);
    else
        m_sessionsDeleted->Emit(sessionName);
}

// Copies are walked, and the signals held: listeners may hold further events back, or end the handler.
void qzSigSlotHandler::Flush() {
    auto const entityEvents = m_entityEvents;
    auto const sessionsDeleted = m_sessionsDeleted;
    auto const events = m_heldEvents;
    auto const sessions = m_heldSessions;
    for (EntityEventInfo const& event : events)
        entityEvents->Emit(event);
    for (qzString const& session : sessions)
        sessionsDeleted->Emit(session);
}
