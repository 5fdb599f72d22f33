#include "deck/DeckFolder.h"

#include <gtest/gtest.h>

namespace {

using qzDeck::Line;
using qzDeck::LineFormat;
using qzDeck::Source;

/// All fields of a line: `GRID|1||...|mark`.
std::string Fields(Source const& source, Line const& line) {
    std::string text(source.FirstField(line));
    auto const data = source.Data(line);
    for (std::size_t i = 0; i < data.count; ++i)
        text.append("|").append(data.texts[i]);
    return text.append("|").append(source.TenthField(line));
}

struct Cut {
    char const* name;
    std::string line;
    LineFormat format;
    std::string fields;
};

std::vector<Cut> const s_cuts = {
    {"SmallFieldsAreEightColumns",
     "GRID    1       2       3.      4.      5.      6       7       8       +A", LineFormat::Small,
     "GRID|1|2|3.|4.|5.|6|7|8|+A"},
    {"AValueMayStandAnywhereInItsField", "GRID       1         2      3.", LineFormat::Small,
     "GRID|1|2|3.||||||"},
    {"NeighboursMayTouch", "CTETRA  700000017000000270000003", LineFormat::Small,
     "CTETRA|70000001|70000002|70000003||||||"},
    {"NeighboursMayTouchInReals", "MAT1    2.100+118100000.43.90000-22.99006.350000", LineFormat::Small,
     "MAT1|2.100+11|8100000.|43.90000|-22.9900|6.350000||||"},
    {"ColumnsPast80AreIgnored", "DEBUG   192     2" + std::string(55, ' ') + "+ABCDEFGHIJ summary",
     LineFormat::Small, "DEBUG|192|2|||||||+ABCDEFG"},
    {"AStarMakesLargeFields", "GRID*                  1                 0.6666666666667 1.0000000000000*A",
     LineFormat::Large, "GRID*|1||0.6666666666667|1.0000000000000|*A"},
    {"TheStarMayStandApart", "GRID   *               1", LineFormat::Large, "GRID   *|1||||"},
    {"LargeContinuationsHaveNamesWithBlanks", "*AB 12  0.0", LineFormat::Large, "*AB 12|0.0||||"},
    {"AStarBehindColumn8IsNoMark", "PARAM   A*", LineFormat::Small, "PARAM|A*||||||||"},
    {"CommasMakeAFreeLine", "GRID,1,, 0.5 ,-1.", LineFormat::Free, "GRID|1||0.5|-1.|||||"},
    {"FreeFieldTenIsTheMark", "GRID,1,2,3,4,5,6,7,8,+A", LineFormat::Free, "GRID|1|2|3|4|5|6|7|8|+A"},
    {"FreeLinesMayHaveLargeFields", "GRID*,1,2,3,4,5", LineFormat::Free, "GRID*|1|2|3|4|"},
    {"AFreeLineMayHaveBlanksBeforeItsFirstComma", "GRID    ,1,2", LineFormat::Free, "GRID|1|2|||||||"},
    {"ACommaBehindColumn10IsNoSeparator", "PARAM   AB,CD", LineFormat::Small, "PARAM|AB,CD||||||||"},
    {"TabsStandForColumns", "GRID\t1\t\t2.\t3.", LineFormat::Small, "GRID|1||2.|3.|||||"},
    {"TabsCountFromWhereTheyStand", "GRID*\t 12345\t   6\t7", LineFormat::Large, "GRID*|12345     6|7|||"},
    {"ADollarEndsTheLine", "GRID    1               0.$     comment", LineFormat::Small, "GRID|1||0.||||||"},
    {"ADollarEndsFreeLinesToo", "GRID,1$,2,3", LineFormat::Free, "GRID|1||||||||"},
    {"OtherBytesAreOneColumnEach", "PARAM   \xC3\xA9\xFF\x80   1", LineFormat::Small,
     "PARAM|\xC3\xA9\xFF\x80   1||||||||"},
    {"ALoneNameIsACard", "ENDT", LineFormat::Small, "ENDT|||||||||"},
};

class LineCut : public testing::TestWithParam<Cut> {};

TEST_P(LineCut, FieldsComeOutAsWritten) {
    DeckFolder const folder;
    for (char const* end : {"", "\n", "\r\n", "\r\r\n"}) {
        auto const model = folder.Read(GetParam().line + end);
        Source const& source = model.GetSource();
        ASSERT_EQ(source.Lines().size(), 1U);
        EXPECT_EQ(source.Lines()[0].format, GetParam().format);
        EXPECT_EQ(Fields(source, source.Lines()[0]), GetParam().fields);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, LineCut, testing::ValuesIn(s_cuts),
                         [](auto const& test) { return std::string(test.param.name); });

TEST(Lines, KeepEveryLineOfTheBulkSectionInOrder) {
    DeckFolder const folder;
    auto const model =
        folder.Read("SOL 101\nBEGIN BULK\n$ one\n\nGRID,1\n  \t\n$two\n+,2\nENDDATA\nGRID,2\n");
    std::vector<LineFormat> formats;
    for (Line const& line : model.GetSource().Lines())
        formats.push_back(line.format);
    EXPECT_EQ(formats, (std::vector{LineFormat::Comment, LineFormat::Blank, LineFormat::Free,
                                    LineFormat::Blank, LineFormat::Comment, LineFormat::Free}));
    EXPECT_EQ(model.GetSource().Lines()[4].text, "$two");
    EXPECT_EQ(model.GetSource().Lines()[4].number, 7U);
    EXPECT_EQ(model.GetSource().Header(), "SOL 101\nBEGIN BULK\n");
}

TEST(Lines, OnlyTheBulkSectionIsRead) {
    DeckFolder const folder;
    struct Case {
        char const* text;
        char const* cards;
    };
    for (auto const& [text, cards] : {
             Case{"SPC = 1\nGRID,7\nBEGIN BULK\nGRID,1\nENDDATA\nGRID,2\n", "GRID 1\n"},
             {"GRID,7\n   begin\nGRID,1\nenddata\nGRID,2", "GRID 1\n"},
             {"GRID,7\n\tBegin bulk\nGRID,1\n EndData junk\nGRID,2", "GRID 1\n"},
             {"GRID,7\nBEGIN=BULK\nGRID,1\n  ENDDATA\nGRID,2", "GRID 1\nENDDAT 'A'\nGRID 2\n"},
             {"GRID,7\nBEGINNING\nGRID,1\nENDDATA2\nGRID,2",
              "GRID 7\nBEGINNIN 'G'\nGRID 1\nENDDATA2\nGRID 2\n"},
             {"GRID,1\n", "GRID 1\n"},
             {"BEGIN BULK\nGRID,1\nBEGIN BULK\nGRID,2", "GRID 1\nBEGIN BU 'LK'\nGRID 2\n"},
             {"$BEGIN BULK\nGRID,1", "GRID 1\n"},
             {"BEGIN BULK", ""},
             {"", ""},
             {"\n\n", ""},
         }) {
        EXPECT_EQ(TextOf(folder.Read(text)), cards) << text;
    }
}

TEST(Lines, ADeckThatCannotBeReadGivesNoModel) {
    DeckFolder const folder;
    EXPECT_FALSE(qzDeck::Model::Read((folder.Path() / "none.bdf").string()));
    EXPECT_FALSE(qzDeck::Model::Read(folder.Path().string()));
    EXPECT_FALSE(qzDeck::Model::Read(""));
}

} // namespace
