#include "descriptor/EntityListBagList.h"
#include "support/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace qzDescriptor;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

EntityList MakeList(unsigned int id) { return EntityList(EntityFullType(1), {id}, {}); }

auto GetPairs(EntityListBagList const& list) {
    qzStlVector<std::pair<unsigned int, qzString>> pairs = {{99, "from before"}};
    list.GetRegisteredPairs(pairs);
    return pairs;
}

TEST(EntityListBagList, RegistersEmptyValidBags) {
    EntityListBagList list;
    unsigned int const index = list.Register(7, "a");
    EXPECT_TRUE(list.Query(index).IsValid());
    EXPECT_TRUE(list.Query(index).IsEmpty());
    EXPECT_EQ(list.GetUserFlag(index), 0U);
    EXPECT_TRUE(list.Modify(index).SetList(MakeList(5)));
    EXPECT_EQ(list.Query(index).GetList(EntityFullType(1)), MakeList(5));
}

TEST(EntityListBagList, NeverUsesAPlaceAgain) {
    EntityListBagList list;
    list.Register(7, "a");
    list.Register(7, "b");
    list.SetUserFlag(0, 3);
    EXPECT_TRUE(list.Unregister(0));
    EXPECT_FALSE(list.Unregister(0));
    EXPECT_EQ(list.Find(7, "a"), EntityListBagList::s_notFound);
    EXPECT_THAT(GetPairs(list), ElementsAre(Pair(7, "b")));
    EXPECT_FALSE(list.SetUserFlag(0, 4));
    EXPECT_EQ(list.GetUserFlag(0), 0U);
    EXPECT_EQ(list.Register(0, ""), 2U) << "a free place has no key and name";
    EXPECT_EQ(list.Register(7, "a"), 3U);
    EXPECT_EQ(list.Find(7, "b"), 1U);
}

TEST(EntityListBagList, AnswersWithAnInvalidBagWhereThereIsNone) {
    EntityListBagList list;
    list.Unregister(list.Register(7, "a"));
    for (unsigned int const index : {0U, 1U, EntityListBagList::s_notFound}) {
        EXPECT_FALSE(list.Query(index).IsValid());
        EXPECT_FALSE(list.Modify(index).SetList(MakeList(1)));
        EXPECT_FALSE(list.Unregister(1));
        EXPECT_FALSE(list.SetUserFlag(index, 1));
        EXPECT_EQ(list.GetUserFlag(index), 0U);
    }
}

TEST(EntityListBagList, ForgetsWhatIsAssignedToAnInvalidBag) {
    EntityListBagList list;
    list.Modify(0) = EntityListBag();
    EXPECT_FALSE(list.Modify(0).IsValid());
    EntityListBag const taken = std::move(list.Modify(0));
    EXPECT_FALSE(list.Modify(0).IsValid());
    EXPECT_EQ(list.Modify(0), EntityListBag(EntityListBag::s_invalidBlockSize));
    EXPECT_FALSE(list.Query(0).IsValid());
}

TEST(EntityListBagList, KeepsBagsWhereTheyAreWhileOthersAreRegistered) {
    EntityListBagList list;
    EntityListBag& bag = list.Modify(list.Register(7, "a"));
    for (unsigned int i = 0; i < 1000; ++i)
        list.Register(i, "b");
    EXPECT_TRUE(bag.SetList(MakeList(5)));
    EXPECT_EQ(list.Query(0), bag);
    EXPECT_EQ(&list.Query(0), &bag);
    EntityListBagList const moved = std::move(list);
    EXPECT_EQ(&moved.Query(0), &bag);
}

TEST(EntityListBagList, CarriesAUserFlagForEveryBag) {
    EntityListBagList list;
    list.Register(7, "a");
    list.Register(7, "b");
    EXPECT_TRUE(list.SetUserFlag(1, 0xFFFFFFFF));
    EXPECT_EQ(list.GetUserFlag(0), 0U);
    EXPECT_EQ(list.GetUserFlag(1), 0xFFFFFFFF);
    list.Register(7, "b");
    EXPECT_EQ(list.GetUserFlag(1), 0xFFFFFFFF);
}

TEST(EntityListBagList, CopiesDeeply) {
    EntityListBagList list;
    list.Modify(list.Register(7, "a")).SetList(MakeList(5));
    list.Unregister(list.Register(8, "b"));
    EntityListBagList copy(list);
    EntityListBagList assigned;
    assigned.Register(9, "gone");
    assigned = list;
    for (EntityListBagList* const other : {&copy, &assigned}) {
        EXPECT_EQ(*other, list);
        EXPECT_EQ(other->Find(7, "a"), 0U);
        EXPECT_EQ(other->Find(9, "gone"), EntityListBagList::s_notFound);
        EXPECT_EQ(other->Register(8, "b"), 2U);
        other->Modify(0).SetListId(EntityFullType(1), 0, 6);
    }
    EXPECT_EQ(list.Query(0).GetList(EntityFullType(1)), MakeList(5));
    EXPECT_EQ(list.Find(8, "b"), EntityListBagList::s_notFound);
    EntityListBagList& same = list;
    list = same;
    EXPECT_EQ(list.Query(0).GetList(EntityFullType(1)), MakeList(5));
}

TEST(EntityListBagList, IsEmptyAndUsableOnceItIsMovedFrom) {
    EntityListBagList list;
    list.Register(7, "a");
    EntityListBagList const moved = std::move(list);
    EXPECT_EQ(moved.Find(7, "a"), 0U);
    EXPECT_EQ(list, EntityListBagList());
    EXPECT_THAT(GetPairs(list), IsEmpty());
    EXPECT_EQ(EntityListBagList(list), list);
    EXPECT_FALSE(list.Unregister(0));
    EXPECT_EQ(list.Register(8, "b"), 0U);
}

TEST(EntityListBagList, ComparesPlaceByPlace) {
    auto const make = [](unsigned int key, char const* name, unsigned int flag, unsigned int id) {
        EntityListBagList list;
        unsigned int const index = list.Register(key, name);
        list.SetUserFlag(index, flag);
        list.Modify(index).SetList(MakeList(id));
        return list;
    };
    EntityListBagList const list = make(7, "a", 1, 5);
    EXPECT_EQ(list, make(7, "a", 1, 5));
    EXPECT_NE(list, make(8, "a", 1, 5));
    EXPECT_NE(list, make(7, "b", 1, 5));
    EXPECT_NE(list, make(7, "a", 2, 5));
    EXPECT_NE(list, make(7, "a", 1, 6));
    EXPECT_NE(list, EntityListBagList());

    EntityListBagList longer = list;
    longer.Register(8, "b");
    EXPECT_NE(list, longer);
    longer.Unregister(1);
    EXPECT_NE(list, longer) << "a free place is a place";
    EntityListBagList nameless = list;
    nameless.Register(0, "");
    EXPECT_NE(nameless, longer) << "free is not the same as without key and name";
    nameless.SetUserFlag(1, 9);
    nameless.Unregister(1);
    EXPECT_EQ(nameless, longer) << "nothing is left in a free place";
}

TEST(EntityListBagList, FindsAsAScanDoesUnderRandomRegistrations) {
    struct Place {
        unsigned int key;
        qzString name;
        bool free;
    };
    Random random;
    SCOPED_TRACE(random.GetSeed());
    EntityListBagList list;
    std::vector<Place> places;
    auto const scan = [&](unsigned int key, qzString const& name) {
        for (unsigned int i = 0; i < places.size(); ++i)
            if (!places[i].free && places[i].key == key && places[i].name == name)
                return i;
        return EntityListBagList::s_notFound;
    };
    for (int step = 0; step < 5000; ++step) {
        unsigned int const key = random.Below(5);
        qzString const name(random.Below(5), 'n');
        unsigned int const index = scan(key, name);
        ASSERT_EQ(list.Find(key, name), index);
        if (random.Chance(3)) {
            ASSERT_EQ(list.Unregister(index), index < places.size());
            if (index < places.size())
                places[index].free = true;
        } else if (index < places.size()) {
            ASSERT_EQ(list.Register(key, name), index);
        } else {
            ASSERT_EQ(list.Register(key, name), places.size());
            places.push_back({key, name, false});
        }
        qzStlVector<std::pair<unsigned int, qzString>> registered;
        for (Place const& place : places)
            if (!place.free)
                registered.emplace_back(place.key, place.name);
        ASSERT_TRUE(step % 50 != 0 || GetPairs(list) == registered);
    }
}

} // namespace
