#include "descriptor/qzdescriptor.h"
#include "support/samples.h"

#include <gtest/gtest.h>

#include <limits>

using namespace qzDescriptor;

namespace {

using Bound = BoundT<double>;

template <class Container>
Value ListOf(Container list) {
    return Value(ValuePtr::Create(std::move(list), DS_DEFAULT));
}

TEST(GenericTest, LetsEverythingPassUnlessItIsEnforced) {
    Allowables const allowables(Bound(10, Bound::Less), 5.0);
    EXPECT_EQ(allowables.Test(Value(15.0)), 0);
    {
        Allowables::EnforceGenericTestSentinel const outer;
        EXPECT_EQ(allowables.Test(Value(15.0)), 1);
        EXPECT_EQ(allowables.GetFailureMessage(), "Input of 15 violates: VALUE < 10");
        { Allowables::EnforceGenericTestSentinel const inner; }
        EXPECT_EQ(allowables.Test(Value(15.0)), 0); // the first end of a guard ends it
    }
    EXPECT_EQ(allowables.Test(15.0), 1); // the typed test needs no guard
}

TEST(GenericTest, TestsEveryElementByItsOwnType) {
    Allowables::EnforceGenericTestSentinel const enforced;
    Allowables const allowables(Bound(10, Bound::Less), 12.0);
    qzStlVector<qzStlVector<double>> const ragged{{1}, {}, {2, 3, 15}};
    struct Case {
        Value value;
        int result;
    };
    Case const cases[] = {
        {Value(), 0},
        {Value(9.0), 0},
        {Value(15.0), 1},
        {Value(12.0), 2},
        {Value(15), 0}, // an int is not its type
        {Value(15.0f), 0},
        {ListOf(qzStlVector<double>()), 0},
        {ListOf(qzStlVector<double>{1, 2, 3}), 0},
        {ListOf(qzStlVector<double>{1, 15, 3}), 1},
        {ListOf(qzStlVector<double>{12, 1}), 2},
        {ListOf(qzStlVector<double>{12, 15, 12}), 1},
        {ListOf(ragged), 1},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(allowables.Test(c.value), c.result);
        EXPECT_EQ(Allowables().Test(c.value), 0);
    }
}

TEST(GenericTest, TestsEntitiesByTheirTypeAndNoQualifiers) {
    Allowables::EnforceGenericTestSentinel const enforced;
    EntityFullType const grid("GRID"), shell("SHELL");
    Allowables const grids(Allowables::List<EntityFullType>{{grid, ""}}, 0);
    EXPECT_EQ(grids.Test(Value(Entity(grid, 7))), 0);
    EXPECT_EQ(grids.Test(Value(Entity(shell, 7))), 1);
    EXPECT_EQ(grids.GetFailureMessage(), "Input of SHELL violates: VALUE in {GRID}");
    EntityList const list(shell, {1, 2}, {});
    EXPECT_EQ(grids.Test(ListOf(list)), 1);
    EntityListBag bag;
    Value bagValue = DataTypeUtils::GetValueConstruct(BT_UINT, CT_ENTITY, 3);
    bag.SetList(EntityList(grid, {1}, {}));
    EXPECT_TRUE(bagValue.SetValue(bag));
    EXPECT_EQ(grids.Test(bagValue), 0);
    bag.SetList(list);
    EXPECT_TRUE(bagValue.SetValue(bag));
    EXPECT_EQ(grids.Test(bagValue), 1);
    EntityListBagList bags;
    Value bagsValue(BT_UINT, CT_ENTITY, 4, 0, DS_DEFAULT, QZDT_DBHandle());
    EXPECT_TRUE(bagsValue.SetValue(bags));
    EXPECT_EQ(grids.Test(bagsValue), 0);
    bags.Modify(bags.Register(1, "")) = bag;
    EXPECT_TRUE(bagsValue.SetValue(bags));
    EXPECT_EQ(grids.Test(bagsValue), 1);

    Qualifier const allowed("T", shell, 0, 1, 1, 0), other("U", shell, 0, 1, 1, 0);
    Allowables const qualifiers(Allowables::List<Qualifier>{{allowed, ""}}, 0);
    Value value;
    value.SetValue(other);
    EXPECT_EQ(qualifiers.Test(other), 1);
    EXPECT_EQ(qualifiers.Test(value), 0);
}

TEST(Defaults, FillValuesOfAnyType) {
    Value value(1, "note", DS_ON);
    EXPECT_TRUE(Allowables(7).GetDefault(value));
    int number = 0;
    EXPECT_TRUE(value.GetValue(number));
    EXPECT_EQ(number, 7);
    EXPECT_EQ(value.GetDisplayStatus(), DS_ON); // one element of the same type is only written
    EXPECT_TRUE(Allowables(EntityFullType("GRID")).GetDefault(value));
    Entity entity;
    EXPECT_TRUE(value.GetValue(entity));
    EXPECT_EQ(entity, Entity(EntityFullType("GRID"), 0));
    value = ListOf(qzStlVector<double>{1, 2});
    EXPECT_FALSE(Allowables().GetDefault(value));
    EXPECT_EQ(value.GetArrayDimensionExtent(0u), 2u);
    EXPECT_TRUE(Allowables(2.5).GetDefault(value));
    EXPECT_EQ(value, Value(2.5));
}

TEST(Defaults, OfMatricesAgreeWithinATinyDistance) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (auto const& [difference, isEqual] : {std::pair(0.9e-8, true), {1.1e-8, false}, {nan, false}}) {
        qzTMatrix33<double> a, b;
        b(1, 2) = difference;
        EXPECT_EQ(Allowables(a) == Allowables(b), isEqual);
        qzTMatrix44<double> c, d;
        d(3, 0) = -difference;
        EXPECT_EQ(Allowables(c) == Allowables(d), isEqual);
        EXPECT_EQ(Allowables(qzTCouple<double>{0, 1}) == Allowables(qzTCouple<double>{0, 1 + difference}),
                  false);
        // Allowed values are compared exactly.
        EXPECT_EQ(Allowables(Allowables::List<qzTMatrix33<double>>{{a, "m"}}, 0).Test(b), 1);
    }
}

TEST(Defaults, AreCopiedBetweenConstraintsOfOneType) {
    Allowables number(1.0);
    EXPECT_TRUE(number.Copy(Allowables(2.0), true, false));
    EXPECT_EQ(number, Allowables(1.0));
    EXPECT_TRUE(number.Copy(Allowables(2.0), false, true));
    EXPECT_EQ(number, Allowables(2.0));
    EXPECT_FALSE(number.Copy(Allowables(2), false, true) || number.Copy(Allowables(), false, true) ||
                 Allowables().Copy(number, true, true));
}

} // namespace
