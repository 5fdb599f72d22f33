#include "descriptor/qzdescriptor.h"

#include <gtest/gtest.h>

namespace qzDescriptor::test {
namespace {

Value MakeArray(BasicType basic, CompoundType compound, unsigned int count, unsigned int columns) {
    return Value(basic, compound, count, columns, DS_ON, QZDT_DBHandle());
}

TEST(ArrayFactory, MakesEmptyListsWithRoom) {
    Value value = MakeArray(BT_DOUBLE, CT_SCALAR, 3, 0);
    ASSERT_NE(value.GetValuePointerDoubleList(), nullptr);
    EXPECT_EQ(value.GetValuePointerDoubleList()->size(), 0u);
    EXPECT_GE(value.GetValuePointerDoubleList()->capacity(), 3u);
    EXPECT_EQ(value.GetDisplayStatus(), DS_ON);
    EXPECT_TRUE(value.SetValue(1.0, 1));
    EXPECT_TRUE(value.SetValue(2.0, 5));
    EXPECT_EQ(*value.GetValuePointerDoubleList(), (qzStlVector<double>{0, 1, 0, 0, 0, 2}));
}

TEST(ArrayFactory, SelectsTheKindOfEntityCollectionByCount) {
    EXPECT_NE(MakeArray(BT_UINT, CT_ENTITY, 1, 0).GetValuePointerEntityList(), nullptr);
    EXPECT_EQ(MakeArray(BT_UINT, CT_ENTITY, 2, 0).GetValuePtr(), nullptr);
    EXPECT_NE(MakeArray(BT_UINT, CT_ENTITY, 3, 0).GetValuePointerEntityListBag(), nullptr);
    EXPECT_NE(MakeArray(BT_UINT, CT_ENTITY, 4, 0).GetValuePointerEntityListBagList(), nullptr);
    EXPECT_EQ(MakeArray(BT_UINT, CT_ENTITY, 5, 0).GetValuePtr(), nullptr);
    EXPECT_NE(MakeArray(BT_UINT, CT_ENTITY, 5, 1).GetValuePointerEntityList2(), nullptr);
}

TEST(ArrayFactory, MakesATableWhateverTheCount) {
    for (unsigned int count : {0u, 4u}) {
        Value const value = MakeArray(BT_DOUBLE, CT_TABULAR, count, count);
        ASSERT_NE(value.GetValuePointerTabular(), nullptr);
        EXPECT_EQ(value.GetValuePointerTabular()->GetColumnCount(), 0u);
        EXPECT_EQ(value.GetDisplayStatus(), DS_ON);
    }
    EXPECT_EQ(DataTypeUtils::GetValueConstruct(BT_OBJECT, CT_TABULAR, 0).GetValuePtr(), nullptr)
        << "tables are made from handles";
}

TEST(Bags, AreReadAndWrittenByEntityType) {
    EntityFullType const grid("GRID"), shell("CQUAD4");
    EntityListBag lists;
    lists.SetList(EntityList(grid, {5, 6}, {}));
    Value value = MakeArray(BT_UINT, CT_ENTITY, 3, 0);
    ASSERT_TRUE(value.SetValue(lists));
    EXPECT_EQ(value.GetArrayDimensionExtent(grid), 2u);
    EXPECT_EQ(value.GetArrayDimensionExtent(0u), 1u);

    Entity entity;
    EXPECT_TRUE(value.GetValue(entity, grid, 1));
    EXPECT_EQ(entity, Entity(grid, 6));
    EXPECT_FALSE(value.GetValue(entity, shell, 0));
    EXPECT_TRUE(value.SetValue(Entity(grid, 9), grid, 3));
    EXPECT_FALSE(value.SetValue(Entity(grid, 9), grid, 0xFFFFFFFF));
    EXPECT_FALSE(value.SetValue(Entity(shell, 9), grid, 0));
    EXPECT_TRUE(value.SetValueFromString("GRID 7", grid, 2));
    EXPECT_FALSE(value.SetValueFromString("CQUAD4 7", grid, 2));
    qzString text;
    EXPECT_TRUE(value.GetValueAsString(text, grid, 2));
    EXPECT_EQ(text, "GRID 7");
    EXPECT_TRUE(value.GetValueAsString(text));
    EXPECT_EQ(text, "{{GRID 5 GRID 6 GRID 7 GRID 9}}");
    EXPECT_FALSE(value.GetValueAsString(text, shell, 0));
    EXPECT_EQ(text, "");
}

TEST(Bags, HoldFormulasUnderTheirOwnType) {
    EntityFullType const grid("GRID");
    Formula formula(grid);
    formula.PushBackClause(Clause::FromIdList({1, 2}), grid, true);
    Value value = DataTypeUtils::GetValueConstruct(BT_OBJECT, CT_FORMULA, 3);
    EXPECT_FALSE(value.SetValue(formula, EntityFullType("CBAR")));
    EXPECT_EQ(value.GetValuePointerFormula(grid), nullptr);
    EXPECT_TRUE(value.SetValue(formula, grid));
    ASSERT_NE(value.GetValuePointerFormula(grid), nullptr);
    EXPECT_EQ(*value.GetValuePointerFormula(grid), formula);
    qzString text;
    EXPECT_TRUE(value.GetValueAsString(text, grid, 0));
    Value other = DataTypeUtils::GetValueConstruct(BT_OBJECT, CT_FORMULA, 3);
    EXPECT_TRUE(other.SetValueFromString(text, grid, 0));
    EXPECT_EQ(other, value);
}

TEST(EntityLists, TakeOnlyTheirOwnType) {
    Value value(ValuePtr::Create(EntityList(EntityFullType("GRID"), {1}, {}), DS_DEFAULT));
    EXPECT_FALSE(value.SetValue(Entity(EntityFullType("CBAR"), 4), 0));
    EXPECT_TRUE(value.SetValue(Entity(EntityFullType("GRID"), 4), 2));
    EXPECT_EQ(value.GetValuePointerEntityList()->GetList(), (qzStlVector<unsigned int>{1, 0, 4}));
    EXPECT_EQ(value.GetEntityFullType(), EntityFullType("GRID"));
    EXPECT_EQ(value.GetValuePointerEntity(0, 0), nullptr) << "a list of ids has no Entity to show";
}

} // namespace
} // namespace qzDescriptor::test
