#include "registry/plate.h"

#include <gtest/gtest.h>

using namespace qzDescriptor;
using namespace qzDescriptor::test;

namespace {

TEST(Attribute, ReadsAndWritesThroughTheContent) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    Attribute thickness(plate.get(), T);
    EXPECT_EQ(thickness.GetName(), "T");
    EXPECT_EQ(thickness.GetDisplayName(), "Thickness");
    EXPECT_EQ(thickness.GetHandle(), 1u);
    EXPECT_EQ(Attribute(plate.get(), COUNT).GetDisplayName(), "COUNT");
    EXPECT_EQ(thickness.SetValue(2.5), qzReturnStatus());
    EXPECT_EQ(Get<double>(*plate, T), 2.5);
    EXPECT_EQ(thickness.SetValue(11.0).message, "Input of 11 violates: 0 < VALUE < 10");
    EXPECT_EQ(thickness.TestValue(11.0).message, "Input of 11 violates: 0 < VALUE < 10");
    EXPECT_EQ(thickness.SetValueFromString("3.5"), qzReturnStatus());
    double number = 0;
    EXPECT_TRUE(thickness.GetValue(number));
    EXPECT_EQ(number, 3.5);
    int other = 7;
    EXPECT_FALSE(thickness.GetValue(other));
    EXPECT_EQ(other, 7);
    EXPECT_TRUE(thickness.Reset() && thickness.IsAtDefault());

    Attribute factors(plate.get(), FACTORS);
    EXPECT_EQ(factors.SetValue(qzStlVector<double>{1, 2}), qzReturnStatus());
    qzString text;
    EXPECT_TRUE(factors.GetValueAsString(text, nullptr, 1));
    EXPECT_EQ(text, "2");
}

TEST(Attribute, OnlyReadsWhatIsConstant) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    plate->SetValue(T, 2.5);
    Content const& constant = *plate;
    for (Attribute view : {Attribute(&constant, T), Attribute(members.get(), T)}) {
        EXPECT_TRUE(view.IsValid() && view.IsReadOnly());
        double number = 0;
        EXPECT_TRUE(view.GetValue(number));
        EXPECT_EQ(number, view.GetContent() != nullptr ? 2.5 : 1.0);
        EXPECT_EQ(view.IsAtDefault(), view.GetContent() == nullptr);
        EXPECT_EQ(view.SetValue(3.0).message, "The attribute can only be read.");
        EXPECT_EQ(view.SetValue(Value(3.0)).status, -1);
        EXPECT_EQ(view.SetValueFromString("3").status, -1);
        EXPECT_FALSE(view.Reset() || view.SetDisplayStatus(DS_OFF));
        EXPECT_EQ(view.TestValue(3.0).status, 0);
        EXPECT_EQ(Get<double>(*plate, T), 2.5);
    }
}

TEST(Attribute, OfNothingFailsQuietly) {
    OwnedMembers const members = MakePlate();
    OwnedContent const plate = MakeContent(members);
    for (Attribute nothing :
         {Attribute(), Attribute(plate.get(), COUNT_OF), Attribute(members.get(), 0xFFFFFFFF),
          Attribute(static_cast<Content*>(nullptr), T)}) {
        EXPECT_FALSE(nothing.IsValid());
        EXPECT_EQ(nothing.GetHandle(), 0u);
        EXPECT_EQ(nothing.GetType(), Content::ATTRIBUTE_NONE);
        EXPECT_EQ(nothing.GetName() + nothing.GetDisplayName() + nothing.GetDimensionality(), "");
        EXPECT_FALSE(nothing.GetSecondaryIdentifier().IsValid() || nothing.GetAllowables().IsValid());
        EXPECT_EQ(nothing.GetDataOperationList().GetCount(), 0u);
        EXPECT_EQ(nothing.GetDisplayStatus(), DS_DEFAULT);
        double number = 7;
        ValuePtr const* holder = nullptr;
        EXPECT_FALSE(nothing.GetValue(number) || nothing.GetValue(holder) || nothing.IsAtDefault());
        EXPECT_EQ(number, 7.0);
        EXPECT_EQ(nothing.SetValue(1.0).message, "There is no such attribute.");
        EXPECT_FALSE(TabularAttribute(nothing).InsertRows(0));
    }
}

TEST(AttributeHelper, FindsAndGroupsAttributes) {
    OwnedMembers const members(Members::Create("Shell"));
    struct Row {
        char const *name, *helpPath;
        bool isVisible;
    };
    Row const rows[] = {{"T", "shell/geometry/t", true},
                        {"E", "shell/material/e", true},
                        {"W", "shell/geometry/w", true},
                        {"HIDDEN", "shell/secret/h", false},
                        {"NOTE", "", true},
                        {"RHO", "shell/material/rho", true}};
    for (Row const& row : rows) {
        Definition definition = Define(row.name, BT_INT, CT_SCALAR, 0);
        definition.SetHelpPath(row.helpPath);
        definition.SetVisible(row.isVisible);
        members->InsertVariable(Identifier(row.name), definition, Identifier(qzString("second ") + row.name),
                                false, Members::s_none, "", {});
    }
    OwnedContent const shell = MakeContent(members);
    AttributeHelper const helper(shell.get());
    EXPECT_EQ(helper.Find(Identifier("W")), Attribute(shell.get(), 2));
    EXPECT_EQ(helper.Find(Identifier("second W"), true), Attribute(shell.get(), 2));
    EXPECT_FALSE(helper.Find(Identifier("second W")).IsValid());
    EXPECT_EQ(helper.Find(Identifier("W")).SetValue(3), qzReturnStatus());
    EXPECT_EQ(helper.GetAttributes().size(), 6u);

    auto const words = [](auto const& categories) {
        qzString text;
        for (CategoryAttribute const& category : categories) {
            text += category.GetName() + ':';
            for (Attribute const& attribute : category)
                text += ' ' + attribute.GetName();
            text += "; ";
        }
        return text;
    };
    EXPECT_EQ(words(helper.GetCategories()), "shell/geometry: T W; shell/material: E RHO; : NOTE; ");
    EXPECT_EQ(words(helper.GetCategories([](Attribute const& a) { return a.GetName().substr(0, 1); })),
              "T: T; E: E; W: W; N: NOTE; R: RHO; ");
    EXPECT_EQ(AttributeHelper(members.get()).Find(Identifier("W")).SetValue(4).status, -1);
    EXPECT_EQ(AttributeHelper(static_cast<Content*>(nullptr)).GetCount(), 0u);
}

class TabularAttributeTest : public testing::Test {
protected:
    OwnedMembers members = MakePlate();
    OwnedContent plate = MakeContent(members);
    TabularAttribute loads{plate.get(), LOADS};

    qzString Text() const {
        qzString text;
        loads.GetValueAsString(text);
        return text;
    }
};

TEST_F(TabularAttributeTest, HasTheColumnsOfItsDefinition) {
    EXPECT_EQ(loads.GetColumnCount(), 4u);
    EXPECT_EQ(loads.GetRowCount(), 0u);
    EXPECT_EQ(loads.FindColumn("Phase"), 2u);
    EXPECT_EQ(loads.FindColumn("phase"), Members::s_none);
    EXPECT_TRUE(loads.InsertRows(0, 2));
    EXPECT_EQ(Text(), "{{0 1 \"\" {GRID 0}} {0 1 \"\" {GRID 0}}}");
    EXPECT_EQ(loads.SetCellValue(0, 0, 0.5), qzReturnStatus());
    EXPECT_EQ(loads.SetCellValue(1, 2, qzString("hold")), qzReturnStatus());
    EXPECT_EQ(loads.SetCellValue(1, 3, Entity(EntityFullType("GRID"), 7)), qzReturnStatus());
    EXPECT_TRUE(loads.InsertRows(1) && loads.InsertRows(3));
    EXPECT_EQ(Text(),
              "{{0.5 1 \"\" {GRID 0}} {0 1 \"\" {GRID 0}} {0 1 \"hold\" {GRID 7}} {0 1 \"\" {GRID 0}}}");
    EXPECT_TRUE(loads.RemoveRows({1, 0}));
    qzString phase;
    EXPECT_TRUE(loads.GetCellValue(0, 2, phase));
    EXPECT_EQ(phase, "hold");
}

TEST_F(TabularAttributeTest, RefusesCellsAndRowsWithoutAChange) {
    loads.InsertRows(0, 2);
    qzString const before = Text();
    struct Case {
        unsigned int row, column;
        Value value;
        char const* message;
    };
    Case const cases[] = {
        {0, 1, Value(11.0), "Input of 11 violates: 0 < VALUE < 10"},
        {0, 1, Value(1), "A double is expected, not an int."},
        {0, 3, Value(Entity(EntityFullType("ELEMENT"), 1)), "Input of ELEMENT violates: VALUE in {GRID}"},
        {2, 0, Value(1.0), "There is no such cell."},
        {0, 4, Value(1.0), "There is no such cell."},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(loads.SetCellValue(c.row, c.column, c.value).message, c.message);
        EXPECT_EQ(loads.TestCellValue(c.row, c.column, c.value).message, c.message);
        EXPECT_EQ(Text(), before);
    }
    EXPECT_FALSE(loads.InsertRows(3) || loads.InsertRows(0, 0xFFFFFFFE) || loads.RemoveRows({0, 2}) ||
                 loads.RemoveRows({}));
    Content const& constant = *plate;
    TabularAttribute shown(&constant, LOADS);
    EXPECT_EQ(shown.SetCellValue(0, 0, 1.0).message, "The attribute can only be read.");
    EXPECT_FALSE(shown.InsertRows(0) || shown.RemoveRows({0}));
    EXPECT_FALSE(TabularAttribute(plate.get(), T).IsValid());
    EXPECT_EQ(Text(), before);
}

TEST_F(TabularAttributeTest, GivesATableTheColumnsItLacks) {
    Tabular table;
    table.InsertColumn(qzStlVector<double>{3, 4}, 0);
    EXPECT_EQ(plate->SetValue(LOADS, table), qzReturnStatus());
    EXPECT_EQ(loads.SetCellValue(1, 2, qzString("new")), qzReturnStatus());
    EXPECT_EQ(Text(), "{{3 1 \"\" {GRID 0}} {4 1 \"new\" {GRID 0}}}");
}

} // namespace
