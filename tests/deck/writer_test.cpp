#include "deck/DeckFolder.h"
#include "facts/DeckFacts.h"
#include "facts/facts_json.h"
#include "writer/DeckWriter.h"

#include <gtest/gtest.h>
#include <random>

namespace {

namespace fs = std::filesystem;
using namespace qzDeck;
using qzDescriptor::Identifier;
using qzDescriptor::Value;

std::string Written(DeckFolder const& folder, Model const& model) {
    return WriteDeck(model, folder.Path() / "out.bdf");
}

struct Rewriting {
    char const* name;
    std::string deck;
    std::string written;
};

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

std::vector<Rewriting> const s_rewritings = {
    {"SmallLinesWhereTextsAreShort", "GRID*,1,,0.5\nX,1,,THRU\n",
     "GRID    1               0.5\nX       1               THRU\n"},
    {"LargeLinesWhereOneIsLonger", "PBAR,1,,123456.789\n+,2\n",
     "PBAR*   1" + Blanks(31) + "123456.789\n*\n*       2\n"},
    {"FreeLinesWhereOneIsLongerStill", "X,1,12345678.12345678\n+,,2\n", "X,1,12345678.12345678\n+,,2\n"},
    {"FreeLinesWhereTheNameIsTooLong", "MATERIAL,1,123456.789\n", "MATERIAL,1,123456.789\n"},
    {"RowsOfBlanksAreKept", "X,1\n+\n+,,2\n", "X       1\n+\n+               2\n"},
    {"ContinuationsComeHome", "+B,3\n+A,2,,,,,,,,+B\nX,1,,,,,,,,+A\n", "X       1\n+       2\n+       3\n"},
    {"GeneratorsAreExpanded", "GRID,1,,0.5\n=,2,==\n",
     "GRID    1               0.5\nGRID    2               0.5\n"},
    {"AFieldThatLooksLikeAGeneratorStaysWhatItIs", "X,3)=,12345678.12345678,6)7)A\n",
     "X,,3)=,12345678.12345678,,6)7)A\n"},
    {"CommentsStayWithTheirLines", "$\ta\nX,1 $ b\n$ c\n+,2$d\n\n  $ e\n",
     "$\ta\nX       1 $ b\n+       2 $d\n$ c\n\n  $ e\n"},
    {"CommentsOfVanishedLinesMoveUp", "GRID*   1 $ a\n*       1. $ b\n",
     "GRID    1" + Blanks(31) + "1. $ a $ b\n"},
    {"WhatStandsBehindTheFieldsIsAComment",
     "X       1" + Blanks(63) + "label   more\nX,1,2,3,4,5,6,7,8,9,10\n",
     "X       1 $ label   more\nX       1       2       3       4       5       6       7       8 $ 9,10\n"},
    {"HeaderAndEndStayAsTheyAre", "SOL 1\n BEGIN BULK $\nX,1\nENDDATA $\nrest",
     "SOL 1\n BEGIN BULK $\nX       1\nENDDATA $\nrest"},
    {"LinesEndAsInTheMainFile", "$\r\nX,1\r\n", "$\r\nX       1\r\n"},
    {"OrphansStayAsTheyAre", "  \t1     2 $ a\nX,1\n+A,3,4)5\n", "        1     2 $ a\nX       1\n+A,3,,5\n"},
    {"WhatIsNoNameStaysAsItIs", "GRID   4  1 $ a\n=(3)\n'A',1\n=,=,2\n",
     "GRID   4  1 $ a\n=(3)\n'A',1\n'A',1,2\n"},
    {"CommasDoNotMakeALineFree", "X         ,A\nX*        ,A\n*\n+,12345678.12345678\n",
     "X             ,A\nX             ,A\n+,12345678.12345678\n"},
    {"NineDigitsHaveRoom", "X,1\n+,123456789\n", "X*      1\n*\n*       123456789\n"},
};

class Rewritten : public testing::TestWithParam<Rewriting> {};

TEST_P(Rewritten, DecksKeepWhatTheyHold) {
    DeckFolder const folder;
    EXPECT_EQ(Written(folder, folder.Read(GetParam().deck)), GetParam().written);
    EXPECT_EQ(Written(folder, folder.Read(GetParam().written)), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(Decks, Rewritten, testing::ValuesIn(s_rewritings),
                         [](auto const& test) { return std::string(test.param.name); });

TEST(Writer, GivesChangedValuesTheBestTextOfTheirFields) {
    struct Case {
        std::string deck;
        Identifier field;
        Value value;
        std::string written;
    };
    DeckFolder const folder;
    Value const third(1.0 / 3.0);
    Value const million(1.0e6);
    for (auto const& [deck, field, value, written] :
         {Case{"GRID    1               0.50    1.E6\n", Identifier("X1"), third,
               "GRID    1               .33333331.E6\n"},
          {"GRID    1               0.50    1.E6\n", Identifier("X2"), million,
           "GRID    1               0.50    1.E6\n"},
          {"GRID*   1\n", Identifier("X1"), third, "GRID*   1" + Blanks(31) + ".333333333333333\n"},
          {"GRID,1\n", Identifier("X1"), third, "GRID,1,,0.3333333333333333\n"},
          {"GRID,1\n", Identifier("X1"), million, "GRID    1               1000000.\n"},
          {"GRID,1,,2.5\n", Identifier("X1"), Value(), "GRID    1\n"},
          {"GRID,1,1..\n", Identifier("CP"), Value(3), "GRID    1       3\n"},
          {"PARAM,N,1e5\n", Identifier("V1"), Value(1e5), "PARAM   N       1e5\n"},
          {"PARAM,N,1e5\n", Identifier("V1"), Value(qzString("NO")), "PARAM   N       NO\n"}}) {
        Model model = folder.Read(deck);
        ASSERT_TRUE(model.Cards()[0].Set(field, value)) << deck;
        EXPECT_EQ(Written(folder, model), written);
    }
}

TEST(Writer, WritesNewCardsWhereTheyStandAndNotRemovedOnes) {
    DeckFolder const folder;
    Model model = folder.Read("X,1\n$ a\nY,2\n+,3\n$ b\nX,4\n");
    Card const added(model.Kinds()[0], Card::s_noLine, {Value(7)});
    model.Cards().erase(model.Cards().begin() + 1);
    model.Cards().insert(model.Cards().begin() + 1, added);
    model.Cards().insert(model.Cards().begin(), added);
    EXPECT_EQ(Written(folder, model), "X       7\nX       1\nX       7\n$ a\n$ b\nX       4\n");
}

TEST(Writer, PutsIncludedFilesInTheirPlace) {
    DeckFolder const folder;
    folder.Write("parts/a.bdf", "X,2\nENDDATA\nBEGIN BULK\nINCLUDE 'none.bdf' $ c\nINCLUDE '../deck.bdf'\n");
    std::string const included = "$ INCLUDE 'parts/a.bdf'\nX       2\n$ ENDDATA\nBEGIN BULK\n"
                                 "INCLUDE 'parts/none.bdf' $ c\n$ INCLUDE '../deck.bdf'\n";
    EXPECT_EQ(Written(folder, folder.Read("BEGIN\nX,1\nINCLUDE 'parts/a.bdf'\nX,3")),
              "BEGIN\nX       1\n" + included + "X       3\n");
    std::string const withoutHeader = Written(folder, folder.Read("X,1\nINCLUDE 'parts/a.bdf'\n"));
    EXPECT_NE(withoutHeader.find("\n$ BEGIN BULK\n"), std::string::npos) << withoutHeader;
}

/// What a deck is but for the place of its lines.
std::string Contents(Model const& model) {
    std::string text = TextOf(model) + std::to_string(model.Orphans().size()) + " orphans\n";
    for (Line const& line : model.GetSource().Lines())
        text += line.format == LineFormat::Comment ? std::string(line.text) + "\n" : "";
    return text;
}

struct RandomDeck {
    std::mt19937 random;

    template <std::size_t N>
    std::string OneOf(char const* const (&texts)[N]) {
        return texts[random() % N];
    }

    std::string Fixed(std::string line, std::size_t width, char const* const (&texts)[12],
                      std::string const& mark) {
        line.resize(8, ' ');
        for (std::size_t i = 0; i < 64 / width; ++i) {
            std::string text = random() % 3 == 0 ? OneOf(texts).substr(0, width) : "";
            text.insert(0, random() % (width + 1 - text.size()), ' ');
            text.resize(width, ' ');
            line += text;
        }
        return line + mark;
    }

    std::string Line() {
        static constexpr char const* s_names[] = {"GRID", "X", "LONGNAME", "a.b", "9X", "A B", "INCLUDE",
                                                  "",     "+", "+A",       "+B",  "*",  "*A",  "+C2"};
        static constexpr char const* s_texts[12] = {"1",   "-2.5", "THRU", "1.5-3", "=(3)",       "4)X",
                                                    "1,5", ",A",   "a b",  "=",     "123456.789", "'x'"};
        static constexpr char const* s_tokens[] = {
            "1", "-2.5", "", "=", "==", "5)=", "A)", "a b", "'x'", "/", "3)9", "1234567890.12345678"};
        static constexpr char const* s_marks[] = {"", "", "+A", "*A", "+B", "+C2", "label"};
        std::string const name = OneOf(s_names);
        std::string const mark = OneOf(s_marks);
        switch (random() % 5) {
        case 0:
            return "$ comment " + std::to_string(random() % 100);
        case 1:
            return Fixed(name + (name.size() < 8 ? "*" : ""), 16, s_texts, mark);
        case 2: {
            std::string line = random() % 4 == 0 ? "=" : name;
            for (auto count = 1 + random() % 10; count > 0; --count)
                line += "," + OneOf(s_tokens);
            return line;
        }
        default:
            return Fixed(name, 8, s_texts, mark);
        }
    }
};

TEST(Writer, KeepsTheContentsOfRandomDecks) {
    DeckFolder const folder;
    RandomDeck deck{std::mt19937(2024)};
    std::size_t orphans = 0;
    for (int round = 0; round < 1500; ++round) {
        std::string text;
        for (auto count = 2 + deck.random() % 12; count > 0; --count)
            text += deck.Line() + "\n";
        Model const model = folder.Read(text);
        std::string const written = Written(folder, model);
        Model const again = folder.Read(written);
        ASSERT_EQ(Contents(again), Contents(model)) << text << "written as\n" << written;
        orphans += model.Orphans().size();
    }
    EXPECT_GT(orphans, 1000U);
}

std::string FactsOf(Model const& model) { return ToJson(CollectFacts(model)); }

TEST(Writer, KeepsTheFactsOfDecks) {
    DeckFolder const folder;
    std::vector<std::string> decks = SharedDecks();
    for (char const* name : {"footbridge.bdf", "sampler.bdf", "faults.bdf"})
        decks.push_back(OwnDeck(name));
    for (std::string const& deck : decks) {
        auto const model = Model::Read(deck).value();
        Model const again = folder.Read(Written(folder, model));
        EXPECT_EQ(FactsOf(again), FactsOf(model)) << deck;
        EXPECT_TRUE(TextOf(again) == TextOf(model)) << deck;
        EXPECT_TRUE(Written(folder, again) == Written(folder, model) || model.GetSource().Files().size() > 1)
            << deck;
    }
}

} // namespace
