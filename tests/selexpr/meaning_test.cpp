#include "objects.h"

#include <limits>

namespace ui::selexpr::test {
namespace {

struct Row {
    char const* text;
    bool expected;
};

template <std::size_t N>
void Check(Row const (&rows)[N], Object const& object) {
    for (Row const& row : rows)
        EXPECT_EQ(Matches(row.text, object), row.expected) << row.text;
}

TEST(Query, ComparesNumbersTextsAndBooleans) {
    Object const part = {
        {"id", Integer(17)},    {"thickness", Double(2.5)}, {"t", Float(0.1f)}, {"name", Text("Wing *rib")},
        {"label", Text("012")}, {"active", Boolean(true)},  {"vector", {}}};
    Row const rows[] = {
        {"id = 17", true},
        {"id == 17", true},
        {"id = 17.0 and id = 1.7e1 and id = \"17\" and id = +17", true},
        {"id != 17", false},
        {"id > 16.5 and id < 17.5 and id >= 17 and id <= 17", true},
        {"id > 17", false},
        {"id < 17", false},
        {"thickness=2.5", true},
        {"thickness>2.5 or thickness<2.5", false},
        {"t = 0.1", true},
        {"t > 0.1", false},
        {"t in 0.09:0.11", true},
        {"name = \"wing *RIB\"", true},
        {"name = wing*", true},
        {"name = w?n?\\ ", false},
        {"name = w???????", false},
        {"name = w????????", true},
        {"name == 'Wing *rib'", true},
        {"name == 'wing *rib'", false},
        {"name == 'Wing *'", false},
        {"name != tail*", true},
        {"name < x and name > W and name >= 'WING *RIB'", true},
        {"ng", true},
        {"tail, ng", true},
        {"n?g", false},
        {"label = 12 and label in 10:12 and label >= 12", true},
        {"label = '12'", false},
        {"label == 12", false},
        {"label == 012", true},
        {"name = 12", false},
        {"name != 12", true},
        {"active = true and active = TRUE and active = 1 and active != 0 and active > 0.5", true},
        {"active = yes", false},
        {"vector = 1 or vector != 1 or absent = 1 or absent not in 1", false},
        {"not vector = 1", true},
    };
    Check(rows, part);
}

TEST(Query, BindsNotTighterThanAndAndThatTighterThanOr) {
    Object const part = {{"a", Integer(1)}, {"b", Integer(0)}};
    Row const rows[] = {
        {"a = 1 or a = 1 and b = 1", true}, {"(a = 1 or a = 1) and b = 1", false},
        {"not a = 1 or a = 1", true},       {"not (a = 1 or a = 1)", false},
        {"NOT b = 1 And a = 1", true},      {"not not not b = 0", false},
        {"((a = 0) oR ((b = 0)))", true},   {"not a = 1 and b = 1", false},
        {"a = 0 or b = 1 or a = 1", true},  {"'a' = '1'\n\tand b=0", true},
        {"a in (1) and b in(0,5:7)", true},
    };
    Check(rows, part);
}

TEST(Query, ListsHoldRangesAndSteps) {
    struct RangeRow {
        char const* list;
        std::initializer_list<long long> inside;
        std::initializer_list<long long> outside;
    };
    constexpr long long s_min = std::numeric_limits<long long>::min();
    constexpr long long s_max = std::numeric_limits<long long>::max();
    RangeRow const rows[] = {
        {"1:100:2, 250", {1, 3, 99, 250}, {0, 2, 100, 101, 251}},
        {"10:1:-3", {10, 7, 4, 1}, {9, 0, -2, 13}},
        {"10:2:-3", {10, 7, 4}, {2, 3, 1}},
        {"5:1", {1, 3, 5}, {0, 6}},
        {"4:4:-9", {4}, {3, 5, -5}},
        {"3, 1:2, 2:7, -5", {-5, 1, 2, 3, 7}, {-4, 0, 8}},
        {"0.5:2.5", {1, 2}, {0, 3}},
        {"-9223372036854775808:9223372036854775807:9223372036854775807",
         {s_min, -1, s_max - 1},
         {0, s_max, s_min + 1}},
        {"9223372036854775807:-9223372036854775808:-9223372036854775808", {s_max, -1}, {s_min, 0, 1}},
        {"-1e30:1e30", {s_min, s_max}, {}},
    };
    for (RangeRow const& row : rows) {
        for (long long const value : row.inside) {
            EXPECT_TRUE(Matches(qzString("n in ") + row.list, {{"n", Integer(value)}}))
                << row.list << ' ' << value;
            EXPECT_FALSE(Matches(qzString("n not in ") + row.list, {{"n", Integer(value)}})) << row.list;
        }
        for (long long const value : row.outside)
            EXPECT_FALSE(Matches(qzString("n in ") + row.list, {{"n", Integer(value)}}))
                << row.list << ' ' << value;
    }
    EXPECT_TRUE(Matches("n in 1:9:2", {{"n", Double(3)}}));
    EXPECT_FALSE(Matches("n in 1:9:2", {{"n", Double(3.5)}}));
    EXPECT_FALSE(Matches("n in 1:9:2", {{"n", Double(std::numeric_limits<double>::infinity())}}));
    EXPECT_TRUE(Matches("n in 1:9:2", {{"n", Text("+3")}}));
    EXPECT_TRUE(Matches("n in tail, w*, 3", {{"n", Text("Wing")}}));
    EXPECT_TRUE(Matches("n in w*, 3:4", {{"n", Text("Wing")}}));
    EXPECT_FALSE(Matches("n in b, d, f", {{"n", Text("c")}}));
}

// Where rounding, wrapping or widening would give another answer.
TEST(Query, ComparesNumbersExactly) {
    constexpr long long s_two53 = 9007199254740992;
    constexpr long long s_min = std::numeric_limits<long long>::min();
    constexpr long long s_max = std::numeric_limits<long long>::max();
    constexpr double s_inf = std::numeric_limits<double>::infinity();
    constexpr double s_nan = std::numeric_limits<double>::quiet_NaN();
    struct ValueRow {
        qzVariant value;
        char const* condition;
        bool expected;
    };
    ValueRow const rows[] = {
        {Integer(s_two53 + 1), "= 9007199254740992", false},
        {Integer(s_two53 + 1), "= 9007199254740993", true},
        {Integer(s_two53 + 2), "> 9007199254740993.5", true},
        {Integer(s_two53 + 1), "> 9007199254740993.5", false},
        {Integer(s_max), "< 9223372036854775807.5", true},
        {Integer(s_max), "< 9223372036854775808", true},
        {Integer(s_max), "= 9223372036854775808", false},
        {Integer(s_max), "> 9223372036854775807", false},
        {Integer(s_max), ">= 9223372036854775806.1", true},
        {Integer(s_min), "= -9223372036854775808", true},
        {Integer(s_min), "< -9223372036854775808", false},
        {Integer(s_min), "> -9223372036854775808.5", true},
        {Integer(s_min), "> -1e400", true},
        {Integer(s_max), "< inf", true},
        {Integer(-2), "<= -1.5", true},
        {Integer(-1), "<= -1.5", false},
        {Integer(1000), "= 0.000000000000000000001e24", true},
        {Integer(1), "= 1000000000000000000000000e-24", true},
        {Integer(0), "= 0e999999999999999999999", true},
        {Integer(0), "> 1e-999999999999999999999", false},
        {Integer(0), "< 1e-999999999999999999999", true},
        {Integer(0), "> -1e-400", true},
        {Double(0.1), "= 0.1", true},
        {Double(-0.0), "= 0", true},
        {Double(-0.0), "< 0", false},
        {Double(s_two53), "= 9007199254740993", true}, // one and the same double
        {Double(s_inf), "> 1e400", true},
        {Double(s_inf), "= 1e400", false},
        {Double(s_inf), "= inf", true},
        {Double(s_inf), "> inf", false},
        {Double(-s_inf), "< -1e400", true},
        {Double(std::numeric_limits<double>::max()), "< 1e400", true},
        {Double(std::numeric_limits<double>::max()), "< inf", true},
        {Double(std::numeric_limits<double>::denorm_min()), "> 0", true},
        {Double(std::numeric_limits<double>::denorm_min()), "= 4.9406564584124654e-324", true},
        {Float(0.1f), "= 0.1", true},
        {Float(0.1f), "< 0.1", false},
        {Float(std::numeric_limits<float>::max()), "< 1e39", true},
        {Float(std::numeric_limits<float>::infinity()), "= 1e39", false},
        {Float(16777216), "= 16777217", true}, // one and the same float
        {Double(s_nan), "= 1", false},
        {Double(s_nan), "!= 1", false},
        {Double(s_nan), "= nan", false},
        {Float(std::numeric_limits<float>::quiet_NaN()), "!= 1", false},
        {Double(1), "!= nan", true},
        {Text("nan"), "> -5", false},
        {Text("nan"), "= nan", true},
        {Text("1e400"), "= 1e400", true},
        {Text("1e400"), "> 1e300", true},
        {Text("9007199254740993"), "= 9007199254740992", false},
        {Text(""), "= ''", true},
        {Text(""), "= *", true},
        {Text(""), "= ?", false},
        {Text("-"), "< 1", false},
    };
    for (ValueRow const& row : rows)
        EXPECT_EQ(Matches(qzString("n ") + row.condition, {{"n", row.value}}), row.expected) << row.condition;
}

TEST(Query, QuotesHoldAnyBytesAndBackslashesStay) {
    Row const rows[] = {
        {R"(n == "C:\temp \"new\" 'x'")", true},
        {R"(n == 'C:\temp "new" \'x\'')", true},
        {R"(n == 'C:\\temp "new" \'x\'')", true},
        {R"(n == 'C:temp "new" \'x\'')", false},
    };
    Check(rows, {{"n", Text(R"(C:\temp "new" 'x')")}});
    qzString const bytes("a\0\n\xFF", 4);
    EXPECT_TRUE(Matches("n == '" + bytes + "'", {{"n", Text(bytes)}}));
    EXPECT_TRUE(Matches("'and' == 'or'", {{"and", Text("or")}}));
    EXPECT_TRUE(Matches("n = x?z", {{"n", Text("x\xC3\xA9Z")}})) << "one character, not one byte";
    EXPECT_FALSE(Matches("n = \xC3\xA9", {{"n", Text("\xC3\x89")}})) << "only ASCII has case";
}

#if QZ_WITH_RE2
TEST(Query, RegularExpressionsFitAnywhere) {
    Row const rows[] = {
        {"n ~ ing", true},   {"n ~ '^ing'", false},    {R"(n ~ "^W\w+\s\d+$")", true},    {"n ~ 12", true},
        {"n ~ wing", false}, {"n ~ '(?i)wing'", true}, {"n ~ '' and absent ~ ''", false}, {"id ~ 1", false},
    };
    Check(rows, {{"n", Text("Wing 12")}, {"id", Integer(1)}});
}

TEST(Query, NoPatternHangsOrOverflows) {
    qzString const many(1'000'000, 'a');
    EXPECT_FALSE(Matches("n ~ '^(a+)+$'", {{"n", Text(many + "b")}}));
    EXPECT_FALSE(Matches("n ~ '(a|aa)*c'", {{"n", Text(many)}}));
}
#endif

TEST(Query, StarsCostTheProductOfLengths) {
    qzString stars;
    for (int k = 0; k < 300; ++k)
        stars += "*a";
    EXPECT_FALSE(Matches("n = " + stars + "b", {{"n", Text(qzString(20'000, 'a'))}}));
    EXPECT_TRUE(Matches("n = " + stars + "*", {{"n", Text(qzString(20'000, 'a'))}}));
}

TEST(Query, LongListsAreSearchedByHalving) {
    Data data;
    Filter filter(&data);
    for (bool const hasSteps : {false, true}) {
        qzString list = "n in -1";
        for (int k = 0; k < 30'000; ++k)
            list += "," + std::to_string(3 * k) + (hasSteps ? ":" + std::to_string(3 * k + 1) + ":2" : "");
        auto const request = Parse(filter, list);
        ASSERT_NE(request, nullptr);
        int found = 0;
        for (int k = 0; k < 30'000; ++k) {
            Object object{{"n", Integer(k)}};
            found += request->Matches(&object) ? 1 : 0;
        }
        EXPECT_EQ(found, 10'000);
    }
}

} // namespace
} // namespace ui::selexpr::test
