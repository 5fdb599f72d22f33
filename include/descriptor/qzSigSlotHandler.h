#pragma once

#include "descriptor/EntityEventInfo.h"
#include "qzsigslot/qzSignal.h"
#include "qzutl/qzStlVector.h"
#include "qzutl/qzString.h"

#include <cstdint>
#include <memory>

namespace qzDescriptor {

/// What an emission is about. It selects nothing: the argument does.
enum EVENT_CATEGORY : std::int32_t { EVENT_CATEGORY_ENTITY = 0, EVENT_CATEGORY_SESSION_END = 1 };

} // namespace qzDescriptor

/// The event channel of a session: one signal for what happens to entities, one that names sessions that end.
/// Events may be held back and released later. To be used on one thread.
///
///     handler.GetEntityEventSignal()->Connect<&Panel::OnEvent>(panel);
///     handler.BufferStart();
///     handler.Emit(EVENT_CATEGORY_ENTITY, event);        // reaches nobody yet
///     handler.BufferStop();
///     handler.Flush();                                   // reaches the panel
///
/// Listeners may do anything while they are called, end the handler included.
class QZDESCRIPTOR_API qzSigSlotHandler {
public:
    using EntityEventInfo = qzDescriptor::EntityEventInfo;
    using EntityEventSignal = qziSignal1<void, EntityEventInfo const&, single_threaded>;
    using SessionDeletedSignal = qziSignal1<void, qzString const&, single_threaded>;

    qzSigSlotHandler();
    /// Signals of its own, connected to the other's listeners, and the other's buffers.
    qzSigSlotHandler(qzSigSlotHandler const& other);
    qzSigSlotHandler& operator=(qzSigSlotHandler const& other);
    ~qzSigSlotHandler();

    EntityEventSignal* GetEntityEventSignal() const { return m_entityEvents.get(); }
    SessionDeletedSignal* GetSessionDeletedSignal() const { return m_sessionsDeleted.get(); }

    void Emit(qzDescriptor::EVENT_CATEGORY category, EntityEventInfo const& event);
    void Emit(qzDescriptor::EVENT_CATEGORY category, qzString const& sessionName);

    void BufferStart() { m_buffering = true; }
    /// Releases nothing: see Flush.
    void BufferStop() { m_buffering = false; }
    /// Emits every event held back, in order, then every session name. They stay in the buffers: the next
    /// call emits them again.
    void Flush();

private:
    template <class Argument>
    using Signal = qzSignal1<void, Argument const&, single_threaded>;

    std::shared_ptr<Signal<EntityEventInfo>> m_entityEvents;
    std::shared_ptr<Signal<qzString>> m_sessionsDeleted;
    bool m_buffering = false;
    qzStlVector<EntityEventInfo> m_heldEvents;
    qzStlVector<qzString> m_heldSessions;
};
