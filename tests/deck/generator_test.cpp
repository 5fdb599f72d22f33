#include "deck/DeckFolder.h"

#include <gtest/gtest.h>

namespace {

struct Generator {
    char const* name;
    char const* deck;
    char const* cards;
    char const* reports = "";
};

Generator const s_generators[] = {
    {"AnEqualsSignRepeatsTheFieldAbove", "GRID,1,,0.0,1.0\n=,2,=,=,2.0\n",
     "GRID 1 _ 0.0 1.0\nGRID 2 _ 0.0 2.0\n"},
    {"OnlyWhatIsMarkedIsRepeated", "CBAR,1,7,1,2,0.0,1.0,0.0,1\n=,2,=,2,3\n",
     "CBAR 1 7 1 2 0.0 1.0 0.0 1\nCBAR 2 7 2 3\n"},
    {"TwoEqualsSignsRepeatTheRest", "CBAR,1,7,1,2,0.0,1.0,0.0\n=,2,=,2,3,==\n",
     "CBAR 1 7 1 2 0.0 1.0 0.0\nCBAR 2 7 2 3 0.0 1.0 0.0\n"},
    {"RepeatsMayBeRepeated", "GRID,1,,5.0\n=,2,==\n=,3,==\n", "GRID 1 _ 5.0\nGRID 2 _ 5.0\nGRID 3 _ 5.0\n"},
    {"ANumberedTokenGoesToItsField", "GRDSET,8)345\n", "GRDSET _ _ _ _ _ _ 345\n"},
    {"TokensGoOnBehindANumberedOne", "GRID,4)1.5,2.5\n", "GRID _ _ 1.5 2.5\n"},
    {"ANumberedTokenSurvivesAsTheFieldAbove", "GRDSET,8)345\n=,3)7,8)=\n",
     "GRDSET _ _ _ _ _ _ 345\nGRDSET _ 7 _ _ _ _ bad'='\n", "2: neither a number nor a text: '='\n"},
    {"FixedLinesBetweenAreNotRepeated", "GRID,1,,1.0\nGRID    2               2.0\n=,3,==\n",
     "GRID 1 _ 1.0\nGRID 2 _ 2.0\nGRID 3 _ 1.0\n"},
    {"TheContinuationMarkIsNotRepeated", "GRID,1,2,3,4,5,6,7,8,+A\n=,9,==\n+A,1\n",
     "GRID 1 2 3 4 5 6 7 8 1\nGRID 9 2 3 4 5 6 7 8\n"},
    {"ARepeatedNameMayBeAContinuation", "GRID,1\n+,2\n=,3\n", "GRID 1 _ _ _ _ _ _ _ 2 _ _ _ _ _ _ _ 3\n"},
    {"ALineOfRepeatsAloneIsNoCard", "==\n", "",
     "1: there is no free line before this one to repeat: '=='\n1: a continuation line before the first "
     "card\n"},
    {"AFieldThatIsPassedIsReported", "GRID,1,2,3)7,0)8\n", "GRID 1 2 7 8\n",
     "1: the field is already passed; the value goes to the next one: '3)7'\n"
     "1: the field is already passed; the value goes to the next one: '0)8'\n"},
    {"AFieldFarOutIsSurplus", "GRID,1,99999999999999999999)7\n", "GRID 1\n",
     "1: a free line has more than ten fields; it is cut before: '7'\n"},
};

class FreeLine : public testing::TestWithParam<Generator> {};

TEST_P(FreeLine, GeneratorsAreExpandedOrRefused) {
    DeckFolder const folder;
    auto const model = folder.Read(GetParam().deck);
    EXPECT_EQ(TextOf(model), GetParam().cards);
    EXPECT_EQ(ReportsOf(model), GetParam().reports);
}

INSTANTIATE_TEST_SUITE_P(Generators, FreeLine, testing::ValuesIn(s_generators),
                         [](auto const& test) { return std::string(test.param.name); });

} // namespace
