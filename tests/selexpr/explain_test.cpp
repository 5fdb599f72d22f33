#include "objects.h"

namespace ui::selexpr::test {
namespace {

TEST(Explanation, NamesTheConditionsThatDecide) {
    Object part = {{"id", Integer(17)},
                   {"thickness", Double(1.2)},
                   {"t", Float(0.1f)},
                   {"name", Text("wing \"2\"")},
                   {"active", Boolean(false)}};
    struct Row {
        char const* text;
        char const* explanation;
    };
    Row const rows[] = {
        {"thickness > 2.5", "thickness > 2.5 is false: thickness is 1.2"},
        {"id = 17 and thickness > 2.5 and t = 5", "thickness > 2.5 is false: thickness is 1.2"},
        {"id = 1 or t > 5", "id = 1 is false: id is 17\nt > 5 is false: t is 0.1"},
        {"id = 1 or t < 5 or id = 17", "t < 5 is true: t is 0.1"},
        {"id=17 and not (absent=3 or 'active' != false)",
         "id = 17 is true: id is 17\nabsent = 3 is false: absent has no value\n"
         "active != false is false: active is false"},
        {"tail", "tail is false: name is \"wing \\\"2\\\"\""},
    };
    Data data;
    Filter filter(&data);
    for (Row const& row : rows) {
        auto const request = Parse(filter, row.text);
        ASSERT_NE(request, nullptr) << row.text;
        Explanation const explanation = Explain(*request, &part);
        EXPECT_EQ(explanation.GetText(), row.explanation);
        EXPECT_EQ(explanation.matches, request->Matches(&part));
    }
}

TEST(Explanation, OfAForeignRequestHasNoReasons) {
    struct Everything : IRequest {
        bool Matches(void*) const override { return true; }
    } const everything;
    EXPECT_TRUE(Explain(everything, nullptr).matches);
    EXPECT_TRUE(Explain(everything, nullptr).reasons.empty());
    EXPECT_EQ(ToText(everything), "");
}

TEST(ToText, WritesTheFewestBracketsAndQuotes) {
    std::pair<char const*, char const*> const rows[] = {
        {"((a=1)and((b=2)and c=3))or not(not(d=4))", "a = 1 and b = 2 and c = 3 or not not d = 4"},
        {"( a = 1 or b = 2 ) and not ( c = 3 and d = 4 )", "(a = 1 or b = 2) and not (c = 3 and d = 4)"},
        {"'a b' == 'and' AND \"a\" != \"5\"", "\"a b\" == \"and\" and a != \"5\""},
        {"a NOT IN ( 1:9 : 2,+2.50, 'x' )", "a not in 1:9:2, +2.50, x"},
        {"1:3,4", "1:3, 4"},
        {"a == '\\\\\"'", "a == \"\\\\\\\"\""},
        {"a == ''", "a == \"\""},
    };
    Data data;
    Filter filter(&data);
    for (auto const& [text, written] : rows) {
        auto const request = Parse(filter, text);
        ASSERT_NE(request, nullptr) << text << ": " << filter.GetError().message;
        EXPECT_EQ(ToText(*request), written);
    }
}

} // namespace
} // namespace ui::selexpr::test
