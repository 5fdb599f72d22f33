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

TEST(ArrayFactory, MakesExactlyTheKindsThatExist) {
    struct Row {
        BasicType basic;
        CompoundType compound;
        bool list;
        bool grid;
    };
    Row const rows[] = {
        {BT_BOOL, CT_SCALAR, true, false},       {BT_CHAR, CT_SCALAR, true, false},
        {BT_UCHAR, CT_SCALAR, false, false},     {BT_INT, CT_SCALAR, true, true},
        {BT_UINT, CT_SCALAR, true, true},        {BT_SHORT, CT_SCALAR, false, false},
        {BT_LONG, CT_SCALAR, true, true},        {BT_ULONG, CT_SCALAR, true, true},
        {BT_FLOAT, CT_SCALAR, true, true},       {BT_DOUBLE, CT_SCALAR, true, true},
        {BT_STRING, CT_SCALAR, true, false},     {BT_POINTER, CT_SCALAR, true, false},
        {BT_DOUBLE, CT_COUPLE, true, false},     {BT_INT, CT_COUPLE, false, false},
        {BT_INT, CT_TRIPLE, true, false},        {BT_DOUBLE, CT_TRIPLE, true, true},
        {BT_FLOAT, CT_TRIPLE, false, false},     {BT_DOUBLE, CT_MATRIX33, false, false},
        {BT_UINT, CT_COLOR, false, false},       {BT_OBJECT, CT_QUALIFIER, true, false},
        {BT_OBJECT, CT_FORMULA, true, false},    {BT_UINT, CT_FORMULA, false, false},
        {BT_POINTER, CT_FUNCTION, false, false}, {BT_NONE, CT_NONE, false, false},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(MakeArray(row.basic, row.compound, 4, 0).GetArrayDimension(), row.list ? 1u : 0u);
        EXPECT_EQ(MakeArray(row.basic, row.compound, 4, 2).GetArrayDimension(), row.grid ? 2u : 0u);
        EXPECT_EQ(MakeArray(row.basic, row.compound, 4, 0).GetValuePtr() != nullptr, row.list);
        EXPECT_EQ(MakeArray(row.basic, row.compound, 4, 2).GetValuePtr() != nullptr, row.grid);
        EXPECT_EQ(MakeArray(row.basic, row.compound, 0, 0).GetValuePtr(), nullptr);
        EXPECT_EQ(MakeArray(row.basic, row.compound, 0, 2).GetValuePtr(), nullptr);
    }
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
