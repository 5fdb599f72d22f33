#include "registry/TestRegistry.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

namespace qzDescriptor::test {
namespace {

class Recorder : public qzListener<> {
public:
    explicit Recorder(std::function<void(qzString const&)> work) : act(std::move(work)) {}
    void OnEnd(qzString const& name) {
        ended += name + " ";
        if (act)
            act(name);
    }
    void Watch(ISession* session) {
        session->GetSigSlotHandler()->GetSessionDeletedSignal()->Connect<&Recorder::OnEnd>(*this);
    }

    qzString ended;
    std::function<void(qzString const&)> act;
};

TEST(SessionTable, MakesWhatItDoesNotHave) {
    TestRegistry registry;
    EXPECT_FALSE(registry.SetCurrentSession("a"));
    registry.makesSessions = false;
    EXPECT_EQ(registry.GetSession(""), nullptr);
    EXPECT_EQ(registry.GetSession("a"), nullptr);
    EXPECT_EQ(registry.created, 2);
    registry.makesSessions = true;
    ISession* const a = registry.GetSession("a");
    ISession* const b = registry.GetSession("b");
    EXPECT_EQ(registry.GetSession("a"), a);
    EXPECT_EQ(registry.GetSession(""), a);
    EXPECT_TRUE(registry.SetCurrentSession("b"));
    EXPECT_EQ(registry.GetSession(""), b);
    EXPECT_FALSE(registry.SetCurrentSession("c"));
    EXPECT_EQ(registry.GetSession(""), b);
    EXPECT_EQ(registry.created, 4);
}

TEST(SessionTable, KeepsANameForTheFirstAndTheCurrentOneForGood) {
    TestRegistry registry;
    ISession* const a = registry.GetSession("a");
    auto second = std::make_unique<TestSession>("a", &registry);
    EXPECT_EQ(registry.GetSession("a"), a);
    EXPECT_EQ(registry.GetSession(""), a);
    second.reset();
    EXPECT_EQ(registry.GetSession("a"), a);
    registry.RemoveSession(nullptr);
    registry.RemoveSession(a);
    EXPECT_FALSE(registry.SetCurrentSession("a"));
    EXPECT_EQ(registry.GetSession(""), a); // it is only compared with
    ISession* const b = registry.GetSession("b");
    EXPECT_EQ(registry.GetSession(""), b); // the only one again
}

TEST(SessionTable, TakesASessionThatTheFactoryMadeOverNoRegistry) {
    struct Registry : TestRegistry {
        ISession* CreateSession(qzString const& name) override { return new TestSession(name, nullptr); }
    } registry;
    ISession* const a = registry.GetSession("a");
    EXPECT_EQ(registry.GetSession("a"), a);
    delete a;
    EXPECT_FALSE(registry.SetCurrentSession("a"));
}

TEST(SessionTable, LetsListenersOfAnEndChangeIt) {
    TestRegistry registry;
    ISession* const a = registry.GetSession("a");
    ISession* const b = registry.GetSession("b");
    Recorder recorder([&](qzString const& name) {
        registry.RemoveSession(a);
        if (name == "a")
            registry.RemoveSession(b);
        EXPECT_NE(registry.GetSession("made by " + name), nullptr);
    });
    recorder.Watch(a);
    recorder.Watch(b);
    registry.RemoveSession(a);
    EXPECT_EQ(recorder.ended, "a b ");
    EXPECT_FALSE(registry.SetCurrentSession("a"));
    EXPECT_FALSE(registry.SetCurrentSession("b"));
    EXPECT_TRUE(registry.SetCurrentSession("made by b"));

    // One whose name is taken, too, and one that ends by itself.
    auto* const second = new TestSession("made by b", &registry);
    Recorder again([&](qzString const&) { registry.RemoveSession(second); });
    again.Watch(second);
    delete second;
    EXPECT_EQ(again.ended, "made by b ");
    EXPECT_TRUE(registry.SetCurrentSession("made by b"));
}

// Who keeps one session alive at any time has the last ones for himself.
TEST(SessionTable, EndsWithTheRegistryWhateverListenersBegin) {
    auto registry = std::make_unique<TestRegistry>();
    MetaclassMgr* const base = registry.get();
    registry->Insert("Part");
    std::vector<std::unique_ptr<ISession>> left;
    Recorder recorder([&](qzString const& name) {
        EXPECT_EQ(base->FindHandle("Part"), 1U);
        EXPECT_EQ(base->GetSession("no factory any more"), nullptr);
        if (name == "a")
            base->RemoveSession(base->GetSession("b"));
        auto session = std::make_unique<TestSession>("after " + name, base);
        recorder.Watch(session.get());
        if (name.starts_with("after"))
            left.push_back(std::move(session));
        else
            session.release(); // the registry has it
    });
    for (char const* const name : {"a", "b", "c"})
        recorder.Watch(registry->GetSession(name));
    registry.reset();
    EXPECT_EQ(recorder.ended, "a b c after a after b after c ");
    EXPECT_EQ(left.size(), 3U);
    recorder.act = nullptr;
    left.clear(); // they have no registry to tell
}

} // namespace
} // namespace qzDescriptor::test
