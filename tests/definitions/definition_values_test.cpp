#include "descriptor/qzdescriptor.h"

#include <gtest/gtest.h>

#include <memory>

namespace qzDescriptor::test {
namespace {

Definition MakeDefinition(BasicType basic, CompoundType compound, unsigned int dimension,
                          Allowables const& allowables = {}) {
    Definition definition;
    definition.SetValueBasicType(basic);
    definition.SetValueCompoundType(compound);
    definition.SetArrayDimension(dimension);
    definition.SetAllowables(allowables);
    return definition;
}

Value MakeValue(Definition const& definition) { return Value(&definition, DS_ON, QZDT_DBHandle()); }

template <class T>
Value MakeExpected(T const& element) {
    return Value(ValuePtr::Create(element, DS_ON));
}

TEST(ValuesOfDefinitions, AreOfTheirTypeAndDimension) {
    for (int code = 0; code < 16 * 14 * 4; ++code) {
        auto const basic = BasicType(code % 16);
        auto const compound = CompoundType(code / 16 % 14 - 1);
        auto const dimension = static_cast<unsigned int>(code / (16 * 14));
        SCOPED_TRACE(testing::Message() << basic << '/' << compound << " dimension " << dimension);
        Definition const definition = MakeDefinition(basic, compound, dimension);
        Value expected = compound == CT_TABULAR
                             ? Value(basic, compound, 0, 0, DS_ON, QZDT_DBHandle())
                             : DataTypeUtils::GetValueConstruct(basic, compound, dimension);
        expected.SetDisplayStatus(DS_ON);
        EXPECT_EQ(MakeValue(definition), expected);
        EXPECT_EQ(DataTypeUtils::GetValueDataType(&definition),
                  DataTypeUtils::GetValueDataType(basic, compound, dimension));
    }
    EXPECT_EQ(Value(nullptr, DS_ON, QZDT_DBHandle()), Value());
    EXPECT_EQ(ValuePtr::Create(nullptr, DS_ON, QZDT_DBHandle()), nullptr);
    EXPECT_EQ(DataTypeUtils::GetValueDataType(nullptr), DT_UNKNOWN);
    EXPECT_NE(MakeValue(MakeDefinition(BT_OBJECT, CT_FORMULA, 3)).GetValuePointerFormulaBag(), nullptr);
    EXPECT_NE(MakeValue(MakeDefinition(BT_UINT, CT_ENTITY, 4)).GetValuePointerEntityListBagList(), nullptr);
    EXPECT_NE(MakeValue(MakeDefinition(BT_OBJECT, CT_TABULAR, 0)).GetValuePointerTabular(), nullptr);
    EXPECT_EQ(MakeValue(MakeDefinition(BT_DOUBLE, CT_SCALAR, 0xFFFFFFFF)), Value());
}

TEST(ValuesOfDefinitions, TakeTheDefaultOfTheirOwnType) {
    using Bound = BoundT<double>;
    EntityFullType const grid("GRID", 2);
    struct Row {
        Definition definition;
        Value expected;
    };
    Row const rows[] = {
        {MakeDefinition(BT_DOUBLE, CT_SCALAR, 0, Allowables(Bound(0, Bound::Greater), 2.5)),
         MakeExpected(2.5)},
        {MakeDefinition(BT_DOUBLE, CT_SCALAR, 0, Allowables(Bound(0, Bound::Greater), -1)),
         MakeExpected(-1.0)},
        {MakeDefinition(BT_STRING, CT_SCALAR, 0,
                        Allowables(Allowables::List<qzString>{{"a", ""}, {"b", ""}}, 1)),
         MakeExpected(qzString("b"))},
        {MakeDefinition(BT_STRING, CT_SCALAR, 0, Allowables(Allowables::List<qzString>{{"a", ""}}, 1)),
         MakeExpected(qzString())},
        {MakeDefinition(BT_SHORT, CT_SCALAR, 0, Allowables(short(7))), MakeExpected(short(7))},
        {MakeDefinition(BT_UINT, CT_COLOR, 0, Allowables(Color(4))), MakeExpected(Color(4))},
        {MakeDefinition(BT_UINT, CT_ENTITY, 0, Allowables(grid)), MakeExpected(Entity(grid, 0))},
        {MakeDefinition(BT_FLOAT, CT_SCALAR, 0, Allowables(2.5)), MakeExpected(0.0F)},
        {MakeDefinition(BT_DOUBLE, CT_COUPLE, 0, Allowables(2.5)), MakeExpected(qzTCouple<double>())},
        {MakeDefinition(BT_DOUBLE, CT_SCALAR, 1, Allowables(2.5)), MakeExpected(0.0)},
    };
    for (Row const& row : rows) {
        Value const value = MakeValue(row.definition);
        if (row.definition.GetArrayDimension() == 0)
            EXPECT_EQ(value, row.expected) << &row - rows;
        else
            EXPECT_EQ(value.GetArrayDimensionExtent(0), 0U) << "a list starts empty";
    }
}

} // namespace
} // namespace qzDescriptor::test
