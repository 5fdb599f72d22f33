#include "descriptor/qzSigSlotHandler.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

using namespace qzDescriptor;

namespace {

EntityEventInfo EventOf(unsigned int id) {
    EntityEventInfo event;
    event.SetEventType(ENTITY_EVENT_CHANGED);
    event.SetEntityType(EntityFullType("SHELL"));
    event.SetIdentifier(Identifier("T"));
    event.AddEntityId(id);
    return event;
}

TEST(EntityEvent, ComparesEveryFieldAndTheOrderOfIds) {
    EntityEventInfo const event = EventOf(1);
    EXPECT_EQ(EventOf(1), event);
    std::function<void(EntityEventInfo&)> const changes[] = {
        [](auto& e) { e.SetEventType(ENTITY_EVENT_DELETED); },
        [](auto& e) { e.SetEntityType(EntityFullType("BAR")); },
        [](auto& e) { e.SetIdentifier(Identifier("E")); },
        [](auto& e) { e.AddEntityId(2); },
    };
    for (auto const& change : changes) {
        EntityEventInfo changed(event);
        change(changed);
        EXPECT_NE(changed, event);
    }
    EntityEventInfo ascending, descending;
    ascending.AddEntityIdList({1, 2});
    descending.AddEntityIdList({2, 1});
    EXPECT_NE(ascending, descending);
    ascending.AddEntityIdList({1});
    qzStlVector<unsigned int> ids{9};
    ascending.GetEntityIdList(ids);
    EXPECT_EQ(ids, (qzStlVector<unsigned int>{1, 2, 1}));
}

struct Log : qzListener<> {
    explicit Log(qzSigSlotHandler& handler) {
        handler.GetEntityEventSignal()->Connect<&Log::OnEvent>(*this);
        handler.GetSessionDeletedSignal()->Connect<&Log::OnSession>(*this);
    }
    void OnEvent(EntityEventInfo const& event) {
        qzStlVector<unsigned int> ids;
        event.GetEntityIdList(ids);
        entries.push_back(std::to_string(ids[0]));
        if (react)
            react();
    }
    void OnSession(qzString const& name) {
        entries.push_back(name);
        if (react)
            react();
    }

    std::vector<qzString> entries;
    std::function<void()> react;
};

using Entries = std::vector<qzString>;

TEST(EventChannel, HoldsEventsBackUntilTheyAreFlushedAgainAndAgain) {
    qzSigSlotHandler handler;
    Log log(handler);
    handler.Emit(EVENT_CATEGORY_SESSION_END, EventOf(1)); // the argument selects the signal
    handler.BufferStart();
    handler.Emit(EVENT_CATEGORY_ENTITY, qzString("session"));
    handler.Emit(EVENT_CATEGORY_ENTITY, EventOf(2));
    handler.Emit(EVENT_CATEGORY_ENTITY, EventOf(3));
    handler.BufferStop();
    EXPECT_EQ(log.entries, (Entries{"1"}));
    handler.Flush();
    EXPECT_EQ(log.entries, (Entries{"1", "2", "3", "session"}));
    handler.Emit(EVENT_CATEGORY_ENTITY, EventOf(4));
    handler.Flush();
    EXPECT_EQ(log.entries, (Entries{"1", "2", "3", "session", "4", "2", "3", "session"}));
}

TEST(EventChannel, CopiesReachTheSameListenersFromBuffersOfTheirOwn) {
    qzSigSlotHandler handler;
    Log log(handler);
    handler.BufferStart();
    handler.Emit(EVENT_CATEGORY_ENTITY, EventOf(1));
    qzSigSlotHandler copy(handler), assigned;
    assigned = handler;
    assigned = *&assigned;
    copy.Emit(EVENT_CATEGORY_ENTITY, EventOf(2));
    copy.Flush();
    handler.Flush();
    assigned.Flush();
    EXPECT_EQ(log.entries, (Entries{"1", "2", "1", "1"}));
    EXPECT_NE(copy.GetEntityEventSignal(), handler.GetEntityEventSignal());
}

TEST(EventChannel, MayBeUsedAndEndedByItsListeners) {
    auto handler = std::make_unique<qzSigSlotHandler>();
    Log log(*handler);
    handler->BufferStart();
    for (unsigned int id : {1, 2, 3})
        handler->Emit(EVENT_CATEGORY_ENTITY, EventOf(id));
    log.react = [&] { handler->Emit(EVENT_CATEGORY_ENTITY, EventOf(9)); };
    handler->Flush(); // what is held back meanwhile waits for the next flush
    EXPECT_EQ(log.entries, (Entries{"1", "2", "3"}));
    log.react = [&] {
        if (log.entries.back() == "2")
            handler.reset();
    };
    log.entries.clear();
    handler->Flush();
    EXPECT_EQ(log.entries, (Entries{"1", "2"}));
    EXPECT_EQ(log.GetConnectionCount(), 0u);
}

} // namespace
