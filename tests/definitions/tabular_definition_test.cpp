#include "descriptor/qzdescriptor.h"

#include <gtest/gtest.h>

namespace qzDescriptor::test {
namespace {

static_assert(std::has_virtual_destructor_v<TabularDefinition>);

Definition Named(char const* name) {
    Definition definition;
    definition.SetDisplayName(name);
    return definition;
}

TabularDefinition MakeTable(std::initializer_list<char const*> names) {
    qzStlVector<Definition> columns;
    for (char const* const name : names)
        columns.push_back(Named(name));
    TabularDefinition table("", columns, false, false, "", "");
    EXPECT_EQ(columns.size(), names.size()) << "the caller's columns stay";
    return table;
}

TEST(TabularDefinition, HasItsColumnsInOrder) {
    TabularDefinition table = MakeTable({"time", "load"});
    EXPECT_EQ(table.GetColumnCount(), 2U);
    EXPECT_EQ(table.GetColumnDefinition(1).GetDisplayName(), "load");
    EXPECT_NE(table, MakeTable({"load", "time"}));
    EXPECT_NE(table, MakeTable({"time"}));

    table.SetColumnDefinition(0, table.GetColumnDefinition(1));
    table.SetColumnDefinition(1, Named("time"));
    table = *&table;
    EXPECT_EQ(table, MakeTable({"load", "time"}));
}

TEST(TabularDefinition, HasADefaultDefinitionWhereThereIsNoColumn) {
    TabularDefinition table = MakeTable({"time"});
    Definition const& none = table.GetColumnDefinition(1);
    EXPECT_EQ(&none, &TabularDefinition().GetColumnDefinition(0));
    table.SetColumnDefinition(1, Named("load"));
    EXPECT_EQ(table, MakeTable({"time"}));
    EXPECT_EQ(none, Definition());
}

} // namespace
} // namespace qzDescriptor::test
