#include "qzsigslot/qzSignal.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace {

using Signal = qzSignal1<void, int const&, single_threaded>;

struct Recorder : qzListener<> {
    void OnNumber(int const& number) { numbers.push_back(number); }
    std::vector<int> numbers;
};

TEST(Signal, CallsItsConnectionsInTheOrderOfConnecting) {
    Signal signal;
    Recorder recorder;
    std::vector<int> order;
    signal.Connect<&Recorder::OnNumber>(recorder);
    signal.Connect([&](int const&) { order.push_back(static_cast<int>(recorder.numbers.size())); });
    signal.Connect(recorder, [&](int const& number) { order.push_back(-number); });
    EXPECT_FALSE(signal.Connect(nullptr).IsConnected());
    signal.Emit(7);
    signal.Emit(8);
    EXPECT_EQ(recorder.numbers, (std::vector<int>{7, 8}));
    EXPECT_EQ(order, (std::vector<int>{1, -7, 2, -8}));
    EXPECT_EQ(signal.GetConnectionCount(), 3u);
    EXPECT_EQ(recorder.GetConnectionCount(), 2u);
}

TEST(Signal, KnowsNothingOfListenersThatEnded) {
    Signal signal;
    qzConnection<> connection;
    {
        Recorder recorder;
        connection = signal.Connect<&Recorder::OnNumber>(recorder);
        EXPECT_TRUE(connection.IsConnected());
    }
    EXPECT_FALSE(connection.IsConnected());
    EXPECT_EQ(signal.GetConnectionCount(), 0u);
    signal.Emit(1);
    connection.Disconnect();

    auto shortLived = std::make_unique<Signal>();
    Recorder recorder;
    connection = shortLived->Connect<&Recorder::OnNumber>(recorder);
    shortLived.reset();
    EXPECT_FALSE(connection.IsConnected());
    EXPECT_EQ(recorder.GetConnectionCount(), 0u);
}

TEST(Signal, CopiesAreConnectedToTheSameListenersAndCopiesOfListenersToNothing) {
    Recorder recorder, next;
    Signal signal, chained;
    signal.Connect<&Recorder::OnNumber>(recorder);
    signal.Connect(recorder, [&](int const& number) { next.numbers.push_back(number); });
    signal.Chain(chained);
    chained.Connect([&](int const& number) { next.numbers.push_back(-number); });
    Signal copy(signal);
    copy.Emit(3);
    EXPECT_EQ(recorder.numbers, (std::vector<int>{3}));
    EXPECT_EQ(next.numbers, (std::vector<int>{3, -3}));
    copy = *&copy;
    EXPECT_EQ(copy.GetConnectionCount(), 3u);
    Recorder const copyOfRecorder(recorder);
    EXPECT_EQ(copyOfRecorder.GetConnectionCount(), 0u);
    EXPECT_EQ(recorder.GetConnectionCount(), 4u);
    copy = Signal();
    copy.Emit(4);
    EXPECT_EQ(recorder.numbers.size(), 1u);
}

TEST(Signal, ChainsEndWithTheirTargetAndLeadInNoCircle) {
    Signal first, third;
    auto second = std::make_unique<Signal>();
    std::vector<int> numbers;
    EXPECT_TRUE(first.Chain(*second).IsConnected());
    EXPECT_TRUE(second->Chain(third).IsConnected());
    third.Connect([&](int const& number) { numbers.push_back(number); });
    EXPECT_FALSE(first.Chain(first).IsConnected());
    EXPECT_FALSE(third.Chain(first).IsConnected());
    first.Emit(5);
    second.reset();
    first.Emit(6);
    EXPECT_EQ(numbers, (std::vector<int>{5}));
    EXPECT_EQ(first.GetConnectionCount(), 0u);
    EXPECT_TRUE(third.Chain(first).IsConnected());
}

TEST(Signal, MayEndWhileItEmits) {
    auto signal = std::make_unique<Signal>();
    std::vector<int> calls;
    auto const alive = std::make_shared<int>(42); // what the running slot captured stays until it returns
    std::weak_ptr<int> const watched = alive;
    signal->Connect([&calls, &signal, kept = std::shared_ptr<int>(alive)](int const& depth) {
        calls.push_back(*kept);
        if (depth == 0)
            signal->Emit(1);
        else
            signal.reset();
        calls.push_back(*kept);
    });
    signal->Connect([&](int const&) { calls.push_back(-1); });
    signal->Emit(0);
    EXPECT_EQ(calls, (std::vector<int>{42, 42, 42, 42}));
    EXPECT_EQ(watched.use_count(), 1);
}

TEST(Signal, GoesOnAfterASlotThatThrows) {
    Signal signal;
    int calls = 0;
    qzConnection<> thrower = signal.Connect([&](int const&) {
        thrower.Disconnect();
        throw 1;
    });
    signal.Connect([&](int const&) { ++calls; });
    EXPECT_THROW(signal.Emit(0), int);
    EXPECT_EQ(signal.GetConnectionCount(), 1u);
    signal.Emit(0);
    EXPECT_EQ(calls, 1);
}

// ---- slots that do anything, against a plain model ----

/// Signals and listeners that end, connect and emit at random, from inside of slots too. What each emission
/// called is compared with what it must call: the connections that it found, unless they were severed before
/// their turn.
class Playground {
public:
    Playground() : m_signals(3), m_listeners(4) {
        for (auto& signal : m_signals)
            signal = std::make_unique<Signal>();
        for (auto& listener : m_listeners)
            listener = std::make_unique<Recorder>();
    }

    void Run(int steps) {
        for (int step = 0; step < steps; ++step) {
            m_budget = 40;
            DoSomething(0);
        }
    }

    int GetCallCount() const { return m_calls; }
    std::string GetSeed() const { return m_random.GetSeed(); }

private:
    struct Connected {
        std::size_t signal, listener; // the listener that ends it, or none
        qzConnection<> connection;
    };
    static constexpr std::size_t s_none = 99;

    void DoSomething(int depth) {
        if (m_budget-- <= 0)
            return;
        std::size_t const s = m_random.Below(3), l = m_random.Below(4);
        switch (m_random.Below(12)) {
        default:
            Connect(s, m_random.Chance(3) ? s_none : l);
            break;
        case 0:
        case 1:
        case 2:
            if (depth < 4)
                Emit(s, depth);
            break;
        case 3:
        case 4:
            if (!m_model.empty())
                Disconnect(
                    std::next(m_model.begin(), m_random.Below(static_cast<unsigned int>(m_model.size()))));
            break;
        case 5:
            Sever([&](Connected const& c) { return c.listener == l; });
            m_listeners[l] = std::make_unique<Recorder>();
            break;
        case 6:
            Sever([&](Connected const& c) { return c.signal == s; });
            m_signals[s] = std::make_unique<Signal>();
            break;
        case 7:
            Sever([&](Connected const& c) { return c.signal == s; });
            m_signals[s]->DisconnectAll();
            break;
        }
        Check();
    }

    void Connect(std::size_t s, std::size_t l) {
        int const id = m_nextId++;
        std::function<void(int const&)> const slot = [this, id](int const& depth) { OnCall(id, depth); };
        auto const connection =
            l == s_none ? m_signals[s]->Connect(slot) : m_signals[s]->Connect(*m_listeners[l], slot);
        m_model.emplace(id, Connected{s, l, connection});
    }

    void OnCall(int id, int depth) {
        ++m_calls;
        ASSERT_TRUE(m_model.contains(id)) << "called although severed";
        ASSERT_FALSE(m_expected.back().empty());
        // The next one in order that is still connected.
        while (!m_expected.back().empty() && !m_model.contains(m_expected.back().front()))
            m_expected.back().erase(m_expected.back().begin());
        ASSERT_FALSE(m_expected.back().empty());
        ASSERT_EQ(m_expected.back().front(), id);
        m_expected.back().erase(m_expected.back().begin());
        for (unsigned int n = m_random.Below(3); n > 0; --n)
            DoSomething(depth + 1);
    }

    void Emit(std::size_t s, int depth) {
        std::vector<int> expected;
        for (auto const& [id, connected] : m_model) { // by id: in the order of connecting
            if (connected.signal == s)
                expected.push_back(id);
        }
        m_expected.push_back(expected);
        m_signals[s]->Emit(depth);
        for (int const id : m_expected.back())
            ASSERT_FALSE(m_model.contains(id)) << "connected, but not called";
        m_expected.pop_back();
    }

    void Disconnect(std::map<int, Connected>::iterator at) {
        auto const connection = at->second.connection;
        m_model.erase(at);
        connection.Disconnect();
        ASSERT_FALSE(connection.IsConnected());
    }

    template <class Predicate>
    void Sever(Predicate predicate) {
        std::erase_if(m_model, [&](auto const& entry) { return predicate(entry.second); });
    }

    void Check() {
        for (std::size_t s = 0; s < m_signals.size(); ++s) {
            auto const count = std::count_if(m_model.begin(), m_model.end(),
                                             [&](auto const& entry) { return entry.second.signal == s; });
            ASSERT_EQ(m_signals[s]->GetConnectionCount(), static_cast<std::size_t>(count));
        }
    }

    Random m_random;
    std::vector<std::unique_ptr<Signal>> m_signals;
    std::vector<std::unique_ptr<Recorder>> m_listeners;
    std::map<int, Connected> m_model;
    std::vector<std::vector<int>> m_expected; // by emission under way: what it has yet to call
    int m_nextId = 0;
    int m_budget = 0;
    int m_calls = 0;
};

TEST(Signal, SurvivesWhateverItsSlotsDo) {
    Playground playground;
    SCOPED_TRACE(playground.GetSeed());
    playground.Run(5000);
    EXPECT_GT(playground.GetCallCount(), 1000);
}

TEST(Signal, LosesManyConnectionsInNoTime) {
    Signal signal;
    std::vector<std::unique_ptr<Recorder>> recorders;
    for (int k = 0; k < 200'000; ++k)
        signal.Connect<&Recorder::OnNumber>(*recorders.emplace_back(std::make_unique<Recorder>()));
    recorders.resize(1);
    signal.Emit(3);
    EXPECT_EQ(recorders[0]->numbers.size(), 1u);
    EXPECT_EQ(signal.GetConnectionCount(), 1u);
}

} // namespace
