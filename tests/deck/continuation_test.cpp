#include "deck/DeckFolder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {

/// A line of small fields with a mark in column 73.
std::string Marked(std::string line, std::string const& mark) {
    line.resize(72, ' ');
    return line + mark + "\n";
}

struct Chain {
    char const* name;
    std::string deck;
    char const* cards;
    char const* reports = "";
};

std::vector<Chain> const s_chains = {
    {"ABlankMarkContinuesTheCardBefore", "PBAR    1\n        2\n+       3\n",
     "PBAR 1 _ _ _ _ _ _ _ 2 _ _ _ _ _ _ _ 3\n"},
    {"CommentsAndBlankLinesMayStandBetween", "PBAR    1\n$ no\n\n   $ no\n+       2\n",
     "PBAR 1 _ _ _ _ _ _ _ 2\n"},
    {"LargeLinesHoldFourFields", "GRID*   1\n*       5\n*       9\n", "GRID 1 _ _ _ 5 _ _ _ 9\n"},
    {"LargeAndSmallLinesMayMix", "GRID*   1\n+       9\n*       17\n*       21\n        25\n",
     "GRID 1 _ _ _ _ _ _ _ 9 _ _ _ _ _ _ _ 17 _ _ _ 21 _ _ _ 25\n"},
    {"FreeLinesContinueFixedOnes", "PBAR    1\n+,9\n,17\n", "PBAR 1 _ _ _ _ _ _ _ 9 _ _ _ _ _ _ _ 17\n"},
    {"TrailingBlanksAreDropped", "PBAR    1               3\n+\n+\n", "PBAR 1 _ 3\n"},
    {"MarksAreComparedWithoutTheirFirstCharacter",
     Marked("PBAR    1", "QED1") + Marked("+ED1    9", "+A    2B") + "*A    2B17\n",
     "PBAR 1 _ _ _ _ _ _ _ 9 _ _ _ _ _ _ _ 17\n"},
    {"MarksAreTrimmedAndOfAnyCase", Marked("PBAR    1", "  +c1") + "  +C1   9\n", "PBAR 1 _ _ _ _ _ _ _ 9\n"},
    {"AnUnnamedChildNeedsNoNameOfItsParent", Marked("PBAR    1", "+A") + "+       9\n",
     "PBAR 1 _ _ _ _ _ _ _ 9\n"},
    {"TheLineBeforeWinsWhenNamesRepeat",
     Marked("FORCE   1", "*0") + "*0      5\n" + Marked("FORCE   2", "*0") + "*0      9\n",
     "FORCE 1 _ _ _ _ _ _ _ 5\nFORCE 2 _ _ _ _ _ _ _ 9\n"},
    {"TwoPossibleParentsAreNone", "+A      9\n" + Marked("PBAR    1", "+A") + Marked("PBAR    2", "+A"),
     "PBAR 1\nPBAR 2\n", "1: no card or more than one is continued by this line: '+A'\n"},
    {"OfTwoChildrenTheFirstIsTaken", "+A      9\n+A      10\n" + Marked("PBAR    1", "+A"),
     "PBAR 1 _ _ _ _ _ _ _ 9\n", "2: no card or more than one is continued by this line: '+A'\n"},
    {"ANamedLineBehindADistantOneIsNotInDoubt",
     Marked("PBAR    1", "+A") + Marked("MAT1    2", "+B") + "+A      9\n+B      10\n",
     "PBAR 1 _ _ _ _ _ _ _ 9\nMAT1 2 _ _ _ _ _ _ _ 10\n"},
    {"NothingCanBeContinuedBeforeTheFirstCard", "        9\n+       9\nPBAR    1\n", "PBAR 1\n",
     "1: a continuation line before the first card\n2: a continuation line before the first card: '+'\n"},
};

class Continuation : public testing::TestWithParam<Chain> {};

TEST_P(Continuation, LinesBecomeCards) {
    DeckFolder const folder;
    auto const model = folder.Read(GetParam().deck);
    EXPECT_EQ(TextOf(model), GetParam().cards);
    EXPECT_EQ(ReportsOf(model), GetParam().reports);
}

INSTANTIATE_TEST_SUITE_P(Rules, Continuation, testing::ValuesIn(s_chains),
                         [](auto const& test) { return std::string(test.param.name); });

/// A random line: a card when `begins` is empty, else a continuation.
struct RandomLine {
    std::string begins;
    std::string ends;
    int number;
};

struct ExpectedDeck {
    std::string cards;
    std::size_t orphans;
};

/// The rules in their plainest form, with all the searching that they describe.
ExpectedDeck AssemblePlainly(std::vector<RandomLine> const& lines) {
    struct PlainCard {
        std::vector<int> numbers;
        std::string ends;
    };
    std::vector<PlainCard> cards;
    std::vector<RandomLine> distant;
    for (RandomLine const& line : lines) {
        if (line.begins.empty()) {
            cards.push_back({{line.number}, line.ends});
        } else if (!cards.empty() && cards.back().ends == line.begins) {
            cards.back().numbers.push_back(line.number);
            cards.back().ends = line.ends;
        } else {
            distant.push_back(line);
        }
    }
    for (std::size_t i = 0; i < distant.size();) {
        auto const isParent = [&](PlainCard const& card) { return card.ends == distant[i].begins; };
        if (std::count_if(cards.begin(), cards.end(), isParent) != 1) {
            ++i;
            continue;
        }
        PlainCard& parent = *std::find_if(cards.begin(), cards.end(), isParent);
        parent.numbers.push_back(distant[i].number);
        parent.ends = distant[i].ends;
        distant.erase(distant.begin() + static_cast<std::ptrdiff_t>(i));
        i = 0;
    }
    ExpectedDeck expected{"", distant.size()};
    for (PlainCard const& card : cards) {
        expected.cards += "C";
        for (std::size_t i = 0; i < card.numbers.size(); ++i)
            expected.cards += (i == 0 ? " " : " _ _ _ _ _ _ _ ") + std::to_string(card.numbers[i]);
        expected.cards += "\n";
    }
    return expected;
}

TEST(Continuations, RandomlyPlacedLinesFindTheSameParentsAsByPlainSearch) {
    DeckFolder const folder;
    std::mt19937 random(7);
    std::size_t distantDecks = 0;
    for (int round = 0; round < 400; ++round) {
        auto const mark = [&, names = 1 + random() % 12] { return "+" + std::to_string(random() % names); };
        std::vector<RandomLine> lines;
        std::string deck;
        for (int i = 0; i < 20; ++i) {
            bool const isCard = random() % 5 < 2;
            lines.push_back({isCard ? "" : mark(), random() % 3 > 0 ? mark() : "", i});
            deck += (isCard ? "C" : lines.back().begins) + "," + std::to_string(i) + ",,,,,,,," +
                    lines.back().ends + "\n";
        }
        auto const model = folder.Read(deck);
        ExpectedDeck const expected = AssemblePlainly(lines);
        ASSERT_EQ(TextOf(model), expected.cards) << deck;
        ASSERT_EQ(model.Orphans().size(), expected.orphans) << deck;
        distantDecks += expected.orphans < 12 ? 1U : 0U;
    }
    EXPECT_GT(distantDecks, 100U);
}

// Searching for each line's parent among all cards would not end in the time that anyone waits for a test.
TEST(Continuations, AHundredThousandLinesInAnyOrderFindTheirCards) {
    constexpr int count = 50000;
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i) {
        std::string const mark = "+" + std::to_string(i);
        lines.push_back("C," + std::to_string(i) + ",,,,,,,," + mark + "\n");
        lines.push_back(mark + "," + std::to_string(i) + "\n");
    }
    std::shuffle(lines.begin(), lines.end(), std::mt19937(3));
    std::string deck;
    for (std::string const& line : lines)
        deck += line;
    DeckFolder const folder;
    auto const model = folder.Read(deck);
    ASSERT_EQ(model.Cards().size(), std::size_t{count});
    EXPECT_TRUE(model.Orphans().empty());
    for (auto const& card : model.Cards()) {
        ASSERT_EQ(card.Values().size(), 9U);
        ASSERT_EQ(card.Values()[0], card.Values()[8]);
    }
}

TEST(Continuations, AHundredThousandOrphansAreEachReportedAndKept) {
    constexpr std::size_t count = 100000;
    std::string deck = "GRID,1\n";
    for (std::size_t i = 0; i < count; ++i)
        deck += "+" + std::to_string(i % 70000) + ",1.0\n";
    DeckFolder const folder;
    auto const model = folder.Read(deck);
    EXPECT_EQ(model.Orphans().size(), count);
    ASSERT_EQ(model.GetReports().size(), count);
    EXPECT_EQ(model.GetReports().back().line, count + 1);
    EXPECT_EQ(model.GetSource().Lines()[model.Orphans().back()].text, "+29999,1.0");
}

} // namespace
