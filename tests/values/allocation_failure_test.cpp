#include "descriptor/Entity.h"
#include "descriptor/EntityList.h"
#include "descriptor/EntityList2.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/EntityListBagList.h"
#include "support/FailingAllocation.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>
#include <utility>
#include <vector>

using namespace qzDescriptor;

namespace {

// Names that are too long to be kept without an allocation.
qzString const s_name(100, 'n');
qzString const s_otherName(100, 'o');

EntityFullType const s_grid(1);
EntityFullType const s_face(EntityFullType::TopologyType{3}, s_name, s_otherName);
EntityFullType const s_part(s_otherName, s_name);

// ---- all that can be seen of an object ----

auto Describe(EntityList const& list) {
    EntityFullType const& type = list.GetEntityFullType();
    return std::tuple(type.GetTypeNumeric(), type.GetTypeNamed(), type.GetSubtypeNamed(),
                      type.GetTopologyType(), list.GetList(), list.GetTopologyIndexList());
}

auto Describe(EntityList2 const& list) {
    EntityFullType const& type = list.GetEntityFullType();
    return std::tuple(type.GetTypeNumeric(), type.GetTypeNamed(), type.GetSubtypeNamed(), list.GetList());
}

auto Describe(EntityListBag const& bag) {
    std::vector<decltype(Describe(EntityList()))> lists;
    for (EntityList const& list : bag)
        lists.push_back(Describe(list));
    return lists;
}

auto Describe(EntityListBagList const& bags) {
    qzStlVector<std::pair<unsigned int, qzString>> pairs;
    bags.GetRegisteredPairs(pairs);
    std::vector<unsigned int> indices;
    for (auto const& [key, name] : {std::pair(1U, s_name), {1U, s_otherName}, {2U, s_name}})
        indices.push_back(bags.Find(key, name));
    return std::pair(pairs, indices);
}

template <class Object>
using Change = std::function<void(Object&)>;

/// Lets every allocation of the change fail in turn: the object stays as it was, and takes the change later.
template <class Object>
void ExpectChangesAsAWhole(Object const& before, Change<Object> const& change) {
    Object after = before;
    change(after);
    EXPECT_NE(Describe(after), Describe(before));
    for (unsigned int n = 1;; ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        Object object = before;
        if (!FailsAtAllocation(n, [&] { change(object); })) {
            EXPECT_GT(n, 1U) << "the change allocates nothing";
            return;
        }
        EXPECT_EQ(Describe(object), Describe(before));
        change(object);
        EXPECT_EQ(Describe(object), Describe(after));
        EXPECT_EQ(object, after);
    }
}

TEST(FailingAllocation, MakesThatAllocationFailOnly) {
    std::vector<qzString> names;
    auto const work = [&] {
        names.clear();
        names.shrink_to_fit();
        names.emplace_back(s_name);
    };
    EXPECT_TRUE(FailsAtAllocation(1, work));
    EXPECT_TRUE(FailsAtAllocation(2, work));
    EXPECT_FALSE(FailsAtAllocation(3, work));
    EXPECT_EQ(names, std::vector<qzString>{s_name});
}

TEST(EntityList, ChangesAsAWholeOrNotAtAll) {
    struct {
        char const* name;
        EntityList list;
        Change<EntityList> change;
    } const cases[] = {
        {"the first entity", EntityList(), [](auto& list) { list.SetEntity(Entity(s_face, 5, 'a'), 40); }},
        {"an entity behind ids without a type", EntityList(EntityFullType(), {1, 2}, {}),
         [](auto& list) { list.SetEntity(Entity(s_face, 5, 'a'), 2); }},
        {"an entity among ids without a type", EntityList(EntityFullType(), {1, 2}, {}),
         [](auto& list) { list.SetEntity(Entity(s_face, 5, 'a'), 0); }},
        {"an id behind others", EntityList(s_face, {1, 2}, {'a', 'b'}),
         [](auto& list) { list.SetId(40, 5, 'c'); }},
        {"another length", EntityList(s_face, {1, 2}, {'a', 'b'}), [](auto& list) { list.Resize(40); }},
        {"other ids", EntityList(s_face, {1, 2}, {'a', 'b'}),
         [](auto& list) {
             list.SetLists({3, 4, 5}, {'c', 'd'});
         }},
        {"a type with a topology kind", EntityList(s_grid, {1, 2}, {}),
         [](auto& list) { list.SetEntityFullType(s_face); }},
        {"a type without one", EntityList(s_face, {1, 2}, {'a', 'b'}),
         [](auto& list) { list.SetEntityFullType(s_part); }},
    };
    for (auto const& [name, list, change] : cases) {
        SCOPED_TRACE(name);
        ExpectChangesAsAWhole(list, change);
    }
}

TEST(EntityList2, ChangesAsAWholeOrNotAtAll) {
    struct {
        char const* name;
        EntityList2 list;
        Change<EntityList2> change;
    } const cases[] = {
        {"the first entity", EntityList2(), [](auto& list) { list.SetEntity(Entity(s_part, 5), 3, 4); }},
        {"a row behind others", EntityList2(s_part, {{1}, {2}}), [](auto& list) { list.SetId(7, 4, 5); }},
        {"an id behind others", EntityList2(s_part, {{1}, {2}}), [](auto& list) { list.SetId(1, 40, 5); }},
        {"another type", EntityList2(s_part, {{1}}), [](auto& list) { list.SetEntityFullType(s_face); }},
    };
    for (auto const& [name, list, change] : cases) {
        SCOPED_TRACE(name);
        ExpectChangesAsAWhole(list, change);
    }
}

TEST(EntityListBag, ChangesAListAsAWholeOrNotAtAll) {
    EntityListBag bag;
    bag.SetList(EntityList(s_face, {1, 2, 3}, {'a', 'b', 'c'}));
    EntityListBag other;
    other.SetList(EntityList(s_face, {3, 4, 5, 6}, {'d', 'e', 'f', 'g'}));
    ExpectChangesAsAWhole<EntityListBag>(bag, [&](auto& changed) { changed += other; });
    ExpectChangesAsAWhole<EntityListBag>(bag, [&](auto& changed) { changed -= other; });
    ExpectChangesAsAWhole<EntityListBag>(
        bag, [](auto& changed) { changed.SetList(EntityList(s_face, {7}, {'h'})); });
    ExpectChangesAsAWhole<EntityListBag>(bag,
                                         [](auto& changed) { changed.SetList(EntityList(s_part, {7}, {})); });
}

TEST(EntityListBagList, RegistersAndUnregistersAsAWholeOrNotAtAll) {
    EntityListBagList bags;
    for (unsigned int key = 10; key < 40; ++key) // past what one block of places holds
        bags.Register(key, s_name);
    ExpectChangesAsAWhole<EntityListBagList>(EntityListBagList(),
                                             [](auto& changed) { changed.Register(1, s_name); });
    bags.Register(1, s_name);
    ExpectChangesAsAWhole<EntityListBagList>(bags, [](auto& changed) { changed.Register(1, s_otherName); });
    ExpectChangesAsAWhole<EntityListBagList>(
        bags, [](auto& changed) { changed.Unregister(changed.Find(1, s_name)); });
}

} // namespace
