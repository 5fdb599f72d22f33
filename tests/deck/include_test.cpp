#include "deck/DeckFolder.h"
#include "reader/SourceReader.h"

#include <gtest/gtest.h>

namespace {

TEST(Includes, FilesAreReadInPlace) {
    DeckFolder const folder;
    folder.Write("parts/points.bdf", "GRID,2\ninclude   '..//parts/./more.bdf' and so on\nGRID,4\nENDDATA\n");
    folder.Write("parts/more.bdf", "GRID,3");
    auto const model =
        folder.Read("BEGIN BULK\nGRID,1\n  Include 'parts/points.bdf'\nGRID,5\nENDDATA\nGRID,6\n");
    EXPECT_EQ(TextOf(model), "GRID 1\nGRID 2\nGRID 3\nGRID 4\nENDDATA\nGRID 5\n");
    EXPECT_EQ(ReportsOf(model), "");
    ASSERT_EQ(model.GetSource().Files().size(), 3U);
    auto const lineOf = [&](std::size_t card) { return *model.LinesOf(model.Cards()[card]).front(); };
    EXPECT_EQ(lineOf(2).file, 2U);
    EXPECT_EQ(lineOf(2).number, 1U);
    EXPECT_EQ(lineOf(3).number, 3U);
}

TEST(Includes, ACardMayGoOnInAnotherFile) {
    DeckFolder const folder;
    folder.Write("tail.bdf", "+,9\n+A,17\n");
    EXPECT_EQ(TextOf(folder.Read("PBAR,1,,,,,,,,+A\nINCLUDE 'tail.bdf'\n")), "PBAR 1 _ _ _ _ _ _ _ 9\n");
    EXPECT_EQ(TextOf(folder.Read("INCLUDE 'tail.bdf'\nPBAR,1,,,,,,,,+A\n")), "PBAR 1 _ _ _ _ _ _ _ 17\n");
}

TEST(Includes, AFileMayBeIncludedTwiceButNotByItself) {
    DeckFolder const folder;
    folder.Write("a.bdf", "GRID,2\nINCLUDE 'b.bdf'\n");
    folder.Write("b.bdf", "GRID,3\nINCLUDE './x/../a.bdf'\nINCLUDE 'deck.bdf'\nINCLUDE 'b.bdf'\n");
    auto const model = folder.Read("INCLUDE 'a.bdf'\nINCLUDE 'a.bdf'\nGRID,1\n");
    EXPECT_EQ(TextOf(model), "GRID 2\nGRID 3\nGRID 2\nGRID 3\nGRID 1\n");
    std::string const cycle = ": the file includes itself, directly or through others: ";
    std::string const once =
        "2" + cycle + "'./x/../a.bdf'\n3" + cycle + "'deck.bdf'\n4" + cycle + "'b.bdf'\n";
    EXPECT_EQ(ReportsOf(model), once + once);
}

TEST(Includes, WhatCannotBeFollowedIsReported) {
    DeckFolder const folder;
    struct Case {
        char const* statement;
        char const* reports;
    };
    for (auto const& [statement, reports] : {
             Case{"INCLUDE 'none.bdf'", "2: the included file cannot be read: 'none.bdf'\n"},
             {"INCLUDE '.'", "2: the included file cannot be read: '.'\n"},
             {"INCLUDE 'none.bdf' $ 'deck.bdf'", "2: the included file cannot be read: 'none.bdf'\n"},
             {"INCLUDE", "2: INCLUDE without a path in single quotes is not followed: 'INCLUDE'\n"},
             {"INCLUDE none.bdf",
              "2: INCLUDE without a path in single quotes is not followed: 'INCLUDE none.bdf'\n"},
             {"INCLUDE'none'", "2: INCLUDE without a path in single quotes is not followed: 'INCLUDE'none''\n"
                               "2: not the name of a card: 'INCLUDE''\n"
                               "2: neither a number nor a text: 'none''\n"},
             {"INCLUDE 'none", "2: INCLUDE without a path in single quotes is not followed: 'INCLUDE 'none'\n"
                               "2: neither a number nor a text: ''none'\n"},
             {"INCLUDED 'none'", "2: neither a number nor a text: ''none''\n"},
         }) {
        auto const model = folder.Read("GRID,1\n" + std::string(statement) + "\nGRID,2\n");
        EXPECT_EQ(ReportsOf(model), reports) << statement;
        EXPECT_EQ(TextOf(model.Cards().front()), "GRID 1");
        EXPECT_EQ(TextOf(model.Cards().back()), "GRID 2");
    }
}

TEST(Includes, DepthEnds) {
    DeckFolder const folder;
    std::size_t const depth = qzDeck::s_maximalIncludeDepth;
    for (std::size_t i = 0; i <= depth; ++i)
        folder.Write("level" + std::to_string(i), "GRID,1\nINCLUDE 'level" + std::to_string(i + 1) + "'\n");
    auto const model = folder.Read("INCLUDE 'level1'\n");
    EXPECT_EQ(model.Cards().size(), depth);
    EXPECT_EQ(ReportsOf(model), "2: files are included too deep: 'level" + std::to_string(depth + 1) + "'\n");
}

// Ten files that each include the next one ten times would be ten thousand million readings.
TEST(Includes, NumberEnds) {
    DeckFolder const folder;
    for (int i = 1; i <= 10; ++i) {
        std::string text;
        for (int k = 0; k < 10; ++k)
            text += "INCLUDE 'f" + std::to_string(i + 1) + "'\n";
        folder.Write("f" + std::to_string(i), text);
    }
    folder.Write("f11", "");
    auto const model = folder.Read("INCLUDE 'f1'\nGRID,1\n");
    EXPECT_EQ(TextOf(model), "GRID 1\n");
    EXPECT_EQ(model.GetSource().Files().size(), qzDeck::s_maximalIncludeCount + 1);
    ASSERT_FALSE(model.GetReports().empty());
    EXPECT_EQ(model.GetReports().front().problem, qzDeck::Problem::TooManyIncludes);
}

} // namespace
