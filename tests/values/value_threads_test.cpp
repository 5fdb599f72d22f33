#include "descriptor/qzdescriptor.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace qzDescriptor::test {
namespace {

/// Hands values from one thread to another.
class Belt {
public:
    void Put(Value value) {
        std::lock_guard const guard(m_mutex);
        m_values.push_back(std::move(value));
        m_filled.notify_one();
    }

    Value Take() {
        std::unique_lock guard(m_mutex);
        m_filled.wait(guard, [this] { return !m_values.empty(); });
        Value value(std::move(m_values.front()));
        m_values.pop_front();
        return value;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_filled;
    std::deque<Value> m_values;
};

TEST(Threads, ValuesMadeOnOneThreadAreReleasedOnAnother) {
    constexpr int s_count = 20000;
    Belt there, back;
    std::thread other([&] {
        for (int k = 0; k < s_count; ++k) {
            Value value = there.Take();
            Value answer;
            answer.SetValue(*value.GetValuePointerDouble() * 2);
            back.Put(std::move(answer));
        }
    });
    double sum = 0;
    for (int k = 0; k < s_count; ++k)
        there.Put(Value(0.5 * k));
    for (int k = 0; k < s_count; ++k)
        sum += *back.Take().GetValuePointerDouble();
    other.join();
    EXPECT_EQ(sum, 0.5 * s_count * (s_count - 1));
}

TEST(Threads, EveryThreadMakesAndReleasesValuesOfEveryKind) {
    std::atomic<unsigned int> lost{0};
    RunThreads(4, [&lost](unsigned int) {
        Value kept[64];
        for (unsigned int round = 0; round < 5000; ++round) {
            Value& value = kept[round % 64];
            switch (round % 5) {
            case 0:
                value.SetValue(static_cast<double>(round));
                break;
            case 1:
                value.SetValue(std::to_string(round));
                break;
            case 2:
                value = Value(ValuePtr::Create(qzStlVector<int>(round % 9), DS_DEFAULT));
                break;
            case 3:
                value = Value(round, "m");
                break;
            default:
                value = kept[(round + 7) % 64];
                break;
            }
            // A slot that two threads hold would show another thread's value here.
            Value const copy(value);
            unsigned int const* const number = copy.GetValuePointerUInt();
            if (!(copy == value) || (round % 5 == 3 && (number == nullptr || *number != round)))
                ++lost;
        }
    });
    EXPECT_EQ(lost, 0u);
}

} // namespace
} // namespace qzDescriptor::test
