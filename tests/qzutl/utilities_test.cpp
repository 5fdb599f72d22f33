#include "qzutl/qzMallocAllocator.h"
#include "qzutl/qzSimpleMutex.h"
#include "qzutl/qzStlVector.h"
#include "qzutl/qzString.h"
#include "qzutl/qzVariant.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <list>
#include <mutex>
#include <span>
#include <type_traits>
#include <vector>

namespace {

TEST(QzStlVector, HoldsBoolsSideBySide) {
    qzStlVector<bool> flags = {true, false, true};
    bool* const first = &flags[0];
    first[1] = true;
    EXPECT_TRUE(flags[1]);
    EXPECT_EQ(&flags[2], first + 2);
    std::span const all(flags);
    all.front() = false;
    static_assert(std::ranges::contiguous_range<qzStlVector<qzString> const>);
    EXPECT_FALSE(flags[0]);
}

TEST(QzStlVector, IsMadeFromWhatCallersHaveAndComparesWithIt) {
    std::vector<int> const vector = {1, 2, 3};
    std::array<int, 3> const array = {1, 2, 3};
    std::list<int> const list = {1, 2, 3};
    qzStlVector<int> const made = {1, 2, 3};
    EXPECT_EQ(qzStlVector<int>(vector), made);
    EXPECT_EQ(qzStlVector<int>(array), made);
    EXPECT_EQ(qzStlVector<int>(list), made);
    EXPECT_EQ(qzStlVector<int>(std::span(vector)), made);
    EXPECT_EQ(qzStlVector<int>(vector.begin(), vector.end()), made);
    EXPECT_TRUE(made == vector && vector == made && made == array && made == list);
    EXPECT_TRUE(made != std::vector<int>({1, 2}) && made != std::vector<int>({1, 2, 4}));
    EXPECT_EQ(qzStlVector<bool>(std::vector<bool>{true, false}), (qzStlVector<bool>{true, false}));

    auto const take = [](qzStlVector<int> const& items) { return items.size(); };
    EXPECT_EQ(take(vector), 3U) << "converts by itself";
    static_assert(!std::is_convertible_v<std::vector<double>, qzStlVector<int>>, "but never the elements");
}

TEST(QzStlVector, TellsCountsFromElements) {
    EXPECT_EQ(qzStlVector<int>(3, 7), (qzStlVector<int>{7, 7, 7}));
    EXPECT_EQ((qzStlVector<int>{3, 7}.size()), 2U);
    EXPECT_EQ(qzStlVector<double>(2), (qzStlVector<double>{0, 0}));
    EXPECT_EQ((qzStlVector<qzString>{"a", "b"}[1]), "b");
}

TEST(QzStlVector, CopiesMovesAndAssigns) {
    qzStlVector<qzStlVector<int>> rows = {{1, 2}, {}, {3}};
    auto const copy = rows;
    rows[0][1] = 9;
    EXPECT_NE(rows, copy);
    auto const moved = std::move(rows);
    EXPECT_EQ(moved[0], (qzStlVector<int>{1, 9}));
    EXPECT_TRUE(rows.empty());
    rows = {{4}};
    EXPECT_EQ(rows.size(), 1U);
    rows = {};
    EXPECT_TRUE(rows.empty());
    static_assert(std::is_nothrow_move_constructible_v<qzStlVector<int>>);
}

TEST(QzStlVector, InsertsAndErasesInTheMiddle) {
    qzStlVector<int> list = {1, 5};
    list.insert(list.begin() + 1, {2, 3});
    EXPECT_EQ(*list.insert(list.begin() + 3, 4), 4);
    list.insert(list.end(), 2, 6);
    std::vector<int> const tail = {7, 8};
    list.insert(list.end(), tail.begin(), tail.end());
    EXPECT_EQ(*list.emplace(list.begin(), 0), 0);
    EXPECT_EQ(list, (std::vector{0, 1, 2, 3, 4, 5, 6, 6, 7, 8}));
    EXPECT_EQ(*list.erase(list.begin()), 1);
    auto const* const end = list.erase(list.begin() + 5, list.end());
    EXPECT_EQ(end, list.end());
    EXPECT_EQ(list, (std::vector{1, 2, 3, 4, 5}));
    list.assign(2, 7);
    EXPECT_EQ(list, (std::vector{7, 7}));
    list.assign(tail.begin(), tail.end());
    EXPECT_EQ(list, tail);
    list.assign({9});
    EXPECT_EQ(list, (std::vector{9}));
}

TEST(QzStlVector, TakesElementsOfItsOwnAsArguments) {
    using Texts = qzStlVector<qzString>;
    // Texts that live on the heap, with and without room for more of them.
    for (std::size_t const capacity : {3U, 50U}) {
        auto const make = [capacity] {
            Texts texts = {qzString(40, 'a'), qzString(40, 'b'), qzString(40, 'c')};
            texts.reserve(capacity);
            return texts;
        };
        qzString const b(40, 'b');
        auto const check = [&](auto const& change, std::size_t at) {
            Texts texts = make();
            change(texts);
            EXPECT_EQ(texts.at(at), b) << "capacity " << capacity;
        };
        check([](Texts& texts) { texts.push_back(texts[1]); }, 3);
        check([](Texts& texts) { texts.emplace_back(texts[1]); }, 3);
        check([](Texts& texts) { texts.insert(texts.begin(), texts[1]); }, 0);
        check([](Texts& texts) { texts.insert(texts.begin(), 3, texts[1]); }, 2);
        check([](Texts& texts) { texts.emplace(texts.begin(), texts[1]); }, 0);
        check([](Texts& texts) { texts.resize(40, texts[1]); }, 39);
        check([](Texts& texts) { texts.assign(40, texts[1]); }, 39);
    }
}

/// Sets every kind in turn; the index is that of the kind.
void Set(qzVariant& variant, int kind, void* pointer) {
    switch (kind) {
    case qzVariant::KIND_EMPTY:
        return variant.Clear();
    case qzVariant::KIND_INTEGER:
        return variant.SetInteger(1);
    case qzVariant::KIND_LONG64:
        return variant.SetLong64(1);
    case qzVariant::KIND_BOOLEAN:
        return variant.SetBoolean(true);
    case qzVariant::KIND_FLOAT:
        return variant.SetFloat(1);
    case qzVariant::KIND_DOUBLE:
        return variant.SetDouble(1);
    case qzVariant::KIND_STRING:
        return variant.SetString("1");
    default:
        return variant.SetPointer(pointer);
    }
}

TEST(QzVariant, AnswersOnlyForTheKindItHolds) {
    int target = 0;
    for (int held = qzVariant::KIND_EMPTY; held <= qzVariant::KIND_POINTER; ++held) {
        qzVariant variant;
        Set(variant, held, &target);
        ASSERT_EQ(variant.GetKind(), held);
        EXPECT_EQ(variant.IsEmpty(), held == qzVariant::KIND_EMPTY);

        int integer = 5;
        long long long64 = 5;
        bool boolean = false;
        float single = 5;
        double number = 5;
        qzString text = "5";
        void* pointer = nullptr;
        EXPECT_EQ(variant.GetInteger(integer), held == qzVariant::KIND_INTEGER);
        EXPECT_EQ(variant.GetLong64(long64), held == qzVariant::KIND_LONG64);
        EXPECT_EQ(variant.GetBoolean(boolean), held == qzVariant::KIND_BOOLEAN);
        EXPECT_EQ(variant.GetFloat(single), held == qzVariant::KIND_FLOAT);
        EXPECT_EQ(variant.GetDouble(number), held == qzVariant::KIND_DOUBLE);
        EXPECT_EQ(variant.GetString(text), held == qzVariant::KIND_STRING);
        EXPECT_EQ(variant.GetPointer(pointer), held == qzVariant::KIND_POINTER);

        EXPECT_EQ(integer, held == qzVariant::KIND_INTEGER ? 1 : 5);
        EXPECT_EQ(long64, held == qzVariant::KIND_LONG64 ? 1 : 5);
        EXPECT_EQ(boolean, held == qzVariant::KIND_BOOLEAN);
        EXPECT_EQ(single, held == qzVariant::KIND_FLOAT ? 1 : 5);
        EXPECT_EQ(number, held == qzVariant::KIND_DOUBLE ? 1 : 5);
        EXPECT_EQ(text, held == qzVariant::KIND_STRING ? "1" : "5");
        EXPECT_EQ(pointer, held == qzVariant::KIND_POINTER ? &target : nullptr);
    }
}

TEST(QzVariant, IsEqualToOneOfTheSameKindAndValue) {
    int target = 0;
    for (int a = qzVariant::KIND_EMPTY; a <= qzVariant::KIND_POINTER; ++a)
        for (int b = qzVariant::KIND_EMPTY; b <= qzVariant::KIND_POINTER; ++b) {
            qzVariant left, right;
            Set(left, a, &target);
            Set(right, b, &target);
            EXPECT_EQ(left == right, a == b);
        }
    qzVariant one, two;
    one.SetLong64(1LL << 40);
    two.SetLong64(0);
    EXPECT_NE(one, two);
}

TEST(QzSimpleMutex, LetsOneThreadInAtATime) {
    qzSimpleMutex mutex;
    unsigned int inside = 0; // not atomic: the mutex is what protects it
    RunThreads(4, [&](unsigned int) {
        for (int i = 0; i < 20000; ++i) {
            std::lock_guard const guard(mutex);
            ++inside;
        }
    });
    EXPECT_EQ(inside, 80000U);
}

TEST(QzSimpleMutex, RefusesWhileItIsHeld) {
    qzSimpleMutex mutex;
    ASSERT_TRUE(mutex.try_lock());
    EXPECT_FALSE(mutex.try_lock());
    mutex.unlock();
    EXPECT_TRUE(mutex.try_lock());
    mutex.unlock();
}

TEST(QzSimpleMutex, IsTakenWithAnotherInEitherOrder) {
    qzSimpleMutex a, b;
    unsigned int inside = 0;
    RunThreads(2, [&](unsigned int thread) {
        for (int i = 0; i < 5000; ++i) {
            std::scoped_lock const guard(thread == 0 ? a : b, thread == 0 ? b : a);
            ++inside;
        }
    });
    EXPECT_EQ(inside, 10000U);
}

struct NoMemory {
    static void* Allocate(std::size_t) noexcept { return nullptr; }
    static void Release(void*) noexcept {}
};

TEST(QzMallocAllocator, ThrowsWhenThereIsNoMemoryOrTheSizeOverflows) {
    EXPECT_THROW((qzMallocAllocator<int, NoMemory>::Allocate(1)), std::bad_alloc);
    EXPECT_THROW(qzMallocAllocator<std::uint64_t>::Allocate(SIZE_MAX / 4), std::bad_alloc);
    int* const memory = qzMallocAllocator<int>::Allocate(100);
    memory[99] = 7;
    EXPECT_EQ(memory[99], 7);
    qzMallocAllocator<int>::Release(memory);
}

} // namespace
