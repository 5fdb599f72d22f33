#include "objects.h"

namespace ui::selexpr::test {
namespace {

TEST(QueryError, SaysWhereWhatAndWhatInstead) {
    struct Row {
        qzString text;
        char const* message;
    };
    qzString const tooLong(1001, 'x');
    Row const rows[] =
    { {"", "at 1: found the end, expected a condition"},
      {" \n", "at 3: found the end, expected a condition"},
      {"a = 1 and or b = 2", "at 11: found 'or', expected a condition"},
      {"thickness = or", "at 13: found 'or', expected a value"},
      {"a = ", "at 5: found the end, expected a value"},
      {"a = = 1", "at 5: found '=', expected a value"},
      {"a = 1 b = 2", "at 7: found 'b', expected 'and', 'or' or the end"},
      {"a = 1, 2", "at 6: found ',', expected 'and', 'or' or the end"},
      {"name wing", "at 6: found 'wing', expected an operator, 'and', 'or' or the end"},
      {"name not like", "at 10: found 'like', expected 'in'"},
      {"1 = 1", "at 3: found '=', expected ',', 'and', 'or' or the end"},
      {"(a = 1", "at 7: found the end, expected 'and', 'or' or ')'"},
      {"(a b", "at 4: found 'b', expected an operator, 'and', 'or' or ')'"},
      {"a = 1)", "at 6: found ')', expected 'and', 'or' or the end"},
      {"()", "at 2: found ')', expected a condition"},
      {"a in", "at 5: found the end, expected a value"},
      {"a in (1, 2", "at 11: found the end, expected ',' or ')'"},
      {"a in 1,", "at 8: found the end, expected a value"},
      {"a in x:2", "at 6: found 'x', expected a number"},
      {"a in '1':2", "at 6: found '1', expected a number"},
      {"a in 1:x", "at 8: found 'x', expected a number"},
      {"a in 1:9:0", "at 10: found '0', expected a step that leads from 1 to 9"},
      {"a in 1:9:-2", "at 10: found '-2', expected a step that leads from 1 to 9"},
      {"a in 9:1:2", "at 10: found '2', expected a step that leads from 9 to 1"},
      {"a in 1:9.5:2", "at 8: found '9.5', expected an integer of 64 bits"},
      {"a in 1:9:9223372036854775808", "at 10: found '9223372036854775808', expected an integer of 64 bits"},
      {"a = 'x", "at 5: found 'x, expected a closing quote"},
      {"\xC3\xA9 = \x01", "at 5: found '\\x01', expected a value"},
      {"a ! b", "at 3: found '!', expected an operator, 'and', 'or' or the end"},
      {"a = " + tooLong + "*",
       "at 5: found 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...', expected a pattern of at most 1000 bytes"},
      {"a ~ " + tooLong,
       "at 5: found 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...', expected a pattern of at most 1000 bytes"},
#if QZ_WITH_RE2
      {"a ~ '(b'", "at 5: found '(b', expected a regular expression: missing ): (b"},
      {"a ~ '(x{1000}){1000}'",
       "at 5: found '(x{1000}){1000}', expected a regular expression: invalid repetition size: {1000}"},
#else
      {"a ~ b", "at 5: found 'b', expected a regular expression: this library was built without regular "
                "expressions"},
#endif
    };
    Data data;
    Filter filter(&data);
    for (Row const& row : rows) {
        EXPECT_EQ(Parse(filter, row.text), nullptr) << row.text;
        EXPECT_EQ(filter.GetError().message, row.message) << row.text;
    }
    ASSERT_NE(Parse(filter, "a = 1"), nullptr);
    EXPECT_EQ(filter.GetError().position, 0u) << "the last mistake is forgotten";
    EXPECT_EQ(filter.GetError().message, "");
}

TEST(QueryError, OffsetsCountBytesAndPositionsCharacters) {
    Data data;
    Filter filter(&data);
    EXPECT_EQ(Parse(filter, "\xC3\xA9\xC3\xA9 = )"), nullptr);
    EXPECT_EQ(filter.GetError().offset, 7u);
    EXPECT_EQ(filter.GetError().position, 6u);
    EXPECT_EQ(filter.GetError().found, "')'");
    EXPECT_EQ(filter.GetError().expected, "a value");
    EXPECT_EQ(Parse(filter, "a " + qzString(1000, '\xB2')), nullptr);
    EXPECT_LT(filter.GetError().found.size(), 50u) << "bytes that are no UTF-8 are characters too";
}

qzString Repeat(qzString const& text, std::size_t count) {
    qzString repeated;
    for (std::size_t k = 0; k < count; ++k)
        repeated += text;
    return repeated;
}

TEST(QueryError, NestingEndsAt200LevelsTextsAt16MegabytesAndChainsNever) {
    Data data;
    Filter filter(&data);
    for (qzString const& level : {qzString("("), qzString("not ")}) {
        qzString const end = level == "(" ? ")" : "";
        EXPECT_NE(Parse(filter, Repeat(level, 200) + "a = 1" + Repeat(end, 200)), nullptr) << level;
        EXPECT_EQ(Parse(filter, Repeat(level, 201) + "a = 1" + Repeat(end, 201)), nullptr) << level;
        EXPECT_EQ(filter.GetError().expected, "at most 200 levels of brackets and 'not'");
        EXPECT_EQ(filter.GetError().offset, 200 * level.size());
        EXPECT_EQ(Parse(filter, Repeat(level, 1'000'000)), nullptr) << level;
    }
    Object object{{"a", Integer(1)}};
    EXPECT_EQ(Parse(filter, "a = " + qzString(16'000'000, '1')), nullptr);
    EXPECT_EQ(filter.GetError().message,
              "at 16000001: found '1111', expected the end: texts have at most 16 MB");
    auto const chain = Parse(filter, "a = 2" + Repeat(" or (a = 3)", 20'000) + " or not a = 5");
    ASSERT_NE(chain, nullptr);
    EXPECT_TRUE(chain->Matches(&object));
}

} // namespace
} // namespace ui::selexpr::test
