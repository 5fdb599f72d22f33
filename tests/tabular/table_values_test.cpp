#include "support/samples.h"

namespace qzDescriptor::test {
namespace {

Value MakeValue(Tabular const& table) {
    Value value(BT_OBJECT, CT_TABULAR, 0, 0, DS_DEFAULT, QZDT_DBHandle());
    EXPECT_TRUE(value.SetValue(table));
    return value;
}

Tabular MakeTable(double number) {
    Tabular table;
    table.InsertColumn(qzStlVector<double>{number, 2.5}, 0);
    table.InsertColumn(qzStlVector<qzString>{"a b", "} \"c\\"}, 1);
    table.InsertColumn(qzStlVector<qzTTriple<int>>{{1, 2, 3}}, 2);
    table.InsertColumn(EntityList(EntityFullType("GRID"), {7, 8}, {}), 3);
    return table;
}

TEST(TableValues, AreOneElementWithRowsAndColumnsAsExtents) {
    Value const value = MakeValue(MakeTable(1));
    EXPECT_EQ(value.GetBasicType(), BT_OBJECT);
    EXPECT_EQ(value.GetCompoundType(), CT_TABULAR);
    EXPECT_EQ(value.GetArrayDimension(), 0u);
    EXPECT_EQ(value.GetArrayDimensionExtent(0u), 2u);
    EXPECT_EQ(value.GetArrayDimensionExtent(1u), 4u);
    EXPECT_EQ(value.GetArrayDimensionExtent(2u), 0u);
    EXPECT_EQ(value.GetValuePtr()->GetMemoryLocation(5, 5), value.GetValuePointerTabular());
    Tabular longer = MakeTable(1);
    longer.SetColumn(0, qzStlVector<double>(100, 1.0));
    EXPECT_GE(MakeValue(longer).GetValueMemoryUsage(),
              value.GetValueMemoryUsage() + 98 * (sizeof(double) + sizeof(qzString) + 4 * sizeof(int)));
}

TEST(TableValues, AreWrittenByRowsAndNeverRead) {
    Tabular table = MakeTable(1);
    table.InsertColumn(EntityList(), 4); // no rows
    Value value = MakeValue(table);
    struct Row {
        unsigned int i, j;
        char const* text;
    };
    unsigned int const whole = ValuePtr::s_wholeValue;
    Row const rows[] = {
        {whole, 0, R"({{1 "a b" {1 2 3} {GRID 7} {}} {2.5 "} \"c\\" {0 0 0} {GRID 8} {}}})"},
        {1, whole, R"({2.5 "} \"c\\" {0 0 0} {GRID 8} {}})"},
        {1, 1, "} \"c\\"},
        {0, 3, "GRID 7"},
    };
    for (Row const& row : rows) {
        qzString text;
        EXPECT_TRUE(value.GetValueAsString(text, nullptr, row.i, row.j));
        EXPECT_EQ(text, row.text);
    }
    for (auto const& [i, j] : {std::pair(2u, whole), {0u, 4u}, {0u, 5u}, {2u, 0u}}) {
        qzString text = "before";
        EXPECT_FALSE(value.GetValueAsString(text, nullptr, i, j));
        EXPECT_EQ(text, "");
    }
    EXPECT_FALSE(value.SetValueFromString("{{1}}", nullptr, 0, 0));

    Tabular numbers;
    numbers.InsertColumn(qzStlVector<double>{1, 2.5}, 0);
    qzString text;
    EXPECT_TRUE(MakeValue(numbers).GetValueAsString(text, "%.2f"));
    EXPECT_EQ(text, "{{1.00} {2.50}}");
    EXPECT_FALSE(MakeValue(numbers).GetValueAsString(text, "%d"));
}

TEST(TableValues, AgreeWithinTheToleranceOfTheComparison) {
    struct Row {
        double other, tolerance;
        bool relative, agree;
    };
    Row const rows[] = {{1.01, 0.02, false, true}, {1.01, 0.005, false, false}, {101, 1.97, true, true},
                        {101, 1.95, true, false},  {1, 0, false, true},         {1 + 1e-9, 0, false, false}};
    for (Row const& row : rows)
        EXPECT_EQ(Value::AreEqualWithinTolerance(MakeValue(MakeTable(1)), MakeValue(MakeTable(row.other)),
                                                 row.tolerance, row.relative),
                  row.agree)
            << row.other << ' ' << row.tolerance;
    EXPECT_TRUE(MakeValue(MakeTable(1)) == MakeValue(MakeTable(1 + 1e-9)));
    EXPECT_FALSE(MakeValue(MakeTable(1)) == MakeValue(MakeTable(1.01)));
    EXPECT_FALSE(Value::AreEqualWithinTolerance(MakeValue(MakeTable(1)), Value(1.0), 1, false));
}

} // namespace
} // namespace qzDescriptor::test
