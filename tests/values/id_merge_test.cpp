#include "descriptor/EntityListBag.h"
#include "support/Random.h"
#include "values/collections/IdSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

using namespace qzDescriptor;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Ids = qzStlVector<unsigned int>;

EntityFullType const s_grid(1);
EntityFullType const s_face(EntityFullType::TopologyType{3}, 1, 0);

constexpr unsigned int s_last = 0xFFFFFFFF;

EntityListBag MakeBag(EntityList const& list) {
    EntityListBag bag;
    EXPECT_TRUE(bag.SetList(list));
    return bag;
}

EntityListBag MakeBag(Ids const& ids) { return MakeBag(EntityList(s_grid, ids, {})); }

Ids Add(Ids const& ids, Ids const& other) {
    EntityListBag bag = MakeBag(ids);
    bag += MakeBag(other);
    return bag.GetList(s_grid).GetList();
}

Ids Remove(Ids const& ids, Ids const& other) {
    EntityListBag bag = MakeBag(ids);
    bag -= MakeBag(other);
    return bag.GetList(s_grid).GetList();
}

// ---- the results ----

TEST(EntityListBag, TakesOverWholeTheListsOfTypesThatItDoesNotHold) {
    EntityListBag bag = MakeBag(EntityList(EntityFullType("A"), {1}, {}));
    EntityListBag const other = MakeBag(EntityList(s_face, {2, 2, 1}, {'a', 'b', 'c'}));
    bag += other;
    EXPECT_EQ(bag.GetEntityFullTypeListCount(), 2U);
    EXPECT_THAT(bag.GetList(s_face).GetList(), ElementsAre(2, 2, 1)) << "repeated ids included";
    EXPECT_THAT(bag.GetList(s_face).GetTopologyIndexList(), ElementsAre('a', 'b', 'c'));
    bag.SetListId(s_face, 0, 9);
    EXPECT_EQ(other.GetList(s_face)[0], 2U);
}

TEST(EntityListBag, RemovesOnlyFromTypesThatBothHoldAndKeepsEmptiedLists) {
    EntityListBag bag = MakeBag(EntityList(EntityFullType("A"), {1, 2}, {}));
    bag.SetList(EntityList(s_grid, {1, 2}, {}));
    EntityListBag other = MakeBag(Ids{2, 1});
    other.SetList(EntityList(EntityFullType("B"), {1}, {}));
    bag -= other;
    EXPECT_EQ(bag.GetEntityFullTypeListCount(), 2U);
    EXPECT_EQ(bag.GetIdListCount(s_grid), 0U);
    EXPECT_THAT(bag.GetList(EntityFullType("A")).GetList(), ElementsAre(1, 2));
}

TEST(EntityListBag, MergesWithItself) {
    EntityListBag bag = MakeBag(EntityList(s_face, {3, 1, 3}, {'a', 'b', 'c'}));
    EntityListBag const before = bag;
    EntityListBag& same = bag;
    bag += same;
    EXPECT_EQ(bag, before);
    EXPECT_THAT(bag.GetList(s_face).GetTopologyIndexList(), ElementsAre('a', 'b', 'c'));
    bag -= same;
    EXPECT_EQ(bag.GetEntityFullTypeListCount(), 1U);
    EXPECT_THAT(bag.GetList(s_face).GetList(), IsEmpty());
    EXPECT_THAT(bag.GetList(s_face).GetTopologyIndexList(), IsEmpty());
}

TEST(EntityListBag, KeepsTopologyIndicesInStepThroughMerges) {
    EntityListBag bag = MakeBag(EntityList(s_face, {5, 3}, {'a', 'b'}));
    bag += MakeBag(EntityList(s_face, {3, 7, 8, 7}, {'c', 'd', 'e', 'f'}));
    EXPECT_THAT(bag.GetList(s_face).GetList(), ElementsAre(5, 3, 7, 8));
    EXPECT_THAT(bag.GetList(s_face).GetTopologyIndexList(), ElementsAre('a', 'b', 'd', 'e'));
    bag += MakeBag(EntityList(s_grid, {1}, {}));
    EXPECT_THAT(bag.GetList(s_face).GetTopologyIndexList(), ElementsAre('a', 'b', 'd', 'e', 0))
        << "a list of the same type without a topology kind";
    bag -= MakeBag(EntityList(s_grid, {3, 8}, {}));
    EXPECT_THAT(bag.GetList(s_face).GetList(), ElementsAre(5, 7, 1));
    EXPECT_THAT(bag.GetList(s_face).GetTopologyIndexList(), ElementsAre('a', 'd', 0));

    EntityListBag plain = MakeBag(EntityList(s_grid, {1}, {}));
    plain += bag;
    EXPECT_THAT(plain.GetList(s_grid).GetList(), ElementsAre(1, 5, 7));
    EXPECT_THAT(plain.GetList(s_grid).GetTopologyIndexList(), IsEmpty());
}

TEST(EntityListBag, MergesListsWhoseIdsAndIndicesCallersChangedAlone) {
    EntityListBag bag = MakeBag(EntityList(s_face, {1}, {'a'}));
    EntityListBag other = MakeBag(EntityList(s_face, {2, 3}, {'b', 'c'}));
    bag.GetList(s_face).GetList().push_back(4);
    other.GetList(s_face).GetTopologyIndexList().pop_back();
    bag += other;
    EXPECT_THAT(bag.GetList(s_face).GetList(), ElementsAre(1, 4, 2, 3));
    EXPECT_THAT(bag.GetList(s_face).GetTopologyIndexList(), ElementsAre('a', 0, 'b', 0));
    bag.GetList(s_face).GetTopologyIndexList().clear();
    bag -= other;
    EXPECT_THAT(bag.GetList(s_face).GetTopologyIndexList(), ElementsAre(0, 0));
}

TEST(EntityListBag, MergesAllItsTypes) {
    EntityListBag bag;
    EntityListBag other;
    for (unsigned int i = 1; i < 300; ++i) {
        EntityFullType const type(i % 2 == 0 ? EntityFullType(i) : EntityFullType("T", i));
        bag.SetList(EntityList(type, {i, 1000}, {}));
        other.SetList(EntityList(type, {1000, i + 1}, {}));
    }
    EntityListBag sum = bag;
    sum += other;
    EntityListBag rest = bag;
    rest -= other;
    for (EntityList const& list : bag) {
        unsigned int const i = list[0];
        EXPECT_THAT(sum.GetList(list.GetEntityFullType()).GetList(), ElementsAre(i, 1000, i + 1));
        EXPECT_THAT(rest.GetList(list.GetEntityFullType()).GetList(), ElementsAre(i));
    }
}

// ---- against a model ----

std::vector<unsigned int> AddOneByOne(Ids const& ids, Ids const& other) {
    std::vector<unsigned int> sum(ids.begin(), ids.end());
    std::set<unsigned int> held(ids.begin(), ids.end());
    for (unsigned int const id : other)
        if (held.insert(id).second)
            sum.push_back(id);
    return sum;
}

std::vector<unsigned int> RemoveOneByOne(Ids const& ids, Ids const& other) {
    std::set<unsigned int> const removed(other.begin(), other.end());
    std::vector<unsigned int> rest(ids.begin(), ids.end());
    std::erase_if(rest, [&](unsigned int id) { return removed.contains(id); });
    return rest;
}

void ExpectMergesAsOneByOne(Ids const& ids, Ids const& other) {
    EXPECT_TRUE(Add(ids, other) == AddOneByOne(ids, other));
    EXPECT_TRUE(Remove(ids, other) == RemoveOneByOne(ids, other));
}

/// Ids from a range that is narrow or wide for their number, so that many, some or none are shared.
Ids MakeRandomIds(Random& random, unsigned int first, unsigned int span) {
    Ids ids(random.Below(random.Pick({2U, 20U, 400U, 5000U})));
    for (unsigned int& id : ids)
        id = first + random.Below(span);
    return ids;
}

TEST(EntityListBag, MergesRandomListsAsOneByOne) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (int round = 0; round < 600; ++round) {
        unsigned int const first = random.Pick({0U, 1U, 70U, 1U << 31, s_last - 5});
        unsigned int const span = random.Pick({1U, 10U, 1000U, 60'000U, 1'000'000U, s_last});
        SCOPED_TRACE("round " + std::to_string(round));
        ExpectMergesAsOneByOne(MakeRandomIds(random, first, span), MakeRandomIds(random, first, span));
    }
}

TEST(EntityListBag, MergesListsOfVeryDifferentLengths) {
    Ids sparse(50'000);
    Ids dense(50'000);
    for (unsigned int i = 0; i < 50'000; ++i) {
        sparse[i] = i * 85'000;
        dense[i] = 50'000 - i;
    }
    for (Ids const& few : {Ids{}, Ids{0}, Ids{85'000, 1, 1, 4'249'915'000}, Ids{s_last, 50'000, 170'000}}) {
        for (Ids const* const many : {&sparse, &dense}) {
            ExpectMergesAsOneByOne(*many, few);
            ExpectMergesAsOneByOne(few, *many);
        }
    }
    ExpectMergesAsOneByOne(Ids(50'000, 7U), {7, 8}); // what both hold may repeat one id all over
    ExpectMergesAsOneByOne({7, 8}, Ids(50'000, 7U));
}

// ---- patterns that a set of ids must spread ----

struct Pattern {
    std::string name;
    std::function<unsigned int(unsigned int)> make;
};

std::vector<Pattern> MakePatterns() {
    std::vector<Pattern> patterns;
    for (unsigned int const step : {1U, 2048U, 2049U, 362U, 987U, 3022U, 4181U, 1000U, 4096U, 8192U})
        patterns.push_back({"steps of " + std::to_string(step), [step](unsigned int i) { return i * step; }});
    for (unsigned int bits = 1; bits < 14; ++bits)
        patterns.push_back({"multiples of 2^" + std::to_string(bits + 18),
                            [bits](unsigned int i) { return i << (bits + 18) | i >> (14 - bits); }});
    patterns.push_back({"one residue of 2048", [](unsigned int i) { return 5 + i % 200'000 * 2048; }});
    patterns.push_back({"high halves", [](unsigned int i) { return i << 16 | i >> 16; }});
    patterns.push_back({"blocks", [](unsigned int i) { return i / 16 * 1'000'003 + i % 16; }});
    patterns.push_back({"descending", [](unsigned int i) { return s_last - i * 3000; }});
    return patterns;
}

/// The largest number of ids, of those made from 0 to count, whose own slots lie in one stretch of 64 slots:
/// around 20 when they are spread well.
unsigned int CountIdsOfFullestStretch(unsigned int count,
                                      std::function<unsigned int(unsigned int)> const& make) {
    constexpr std::size_t stretch = 64;
    IdTable const table(count);
    auto const* const firstSlot = static_cast<std::uint32_t const*>(table.GetPlace(0));
    std::vector<unsigned int> ids(table.GetByteCount() / sizeof(std::uint32_t) / stretch);
    for (unsigned int i = 0; i < count; ++i) {
        auto const slot = static_cast<std::uint32_t const*>(table.GetPlace(make(i))) - firstSlot;
        ++ids[static_cast<std::size_t>(slot) / stretch];
    }
    return std::ranges::max(ids);
}

TEST(IdTable, SpreadsEveryPatternOfIdsOverItsSlots) {
    for (unsigned int const count : {1000U, 30'000U, 100'000U})
        for (auto const& [name, make] : MakePatterns())
            EXPECT_LT(CountIdsOfFullestStretch(count, make), 64U) << count << " ids, " << name;
}

TEST(IdTable, SpreadsIdsInStepsOfAnyNumberOverItsSlots) {
    for (unsigned int step = 1; step < 20'000; ++step)
        ASSERT_LT(CountIdsOfFullestStretch(1000, [&](unsigned int i) { return i * step; }), 64U) << step;
}

TEST(EntityListBag, MergesEveryPatternOfIds) {
    constexpr unsigned int count = 40'000;
    for (auto const& [name, make] : MakePatterns()) {
        SCOPED_TRACE(name);
        Ids ids(count);
        Ids other(count);
        for (unsigned int i = 0; i < count; ++i) {
            ids[i] = make(i);
            other[i] = make(i + count / 2);
        }
        ids.push_back(s_last); // together they span every number
        ids.push_back(0);
        ExpectMergesAsOneByOne(ids, other);
    }
}

TEST(EntityListBag, MergesAMillionIds) {
    constexpr unsigned int count = 1'000'000;
    for (unsigned int const step : {1U, 4000U}) {
        Ids ids(count);
        Ids other(count);
        for (unsigned int i = 0; i < count; ++i) {
            ids[i] = i * step;
            other[i] = (count + count / 2 - i) * step;
        }
        Ids sum = ids;
        for (unsigned int i = 0; i <= count / 2; ++i)
            sum.push_back((count + count / 2 - i) * step);
        EXPECT_TRUE(Add(ids, other) == sum);
        ids.resize(count / 2 + 1);
        EXPECT_TRUE(Remove(sum, other) == ids);
    }
}

} // namespace
