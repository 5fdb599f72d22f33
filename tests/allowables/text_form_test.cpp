#include "definitions/allowables/allowable_types.h"
#include "descriptor/Allowables.h"
#include "support/samples.h"

#include <gtest/gtest.h>

#include <functional>

using namespace qzDescriptor;

namespace {

/// What a text reads as: the names of the list between bars, and the default behind an arrow.
qzString Summary(Allowables const& allowables) {
    if (!allowables.IsValid())
        return "null";
    qzString summary;
    for (unsigned int i = 0; i < allowables.GetListCount(); ++i)
        summary += allowables.GetListItemName(i) + "|";
    if (!allowables.HaveList())
        summary += "any";
    Value value;
    qzString text;
    if (allowables.GetDefault(value) && value.GetValueAsString(text))
        summary += " -> " + text;
    return summary;
}

TEST(AllowablesText, ReadsListsAndDefaults) {
    struct Case {
        BasicType basic;
        CompoundType compound;
        char const* text;
        char const* summary;
    };
    Case const cases[] = {
        {BT_INT, CT_SCALAR, "LIST(2,4,8),DEFAULT(4)", "2|4|8| -> 4"},
        {BT_INT, CT_SCALAR, "LIST(2, 4 , 8) DEFAULT(9)", "2|4|8| -> 2"},
        {BT_INT, CT_SCALAR, "LIST(2,4,8)", "2|4|8| -> 2"},
        {BT_INT, CT_SCALAR, "LIST()", ""},
        {BT_INT, CT_SCALAR, "LIST(2,x,,8)", "2|8| -> 2"},
        {BT_INT, CT_SCALAR, "DEFAULT(4)", "any -> 4"},
        {BT_INT, CT_SCALAR, "DEFAULT(four)", "null"},
        {BT_INT, CT_SCALAR, "list(2)", "null"},
        {BT_INT, CT_SCALAR, "", "null"},
        {BT_INT, CT_SCALAR, "LIST", ""},
        {BT_INT, CT_SCALAR, "DEFAULT", "null"},
        {BT_INT, CT_SCALAR, "DEFAULT(4),LIST(2)", ""}, // the default comes last
        {BT_INT, CT_SCALAR, "any LIST[7]", "7| -> 7"},
        {BT_NONE, CT_SCALAR, "LIST(2)", "null"},
        {BT_POINTER, CT_SCALAR, "LIST(2)", "null"},
        {BT_BOOL, CT_SCALAR, "LIST(true,FALSE),DEFAULT(false)", "true|false| -> false"},
        {BT_DOUBLE, CT_SCALAR, "LIST(1e3,0.5),DEFAULT(0.5)", "1000|0.5| -> 0.5"},
        {BT_STRING, CT_SCALAR, "LIST(steel, 'a, b' ,\"say \\\"x\\\"\",o'clock),DEFAULT('a, b')",
         "steel|a, b|say \"x\"|o'clock| -> a, b"},
        {BT_STRING, CT_SCALAR, "LIST(f(a,b),c)", "f(a,b)|c| -> f(a,b)"},
        {BT_DOUBLE, CT_COUPLE, "LIST(1 2,3 4),DEFAULT(3 4)", "1 2|3 4| -> 3 4"},
        {BT_UINT, CT_COLOR, "LIST(3,7),DEFAULT(7)", "3|7| -> 7"},
        {BT_UINT, CT_ENTITY, "LIST(GRID,SHELL quad4,5 6),DEFAULT(GRID)", "GRID|SHELL quad4|5 6| -> GRID 0"},
        {BT_OBJECT, CT_QUALIFIER, "LIST(T SHELL 0 -1 -1)", "T SHELL 0 -1 -1| -> T SHELL 0 -1 -1"},
    };
    for (Case const& c : cases)
        EXPECT_EQ(Summary(Allowables(c.basic, c.compound, c.text)), c.summary) << c.text;
}

TEST(AllowablesText, SurvivesEverySubstringForEveryType) {
    qzString const texts[] = {"LIST(1 2,'a,b',\"c\\\"\",(3,4)),DEFAULT(1 2)", "DEFAULT(7)LIST[{1,2},\\]",
                              "LISTDEFAULT", "LIST(',DEFAULT("};
    unsigned int readable = 0;
    test::ForEachElementType([&]<class T>(std::type_identity<T>) {
        for (qzString const& text : texts) {
            for (std::size_t first = 0; first < text.size(); ++first) {
                for (std::size_t count = 0; count <= text.size() - first; ++count) {
                    Allowables const allowables(ElementTraits<T>::s_basic, ElementTraits<T>::s_compound,
                                                text.substr(first, count));
                    readable += allowables.IsValid() ? 1 : 0;
                    if (allowables.IsValid()) {
                        EXPECT_EQ(allowables.GetBasicType(), ElementTraits<T>::s_basic);
                    }
                }
            }
        }
    });
    EXPECT_GT(readable, 1000u);
}

TEST(AllowablesText, IsNeverWritten) {
    qzString text = "untouched";
    EXPECT_FALSE(Allowables(BT_INT, CT_SCALAR, "LIST(1)").GetAsString(text));
    EXPECT_EQ(text, "untouched");
}

} // namespace
