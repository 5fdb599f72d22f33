#include "values/collections/EntityTypeMap.h"

#include <gtest/gtest.h>

#include <iterator>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace qzDescriptor;

namespace {

using Map = EntityTypeMap<int>;

static_assert(std::forward_iterator<Map::const_iterator>);
static_assert(std::is_nothrow_move_constructible_v<Map> && std::is_nothrow_move_assignable_v<Map>);

std::vector<int> GetValues(Map const& map) {
    std::vector<int> values;
    for (auto const& entry : map)
        values.push_back(entry.value);
    return values;
}

TEST(EntityTypeMap, IsWalkedByBucketAndThenInOrderOfInsertion) {
    Map map(1);
    map.Set(EntityFullType(2), 1);
    map.Set(EntityFullType(102), 2);
    map.Set(EntityFullType(1), 3);
    map.Set(EntityFullType(101), 4);
    map.Set(EntityFullType("a"), 5); // hashes to 0x41, among the numbers
    map.Set(EntityFullType(0, 9), 6);
    map.Set(EntityFullType(102), 7);    // stays where it was
    map.Set(EntityFullType("abcd"), 8); // hashes to 0x646362E1: bucket 0x2E1
    EXPECT_EQ(GetValues(map), (std::vector{4, 6, 7, 3, 1, 5, 8}));
    EXPECT_EQ(GetValues(Map(map)), GetValues(map));
}

TEST(EntityTypeMap, KeepsTheAddressOfAValueWhileOthersComeAndGo) {
    Map map(4);
    int const* const value = &map.Set(EntityFullType(106), 1);
    for (unsigned int i = 0; i < 5000; ++i)
        map.Set(EntityFullType(i), 2);
    for (unsigned int i = 0; i < 5000; ++i)
        ASSERT_TRUE(i == 106 || map.Erase(EntityFullType(i)));
    EXPECT_EQ(map.Find(EntityFullType(106)), value);
    EXPECT_EQ(*value, 2);
    EXPECT_EQ(map.GetCount(), 1U);
}

TEST(EntityTypeMap, IsEmptyOnceItIsClearedOrMovedFrom) {
    Map map(4);
    map.Set(EntityFullType(1), 1);
    Map moved = std::move(map);
    EXPECT_EQ(map.GetCount(), 0U);
    EXPECT_EQ(map.begin(), map.end());
    EXPECT_EQ(map.Find(EntityFullType(1)), nullptr);
    EXPECT_FALSE(map.Erase(EntityFullType(1)));
    map.Set(EntityFullType(2), 2);
    EXPECT_EQ(map.GetCount(), 1U);
    moved.Clear();
    EXPECT_EQ(moved.GetCount(), 0U);
}

TEST(EntityTypeMap, IsUnchangedWhenACopyFails) {
    struct Fragile {
        explicit Fragile(int* copies) : copiesLeft(copies) {}
        Fragile(Fragile&&) noexcept = default;
        Fragile& operator=(Fragile&&) noexcept = default;
        Fragile(Fragile const& other) : copiesLeft(other.copiesLeft), name(other.name) {
            if (--*copiesLeft < 0)
                throw std::runtime_error("no more copies");
        }
        int* copiesLeft;
        std::string name = "long enough to live on the heap, where leaks are found";
    };
    int copiesLeft = 0;
    EntityTypeMap<Fragile> map(4);
    for (unsigned int i = 0; i < 10; ++i)
        map.Set(EntityFullType(i), Fragile(&copiesLeft));
    for (int copies = 0; copies < 10; ++copies) {
        copiesLeft = copies;
        EXPECT_THROW(EntityTypeMap<Fragile>{map}, std::runtime_error);
    }
    copiesLeft = 10;
    EXPECT_EQ(EntityTypeMap<Fragile>{map}.GetCount(), 10U);
}

} // namespace
