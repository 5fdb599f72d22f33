#include "descriptor/Entity.h"
#include "descriptor/EntityList.h"
#include "descriptor/EntityList2.h"
#include "support/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <thread>
#include <utility>
#include <vector>

using namespace qzDescriptor;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

EntityFullType const s_grid(1);
EntityFullType const s_face(EntityFullType::TopologyType{3}, 1, 0);
EntityFullType const s_element("ELEM", 2U);

using Ids = qzStlVector<unsigned int>;
using Indices = qzStlVector<char>;

// ---- one level ----

TEST(EntityList, StartsWithoutTypeAndIds) {
    for (EntityList const& list : {EntityList(), EntityList(100)}) {
        EXPECT_FALSE(list.GetEntityFullType().IsValid());
        EXPECT_TRUE(list.IsEmpty());
        EXPECT_EQ(list.GetIdListCount(), 0U);
        EXPECT_EQ(list.begin(), list.end());
    }
    EXPECT_GE(EntityList(100).GetList().capacity(), 100U);
}

TEST(EntityList, GrowsByFactorsWhenItIsWrittenAtItsEnd) {
    EntityList list;
    list.SetEntityFullType(s_face);
    unsigned int moves = 0;
    for (unsigned int i = 0; i < 100'000; ++i) {
        unsigned int const* const before = list.GetList().data();
        list.SetId(i, i, 1);
        moves += list.GetList().data() != before;
    }
    EXPECT_LT(moves, 100U);
    EXPECT_EQ(list.GetIdListCount(), 100'000U);
    EXPECT_EQ(list[99'999], 99'999U);
}

TEST(EntityList, BringsGivenTopologyIndicesInStepWithTheIds) {
    struct {
        EntityFullType type;
        Indices given;
        Indices kept;
    } const cases[] = {
        {s_grid, {'a', 'b', 'c'}, {}}, {s_face, {'a', 'b', 'c'}, {'a', 'b', 'c'}},
        {s_face, {'a'}, {'a', 0, 0}},  {s_face, {'a', 'b', 'c', 'd'}, {'a', 'b', 'c'}},
        {s_face, {}, {0, 0, 0}},
    };
    for (auto const& [type, given, kept] : cases) {
        EXPECT_EQ(EntityList(type, {1, 2, 3}, given).GetTopologyIndexList(), kept);
        EntityList list(type, {9}, {'z'});
        EXPECT_TRUE(list.SetLists({1, 2, 3}, given));
        EXPECT_EQ(list.GetTopologyIndexList(), kept);
        EXPECT_THAT(list.GetList(), ElementsAre(1, 2, 3));
    }
}

TEST(EntityList, CopesWithIdsAndIndicesThatCallersChangedAlone) {
    EntityList list(s_face, {1, 2}, {'a', 'b'});
    list.GetList().push_back(3);
    unsigned int id = 0;
    char index = 'x';
    EXPECT_TRUE(list.GetIdAndTopologyIndex(2, id, index));
    EXPECT_EQ(std::pair(id, index), std::pair(3U, '\0'));
    Entity entity;
    EXPECT_TRUE(list.GetEntity(entity, 2));
    EXPECT_EQ(entity, Entity(s_face, 3, 0));
    list.SetId(0, 9, 'c');
    EXPECT_THAT(list.GetTopologyIndexList(), ElementsAre('c', 'b', 0));
    list.GetList().clear();
    EXPECT_FALSE(list.GetIdAndTopologyIndex(0, id, index));
    list.SetId(0, 1, 'd');
    EXPECT_THAT(list.GetTopologyIndexList(), ElementsAre('d'));
}

TEST(EntityList, TakesTheTypeOfTheFirstEntity) {
    EntityList list;
    EXPECT_TRUE(list.SetEntity(Entity(s_face, 5, 'a'), 1));
    EXPECT_EQ(list.GetEntityFullType(), s_face);
    EXPECT_EQ(list.GetEntityFullType().GetTopologyType(), s_face.GetTopologyType());
    EXPECT_THAT(list.GetList(), ElementsAre(0, 5));
    EXPECT_THAT(list.GetTopologyIndexList(), ElementsAre(0, 'a'));
}

TEST(EntityList, RefusesEntitiesOfAnotherType) {
    EntityList list(s_grid, {1, 2}, {});
    EntityList const before = list;
    EXPECT_FALSE(list.SetEntity(Entity(s_element, 5), 0));
    EXPECT_FALSE(list.SetEntity(Entity(EntityFullType(1, 1), 5), 7));
    EXPECT_FALSE(list.SetEntity(Entity(EntityFullType(), 5), 0));
    EXPECT_EQ(list, before);
    EXPECT_TRUE(list.SetEntity(Entity(s_face, 5, 'a'), 0)) << "the topology kind tells no types apart";
    EXPECT_THAT(list.GetList(), ElementsAre(5, 2));
    EXPECT_THAT(list.GetTopologyIndexList(), IsEmpty()) << "the list's own type has none";
}

TEST(EntityList, AnswersOutsideItsRangeAndLeavesOutputsAlone) {
    EntityList const list(s_face, {1, 2}, {'a', 'b'});
    for (unsigned int const index : {2U, 3U, std::numeric_limits<unsigned int>::max()}) {
        unsigned int id = 77;
        char topologyIndex = 'x';
        Entity entity(s_element, 5, 'y');
        EXPECT_FALSE(list.GetId(index, id));
        EXPECT_FALSE(list.GetIdAndTopologyIndex(index, id, topologyIndex));
        EXPECT_FALSE(list.GetEntity(entity, index));
        EXPECT_EQ(std::pair(id, topologyIndex), std::pair(77U, 'x'));
        EXPECT_EQ(entity, Entity(s_element, 5, 'y'));
        EXPECT_EQ(list[index], 0U);
    }
}

TEST(EntityList, ForgetsWhatIsWrittenOutsideItsRange) {
    EntityList list(s_grid, {1, 2}, {});
    list[1] = 5;
    list[2] = 6;
    EXPECT_EQ(list[2], 0U);
    EXPECT_EQ(EntityList()[0], 0U);
    EXPECT_THAT(list.GetList(), ElementsAre(1, 5));
    unsigned int const& absent = list[2];
    std::thread([&] { list[2] = 7; }).join();
    EXPECT_EQ(absent, 0U);
}

TEST(EntityList, HandsOutItsEntities) {
    EntityList const list(s_face, {1, 2}, {'a', 'b'});
    Entity entity;
    EXPECT_TRUE(list.GetEntity(entity, 1));
    EXPECT_EQ(entity, Entity(s_face, 2, 'b'));
    EXPECT_EQ(entity.GetEntityFullType().GetTopologyType(), s_face.GetTopologyType());
    Ids ids = {9};
    list.GetIdList(ids);
    EXPECT_THAT(ids, ElementsAre(1, 2));
    EXPECT_THAT(Ids(list.begin(), list.end()), ElementsAre(1, 2));
}

TEST(EntityList, IsEqualByTypeAndIdsInOrder) {
    EntityList const list(s_face, {1, 2}, {'a', 'b'});
    EXPECT_EQ(list, EntityList(s_face, {1, 2}, {'c'}));
    EXPECT_EQ(list, EntityList(s_grid, {1, 2}, {}));
    EXPECT_NE(list, EntityList(s_grid, {2, 1}, {}));
    EXPECT_NE(list, EntityList(s_grid, {1, 2, 2}, {}));
    EXPECT_NE(list, EntityList(s_element, {1, 2}, {}));
    EXPECT_EQ(EntityList(), EntityList(50));
}

TEST(EntityList, TakesPartsOfItsOwnAsArguments) {
    EntityList list(s_face, {1, 2}, {'a', 'b'});
    EXPECT_TRUE(list.SetLists(list.GetList(), list.GetTopologyIndexList()));
    EXPECT_TRUE(list.SetEntityFullType(list.GetEntityFullType()));
    list.GetIdList(list.GetList());
    list.SetId(9, list[0], list.GetTopologyIndexList()[0]);
    EXPECT_THAT(list.GetList(), ElementsAre(1, 2, 0, 0, 0, 0, 0, 0, 0, 1));
    EXPECT_EQ(list.GetTopologyIndexList()[9], 'a');
}

TEST(EntityList, ReservesForIdsAndTopologyIndices) {
    EntityList list;
    list.SetEntityFullType(s_face);
    list.Reserve(1000);
    unsigned int const* const ids = list.GetList().data();
    char const* const indices = list.GetTopologyIndexList().data();
    list.SetId(999, 1, 'a');
    EXPECT_EQ(list.GetList().data(), ids);
    EXPECT_EQ(list.GetTopologyIndexList().data(), indices);
}

// ---- two levels ----

TEST(EntityList2, AnswersOutsideItsRangeAndLeavesOutputsAlone) {
    EntityList2 const list(s_grid, {{1}, {}, {2, 3}});
    unsigned int const last = std::numeric_limits<unsigned int>::max();
    for (auto const& [i, j] : {std::pair(0U, 1U), {1U, 0U}, {2U, 2U}, {3U, 0U}, {last, last}, {0U, last}}) {
        unsigned int id = 77;
        Entity entity(s_element, 5, 'y');
        EXPECT_FALSE(list.GetId(i, j, id));
        EXPECT_FALSE(list.GetEntity(entity, i, j));
        EXPECT_EQ(id, 77U);
        EXPECT_EQ(entity, Entity(s_element, 5, 'y'));
    }
    unsigned int id = 0;
    Entity entity;
    EXPECT_TRUE(list.GetId(2, 1, id));
    EXPECT_EQ(id, 3U);
    EXPECT_TRUE(list.GetEntity(entity, 2, 0));
    EXPECT_EQ(entity, Entity(s_grid, 2));
}

TEST(EntityList2, TakesTheTypeOfTheFirstEntityAndRefusesOthers) {
    EntityList2 list;
    EXPECT_TRUE(list.SetEntity(Entity(s_element, 5), 1, 1));
    EXPECT_EQ(list.GetEntityFullType(), s_element);
    EntityList2 const before = list;
    EXPECT_FALSE(list.SetEntity(Entity(s_grid, 6), 0, 0));
    EXPECT_FALSE(list.SetEntity(Entity(EntityFullType(), 6), 9, 9));
    EXPECT_EQ(list, before);
    EXPECT_TRUE(list.SetEntity(Entity(s_element, 6), 0, 0));
    EXPECT_EQ(list, EntityList2(s_element, {{6}, {0, 5}}));
}

TEST(EntityList2, ReservesColumnsForTheRowsThatAreMade) {
    EntityList2 list(3, 100);
    EXPECT_THAT(list.GetList(), IsEmpty());
    EXPECT_GE(list.GetList().capacity(), 3U);
    for (unsigned int const row : {0U, 2U, 5U}) {
        list.SetId(row, 0, 1);
        unsigned int const* const place = list.GetList()[row].data();
        list.SetId(row, 99, 1);
        EXPECT_EQ(list.GetList()[row].data(), place);
    }
}

TEST(EntityList2, WritesAnIdWhateverColumnsWereAskedFor) {
    EntityList2 list(0, std::numeric_limits<unsigned int>::max());
    list.SetId(0, 0, 5);
    EXPECT_THAT(list.GetList(), ElementsAre(ElementsAre(5)));
    EXPECT_EQ(list.GetList()[0].capacity(), EntityList2::s_mostReservedColumns);
}

TEST(EntityList2, IsEqualByTypeAndRows) {
    EntityList2 const list(s_grid, {{1}, {2, 3}});
    EXPECT_EQ(list, EntityList2(s_face, {{1}, {2, 3}}));
    EXPECT_NE(list, EntityList2(s_element, {{1}, {2, 3}}));
    EXPECT_NE(list, EntityList2(s_grid, {{1}, {2, 3}, {}}));
    EXPECT_NE(list, EntityList2(s_grid, {{1, 2}, {3}}));
    EXPECT_EQ(EntityList2(), EntityList2(5, 5));
}

// ---- against a model ----

struct ListModel {
    bool hasTopology = false;
    std::vector<unsigned int> ids;
    std::vector<char> indices;

    void Resize(std::size_t count) {
        ids.resize(count);
        indices.resize(hasTopology ? count : 0);
    }
};

void ChangeAtRandom(EntityList& list, ListModel& model, Random& random) {
    unsigned int const place = random.Below(30);
    char const index = static_cast<char>(random.Below(100));
    switch (random.Below(10)) {
    case 0:
        model.hasTopology = random.Chance(2);
        model.Resize(model.ids.size());
        list.SetEntityFullType(model.hasTopology ? s_face : s_grid);
        break;
    case 1:
        model.Resize(place);
        list.Resize(place);
        break;
    default:
        model.Resize(std::max<std::size_t>(model.ids.size(), place + 1));
        model.ids[place] = place * 100;
        if (model.hasTopology)
            model.indices[place] = index;
        ASSERT_TRUE(list.SetEntity(Entity(s_grid, place * 100, index), place));
    }
}

TEST(EntityList, AgreesWithVectorsUnderRandomChanges) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    EntityList list;
    ListModel model;
    for (int step = 0; step < 20'000; ++step) {
        ChangeAtRandom(list, model, random);
        ASSERT_EQ(list.GetList(), model.ids);
        ASSERT_EQ(list.GetTopologyIndexList(), model.indices);
    }
}

TEST(EntityList2, AgreesWithNestedVectorsUnderRandomWrites) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (int round = 0; round < 50; ++round) {
        EntityList2 list(random.Below(5), random.Below(5));
        std::vector<std::vector<unsigned int>> model;
        for (unsigned int step = 1; step < 200; ++step) {
            unsigned int const i = random.Below(20);
            unsigned int const j = random.Below(20);
            model.resize(std::max<std::size_t>(model.size(), i + 1));
            model[i].resize(std::max<std::size_t>(model[i].size(), j + 1));
            model[i][j] = step;
            list.SetId(i, j, step);
        }
        ASSERT_EQ(list.GetList().size(), model.size());
        for (unsigned int i = 0; i < model.size(); ++i) {
            ASSERT_EQ(list.GetList()[i], model[i]) << "row " << i;
            ASSERT_EQ(list.GetIdListCount(i), model[i].size());
        }
        ASSERT_EQ(list.GetIdListCount(static_cast<unsigned int>(model.size())), 0U);
    }
}

} // namespace
