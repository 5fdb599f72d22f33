#include "qzutl/qzFixedSizeAllocatorND.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <set>
#include <thread>
#include <vector>

namespace {

struct Item {
    double number;
    char letter;
};

/// A backing that keeps count, and has no memory when told so.
struct Backing {
    static inline std::size_t s_blocks = 0;
    static inline std::size_t s_largestRequest = 0;
    static inline bool s_exhausted = false;

    static char* Allocate(std::size_t bytes) {
        s_largestRequest = std::max(s_largestRequest, bytes);
        if (s_exhausted)
            throw std::bad_alloc();
        ++s_blocks;
        return qzMallocAllocator<char>::Allocate(bytes);
    }

    static void Release(char* memory) noexcept {
        --s_blocks;
        qzMallocAllocator<char>::Release(memory);
    }
};

/// A mutex that shows whether it is held.
struct ShownMutex {
    static inline int s_held = 0;

    void lock() { ++s_held; }
    void unlock() { --s_held; }
};

using Pool = qzFixedSizeAllocatorND<Item, ShownMutex, Backing>;

class PoolTest : public testing::Test {
protected:
    ~PoolTest() override {
        Backing::s_exhausted = false;
        Backing::s_largestRequest = 0;
        EXPECT_EQ(Backing::s_blocks, 0U) << "memory is left";
        EXPECT_EQ(ShownMutex::s_held, 0);
    }

    static std::vector<void*> Take(Pool& pool, std::size_t count) {
        std::vector<void*> slots(count);
        std::ranges::generate(slots, [&] { return pool.Allocate(); });
        return slots;
    }

    static void GiveBack(Pool& pool, std::vector<void*> const& slots) {
        for (void* const slot : slots)
            pool.Release(slot);
    }

    /// How many slots each of the first blocks has.
    static std::vector<std::size_t> MeasureBlocks(qzPoolSettings settings, std::size_t blocks) {
        Pool pool(settings);
        std::vector<std::size_t> sizes;
        std::vector<void*> slots;
        while (sizes.size() < blocks) {
            std::size_t const before = pool.GetBlockCount();
            slots.push_back(pool.Allocate());
            if (pool.GetBlockCount() != before)
                sizes.push_back(0);
            ++sizes.back();
            if (sizes.size() == blocks) {
                sizes.pop_back(); // has only begun
                break;
            }
        }
        GiveBack(pool, slots);
        return sizes;
    }
};

TEST_F(PoolTest, GrowsByTheFactorFromTheThirdBlockOn) {
    using Sizes = std::vector<std::size_t>;
    EXPECT_EQ(MeasureBlocks({}, 7), (Sizes{256, 256, 332, 431, 560, 728}));
    EXPECT_EQ(MeasureBlocks({10, 4, 1.5}, 6), (Sizes{10, 4, 6, 9, 13}));
    EXPECT_EQ(MeasureBlocks({4, 4, 1.0}, 5), (Sizes{4, 4, 4, 4}));
}

TEST_F(PoolTest, HasAtLeastOneSlotInABlockWhateverTheSettings) {
    using Sizes = std::vector<std::size_t>;
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (double const factor : {0.0, 0.1, -5.0, nan, -std::numeric_limits<double>::infinity()})
        EXPECT_EQ(MeasureBlocks({0, 0, factor}, 5), (Sizes{1, 1, 1, 1})) << factor;
}

TEST_F(PoolTest, AsksForMoreMemoryThanThereIsRatherThanForTooLittle) {
    constexpr std::size_t most = std::numeric_limits<std::size_t>::max();
    struct Case {
        qzPoolSettings settings;
        std::size_t smallBlocks; ///< of one slot, before the one that is too large
    };
    for (Case const& tried : {Case{{most, 1, 1.0}, 0}, Case{{1, most, 1.0}, 1}, Case{{1, 1, 1e300}, 2},
                              Case{{1, 1, std::numeric_limits<double>::infinity()}, 2}}) {
        Pool pool(tried.settings);
        auto const slots = Take(pool, tried.smallBlocks);
        EXPECT_EQ(pool.GetBlockCount(), tried.smallBlocks);
        Backing::s_exhausted = true;
        Backing::s_largestRequest = 0;
        EXPECT_THROW(pool.Allocate(), std::bad_alloc);
        Backing::s_exhausted = false;
        EXPECT_GT(Backing::s_largestRequest, most / 4);
        GiveBack(pool, slots);
    }
}

TEST_F(PoolTest, HandsOutDistinctAlignedSlots) {
    Pool pool;
    auto const slots = Take(pool, 2000);
    EXPECT_EQ(pool.GetLiveCount(), 2000U);
    for (void* const slot : slots) {
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(slot) % alignof(Item), 0U);
        ::new (slot) Item{1.0, 'x'};
    }
    std::set<void*> const ordered(slots.begin(), slots.end());
    ASSERT_EQ(ordered.size(), slots.size());
    for (auto slot = ordered.begin(), next = std::next(slot); next != ordered.end(); ++slot, ++next)
        ASSERT_GE(static_cast<char*>(*next) - static_cast<char*>(*slot), std::ptrdiff_t{sizeof(Item)});
    GiveBack(pool, slots);
    EXPECT_EQ(pool.GetLiveCount(), 0U);
}

TEST_F(PoolTest, TakesUnusedSlotsBeforeReleasedOnesAndThoseLastFirst) {
    Pool pool({4, 4, 1.0});
    EXPECT_EQ(Backing::s_blocks, 0U) << "none is needed yet";
    auto slots = Take(pool, 2);
    pool.Release(slots[0]);
    pool.Release(slots[1]);
    auto const unused = Take(pool, 2);
    EXPECT_EQ(std::ranges::count(unused, slots[0]) + std::ranges::count(unused, slots[1]), 0)
        << "the block still had two slots";
    EXPECT_EQ(Take(pool, 2), (std::vector{slots[1], slots[0]}));
    EXPECT_EQ(pool.GetBlockCount(), 1U);
    auto const more = Take(pool, 1);
    EXPECT_EQ(pool.GetBlockCount(), 2U) << "a block is added only when no slot is left";
    pool.Release(slots[0]);
    EXPECT_NE(pool.Allocate(), slots[0]) << "the new block comes first";
    GiveBack(pool, {slots[1], unused[0], unused[1], more[0]});
    EXPECT_EQ(pool.GetLiveCount(), 1U);
}

TEST_F(PoolTest, TakesTheSlotsOfABlockInOrderOfAddress) {
    Pool pool({8, 8, 1.0});
    auto const slots = Take(pool, 8);
    EXPECT_TRUE(std::ranges::is_sorted(slots));
    EXPECT_EQ(static_cast<char*>(slots[7]) - static_cast<char*>(slots[0]), std::ptrdiff_t{7 * sizeof(Item)});
    GiveBack(pool, slots);
}

TEST_F(PoolTest, StaysUsableWhenThereIsNoMemory) {
    Pool pool({4, 4, 1.0});
    auto slots = Take(pool, 4);
    Backing::s_exhausted = true;
    EXPECT_THROW(pool.Allocate(), std::bad_alloc);
    EXPECT_THROW(pool.Allocate(), std::bad_alloc);
    EXPECT_EQ(ShownMutex::s_held, 0);
    EXPECT_EQ(pool.GetLiveCount(), 4U);
    EXPECT_EQ(pool.GetBlockCount(), 1U);
    pool.Release(slots[2]);
    EXPECT_EQ(pool.Allocate(), slots[2]);
    Backing::s_exhausted = false;
    slots.push_back(pool.Allocate());
    EXPECT_EQ(pool.GetBlockCount(), 2U);
    GiveBack(pool, slots);
}

TEST_F(PoolTest, GivesItsMemoryBackOnceItIsClosedAndNothingLives) {
    Pool pool({2, 2, 1.0});
    auto const slots = Take(pool, 5);
    pool.Close();
    EXPECT_EQ(Backing::s_blocks, 3U) << "objects still live";
    auto const late = Take(pool, 2);
    GiveBack(pool, late);
    for (std::size_t i = 1; i < slots.size(); ++i)
        pool.Release(slots[i]);
    EXPECT_GT(Backing::s_blocks, 0U);
    pool.Release(slots[0]);
    EXPECT_EQ(Backing::s_blocks, 0U);

    void* const afterwards = pool.Allocate();
    EXPECT_EQ(Backing::s_blocks, 1U);
    pool.Release(afterwards);
    EXPECT_EQ(Backing::s_blocks, 0U);
}

TEST_F(PoolTest, ClosedWithoutObjectsGivesItsMemoryBackAtOnce) {
    Pool pool;
    pool.Release(pool.Allocate());
    pool.Close();
    EXPECT_EQ(Backing::s_blocks, 0U);
}

TEST_F(PoolTest, InStaticStorageIsClosedByItsCloserAndOutlivesIt) {
    static qzStaticPool<Pool> pool;
    void* const survivor = pool.Get().Allocate();
    { qzStaticPool<Pool>::Closer const closer{pool}; }
    EXPECT_EQ(Backing::s_blocks, 1U);
    pool.Get().Release(survivor);
    EXPECT_EQ(Backing::s_blocks, 0U);
}

TEST(Pool, TakesObjectsBackOnAnyThread) {
    qzFixedSizeAllocatorND<Item> pool;
    constexpr std::size_t count = 3000;
    std::vector<void*> slots[2];
    auto const fill = [&](std::vector<void*>& mine) {
        for (std::size_t i = 0; i < count; ++i)
            mine.push_back(::new (pool.Allocate()) Item{static_cast<double>(i), 'x'});
    };
    auto const empty = [&](std::vector<void*> const& theirs) {
        for (void* const slot : theirs)
            pool.Release(slot);
    };
    std::thread first(fill, std::ref(slots[0]));
    fill(slots[1]);
    first.join();
    EXPECT_EQ(pool.GetLiveCount(), 2 * count);
    for (auto const& mine : slots)
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(static_cast<Item*>(mine[i])->number, static_cast<double>(i));
    std::thread second(empty, std::cref(slots[1]));
    empty(slots[0]);
    second.join();
    EXPECT_EQ(pool.GetLiveCount(), 0U);
}

} // namespace
