#include "descriptor/Entity.h"
#include "descriptor/EntityListBag.h"
#include "support/Threads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <iterator>
#include <utility>

using namespace qzDescriptor;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

static_assert(std::forward_iterator<EntityListBag::const_iterator>);
static_assert(std::is_nothrow_move_constructible_v<EntityListBag>);
static_assert(std::is_nothrow_move_assignable_v<EntityListBag>);

EntityFullType const s_grid(1);
EntityFullType const s_face(EntityFullType::TopologyType{3}, 1, 0);
EntityFullType const s_element("ELEM", 2U);

EntityList MakeList(EntityFullType const& type, qzStlVector<unsigned int> const& ids) {
    return EntityList(type, ids, {});
}

EntityListBag MakeBag(std::initializer_list<EntityList> lists) {
    EntityListBag bag;
    for (EntityList const& list : lists)
        EXPECT_TRUE(bag.SetList(list));
    return bag;
}

qzStlVector<EntityFullType> GetTypes(EntityListBag const& bag) {
    qzStlVector<EntityFullType> types = {EntityFullType("from before")};
    bag.GetEntityFullTypeList(types);
    return types;
}

// ---- lists by type ----

TEST(EntityListBag, TellsTypesApartByEveryPartButTheTopologyKind) {
    EntityFullType const types[] = {
        EntityFullType(1),   EntityFullType(102),     EntityFullType(1, 1),     EntityFullType(1, "s"),
        EntityFullType("a"), EntityFullType("a", 1U), EntityFullType("a", "s"), EntityFullType("a", "t"),
    };
    EntityListBag bag;
    unsigned int id = 0;
    for (EntityFullType const& type : types)
        bag.SetList(MakeList(type, {++id}));
    EXPECT_EQ(bag.GetEntityFullTypeListCount(), std::size(types));
    for (unsigned int i = 0; i < std::size(types); ++i)
        EXPECT_EQ(bag.GetList(types[i]), MakeList(types[i], {i + 1}));
    EXPECT_TRUE(bag.SetList(EntityList(s_face, {50}, {'a'})));
    EXPECT_EQ(bag.GetEntityFullTypeListCount(), std::size(types));
    EXPECT_THAT(bag.GetList(s_grid).GetTopologyIndexList(), ElementsAre('a'));
    for (EntityFullType const& type : GetTypes(bag))
        EXPECT_EQ(type.GetTopologyType() != 0, type == s_face) << "the type comes with the list";
}

TEST(EntityListBag, RefusesAListWithoutAType) {
    EntityListBag bag;
    EXPECT_FALSE(bag.SetList(EntityList()));
    EXPECT_FALSE(bag.SetList(MakeList(EntityFullType(0, 5), {1})));
    EXPECT_TRUE(bag.IsEmpty());
}

TEST(EntityListBag, IsNotEmptyWithAListOfNoIds) { EXPECT_FALSE(MakeBag({MakeList(s_grid, {})}).IsEmpty()); }

TEST(EntityListBag, AnswersForTypesThatAreNotThere) {
    EntityListBag bag = MakeBag({MakeList(s_element, {1})});
    EntityList list = MakeList(s_grid, {7});
    Entity entity(s_grid, 8);
    unsigned int id = 9;
    EXPECT_FALSE(bag.GetList(s_grid, list));
    EXPECT_FALSE(bag.GetListEntity(s_grid, 0, entity));
    EXPECT_FALSE(bag.GetListId(s_grid, 0, id));
    EXPECT_FALSE(bag.SetListEntity(Entity(s_grid, 1), s_grid, 0));
    EXPECT_FALSE(bag.SetListId(s_grid, 0, 1));
    bag.ReserveList(s_grid, 10);
    EXPECT_EQ(bag.GetIdListCount(s_grid), 0U);
    EXPECT_EQ(bag.GetList(s_grid), EntityList());
    EXPECT_EQ(std::as_const(bag).GetList(s_grid), EntityList());
    EXPECT_EQ(list, MakeList(s_grid, {7}));
    EXPECT_EQ(entity, Entity(s_grid, 8));
    EXPECT_EQ(id, 9U);
    EXPECT_THAT(GetTypes(bag), ElementsAre(s_element));
}

TEST(EntityListBag, ForgetsWhatIsWrittenIntoAnAbsentList) {
    EntityListBag bag;
    EntityListBag other;
    bag.GetList(s_grid) = MakeList(s_grid, {1, 2});
    EXPECT_EQ(bag.GetList(s_grid), EntityList());
    EXPECT_EQ(std::as_const(other).GetList(s_element), EntityList());
    EXPECT_TRUE(bag.IsEmpty());

    EntityList& absent = bag.GetList(s_grid);
    RunThreads(2, [&](unsigned int thread) { bag.GetList(s_grid).SetId(0, thread, 0); });
    EXPECT_EQ(absent, EntityList());
}

TEST(EntityListBag, ReadsAndWritesSingleIds) {
    EntityListBag bag = MakeBag({EntityList(s_face, {1, 2}, {'a', 'b'})});
    unsigned int id = 0;
    Entity entity;
    EXPECT_TRUE(bag.SetListId(s_grid, 3, 9));
    EXPECT_TRUE(bag.GetListId(s_grid, 3, id));
    EXPECT_EQ(id, 9U);
    EXPECT_TRUE(bag.SetListEntity(Entity(s_grid, 5, 'c'), s_grid, 0));
    EXPECT_TRUE(bag.GetListEntity(s_grid, 0, entity));
    EXPECT_EQ(entity, Entity(s_grid, 5, 'c'));
    EXPECT_FALSE(bag.GetListId(s_grid, 4, id));
    EXPECT_FALSE(bag.GetListEntity(s_grid, 4, entity));
    EXPECT_EQ(id, 9U);
    EXPECT_EQ(entity, Entity(s_grid, 5, 'c'));
    EXPECT_THAT(bag.GetList(s_grid).GetList(), ElementsAre(5, 2, 0, 9));
    EXPECT_THAT(bag.GetList(s_grid).GetTopologyIndexList(), ElementsAre('c', 'b', 0, 0));
}

TEST(EntityListBag, RefusesToWriteAnEntityOfAnotherType) {
    EntityListBag bag = MakeBag({MakeList(s_grid, {1}), MakeList(s_element, {2})});
    EntityListBag const before = bag;
    EXPECT_FALSE(bag.SetListEntity(Entity(s_element, 9), s_grid, 0));
    EXPECT_FALSE(bag.SetListEntity(Entity(EntityFullType(1, 1), 9), s_grid, 0));
    EXPECT_FALSE(bag.SetListEntity(Entity(), s_grid, 0));
    EXPECT_EQ(bag, before);
    bag.GetList(s_grid).SetEntityFullType(EntityFullType());
    EXPECT_FALSE(bag.SetListEntity(Entity(s_grid, 9), s_grid, 0)) << "the list lost its type";
}

TEST(EntityListBag, HandsOutListsThatStayWhereTheyAre) {
    EntityListBag bag = MakeBag({MakeList(s_grid, {1})});
    EntityList& list = bag.GetList(s_grid);
    for (unsigned int i = 2; i < 3000; ++i)
        bag.SetList(MakeList(EntityFullType(i), {i}));
    list.SetId(1, 2, 0);
    EXPECT_EQ(&bag.GetList(s_grid), &list);
    EXPECT_EQ(bag.GetList(s_grid), MakeList(s_grid, {1, 2}));
    bag.ReserveList(s_grid, 100);
    EXPECT_GE(list.GetList().capacity(), 100U);
}

TEST(EntityListBag, TakesListsOfItsOwnAsArguments) {
    EntityListBag bag = MakeBag({EntityList(s_face, {1, 2, 3}, {'a', 'b', 'c'}), MakeList(s_element, {4})});
    EntityListBag const before = bag;
    EXPECT_TRUE(bag.SetList(bag.GetList(s_grid)));
    EXPECT_TRUE(bag.GetList(bag.GetList(s_grid).GetEntityFullType(), bag.GetList(s_grid)));
    EXPECT_TRUE(bag.SetListEntity(Entity(s_grid, 1, 'a'), bag.GetList(s_grid).GetEntityFullType(), 0));
    EntityListBag& same = bag;
    bag = same;
    EXPECT_EQ(bag, before);
    EXPECT_THAT(bag.GetList(s_grid).GetTopologyIndexList(), ElementsAre('a', 'b', 'c'));
    Entity entity(s_element);
    EXPECT_TRUE(bag.GetListEntity(entity.GetEntityFullType(), 0, entity));
    EXPECT_EQ(entity, Entity(s_element, 4));
    EXPECT_FALSE(bag.SetList(bag.GetList(EntityFullType("absent"))));
}

// ---- order ----

TEST(EntityListBag, GoesByTheHashOfTheTypeAndThenByInsertion) {
    EntityListBag const bag = MakeBag({MakeList(EntityFullType(205), {}), MakeList(EntityFullType(104), {}),
                                       MakeList(EntityFullType(3), {}), MakeList(EntityFullType(102), {})});
    EXPECT_THAT(GetTypes(bag), ElementsAre(EntityFullType(102), EntityFullType(205), EntityFullType(104),
                                           EntityFullType(3)));
}

TEST(EntityListBag, KeepsAWalkGoodWhileTypesAreAdded) {
    EntityListBag bag = MakeBag({MakeList(s_grid, {1}), MakeList(s_element, {2})});
    unsigned int met = 0;
    for (auto place = bag.begin(); place != bag.end(); place++, ++met)
        for (unsigned int i = 0; i < 100; ++i)
            bag.SetList(MakeList(EntityFullType("new", met * 100 + i), {i}));
    EXPECT_EQ(met, 2U);
    EXPECT_EQ(std::distance(bag.begin(), bag.end()), 202);
}

// ---- validity ----

TEST(EntityListBag, FailsInEveryOperationWhenItIsInvalid) {
    EntityListBag source = MakeBag({MakeList(s_grid, {1})});
    EntityListBag const moved = std::move(source);
    EntityListBag const invalid(EntityListBag::s_invalidBlockSize);
    EntityListBag copyOfMoved(source);
    EntityListBag copyOfInvalid(invalid);
    EntityListBag assigned = moved;
    assigned = invalid;
    for (EntityListBag* const bag : {&source, &copyOfMoved, &copyOfInvalid, &assigned}) {
        Entity entity(s_grid, 8);
        EntityList list = MakeList(s_grid, {7});
        unsigned int id = 9;
        EXPECT_FALSE(bag->IsValid());
        EXPECT_FALSE(bag->SetList(MakeList(s_grid, {1})));
        EXPECT_FALSE(bag->GetList(s_grid, list));
        EXPECT_FALSE(bag->SetListEntity(entity, s_grid, 0));
        EXPECT_FALSE(bag->GetListEntity(s_grid, 0, entity));
        EXPECT_FALSE(bag->SetListId(s_grid, 0, 1));
        EXPECT_FALSE(bag->GetListId(s_grid, 0, id));
        bag->ReserveList(s_grid, 5);
        bag->GetList(s_grid) = list;
        EXPECT_EQ(bag->GetList(s_grid), EntityList());
        EXPECT_EQ(bag->GetIdListCount(s_grid), 0U);
        EXPECT_EQ(bag->GetEntityFullTypeListCount(), 0U);
        EXPECT_THAT(GetTypes(*bag), IsEmpty());
        EXPECT_TRUE(bag->IsEmpty());
        EXPECT_EQ(bag->begin(), bag->end());
        *bag += moved;
        *bag -= moved;
        EXPECT_EQ(*bag, invalid);
        EXPECT_NE(*bag, EntityListBag());
        EXPECT_EQ(moved, (EntityListBag(moved) += *bag));
        EXPECT_EQ(moved, (EntityListBag(moved) -= *bag));
    }
}

TEST(EntityListBag, IsValidAgainOnceAValidBagIsAssigned) {
    EntityListBag const bag = MakeBag({MakeList(s_grid, {1})});
    EntityListBag invalid(EntityListBag::s_invalidBlockSize);
    EntityListBag moved = MakeBag({MakeList(s_element, {2})});
    EntityListBag taken(std::move(moved));
    invalid = bag;
    moved = bag;
    EXPECT_EQ(invalid, bag);
    EXPECT_EQ(moved, bag);
    EntityListBag& same = taken;
    taken = std::move(same);
    EXPECT_EQ(taken, MakeBag({MakeList(s_element, {2})}));
}

TEST(EntityListBag, WorksWithEveryOtherBlockSize) {
    for (unsigned int const blockSize : {0U, 1U, 2U, 1000U, 0xFFFFFFFEU}) {
        EntityListBag bag(blockSize);
        EXPECT_TRUE(bag.IsValid());
        for (unsigned int i = 1; i < 100; ++i)
            EXPECT_TRUE(bag.SetList(MakeList(EntityFullType(i), {i})));
        EXPECT_EQ(EntityListBag(bag), bag);
        EXPECT_EQ(bag.GetEntityFullTypeListCount(), 99U);
    }
}

// ---- copies and equality ----

TEST(EntityListBag, CopiesDeeply) {
    EntityListBag const bag = MakeBag({EntityList(s_face, {1}, {'a'}), MakeList(s_element, {2})});
    EntityListBag copy(bag);
    EntityListBag assigned = MakeBag({MakeList(EntityFullType("gone"), {1})});
    assigned = bag;
    for (EntityListBag* const other : {&copy, &assigned}) {
        EXPECT_EQ(*other, bag);
        EXPECT_EQ(GetTypes(*other), GetTypes(bag));
        EXPECT_THAT(other->GetList(s_grid).GetTopologyIndexList(), ElementsAre('a'));
        other->SetListId(s_grid, 0, 9);
        EXPECT_NE(*other, bag);
    }
    EXPECT_EQ(bag.GetList(s_grid), MakeList(s_grid, {1}));
}

TEST(EntityListBag, IsEqualToBagsOfEqualListsInAnyOrder) {
    EntityListBag const bag = MakeBag({MakeList(s_grid, {1, 2}), MakeList(EntityFullType(102), {3})});
    EXPECT_EQ(bag, bag);
    EXPECT_EQ(bag, MakeBag({MakeList(EntityFullType(102), {3}), MakeList(s_grid, {1, 2})}));
    EXPECT_NE(bag, MakeBag({MakeList(EntityFullType(102), {3}), MakeList(s_grid, {2, 1})}));
    EXPECT_NE(bag, MakeBag({MakeList(s_grid, {1, 2})}));
    EXPECT_NE(bag, MakeBag({MakeList(s_grid, {1, 2}), MakeList(s_element, {3})}));
    EXPECT_NE(bag, EntityListBag());
    EXPECT_EQ(EntityListBag(), EntityListBag(50));
    EXPECT_NE(EntityListBag(), MakeBag({MakeList(s_grid, {})}));
}

} // namespace
