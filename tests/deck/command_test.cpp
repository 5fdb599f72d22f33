#include "deck/DeckFolder.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <nlohmann/json.hpp>
#if __has_include(<sys/wait.h>)
#    include <sys/wait.h>
#endif

namespace {

struct Outcome {
    int status;
    std::string output;
    std::string errors;
};

std::string ReadFile(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Outcome Call(DeckFolder const& folder, std::string const& arguments) {
    auto const output = folder.Path() / "output";
    auto const errors = folder.Path() / "errors";
    std::string const command = "\"" QZ_DECK_COMMAND "\" " + arguments + " > \"" + output.string() +
                                "\" 2> \"" + errors.string() + "\"";
    int status = std::system(command.c_str());
#ifdef WEXITSTATUS
    status = WEXITSTATUS(status);
#endif
    return {status, ReadFile(output), ReadFile(errors)};
}

TEST(Command, ReportsDoNotMakeADeckUnreadable) {
    DeckFolder const folder;
    std::string const deck = folder.Write("deck.bdf", "GRID,1..\n");
    Outcome const facts = Call(folder, "facts \"" + deck + "\"");
    EXPECT_EQ(facts.status, 0);
    EXPECT_EQ(facts.errors, deck + ":1: neither a number nor a text: '1..'\n");
    EXPECT_EQ(nlohmann::json::parse(facts.output)["unparsable_fields_count"], 1);
}

TEST(Command, AWrongCallIsStatusTwo) {
    DeckFolder const folder;
    std::string const deck = folder.Write("deck.bdf", "GRID,1\n");
    for (std::string const& arguments :
         {std::string(), std::string("facts"), "facts \"" + deck + "\" more", "count \"" + deck + "\"",
          "facts --fast \"" + deck + "\"", "facts \"" + deck + ".none\"",
          "show \"" + folder.Path().string() + "\"", "write \"" + deck + "\"",
          std::string("describe NONE")}) {
        Outcome const outcome = Call(folder, arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_EQ(outcome.output, "") << arguments;
        EXPECT_NE(outcome.errors, "") << arguments;
    }
    EXPECT_EQ(Call(folder, "--help").status, 0);
}

TEST(Command, WriteReplacesAFileAsAWholeOrNotAtAll) {
    DeckFolder const folder;
    std::string const deck = folder.Write("deck.bdf", "X,1\nINCLUDE 'part.bdf'\n");
    std::string const part = folder.Write("part.bdf", "X,2\n");
    std::string const old = folder.Write("old.bdf", "old");
    auto const write = [&](std::string const& output) {
        return Call(folder, "write \"" + deck + "\" -o \"" + output + "\"").status;
    };
    EXPECT_EQ(write(old), 0);
    EXPECT_EQ(ReadFile(old), "X       1\n$ INCLUDE 'part.bdf'\nX       2\n");
    for (std::string const& output : {deck, part, (folder.Path() / "." / "part.bdf").string(),
                                      folder.Path().string(), (folder.Path() / "none" / "x").string()})
        EXPECT_EQ(write(output), 2) << output;
    EXPECT_EQ(ReadFile(part), "X,2\n");
    for (auto const& entry : std::filesystem::directory_iterator(folder.Path()))
        EXPECT_NE(entry.path().extension(), ".part") << entry;
}

TEST(Command, DescribeTellsOfOneCardOrOfAll) {
    DeckFolder const folder;
    EXPECT_EQ(Call(folder, "describe grid").output.substr(0, 17), "GRID: Grid point\n");
    std::string const all = Call(folder, "describe --markdown").output;
    for (char const* title : {"## GRID: ", "\n\n## MAT1: ", "\n\n## EIGRL: "})
        EXPECT_NE(all.find(title), std::string::npos) << title;
}

TEST(Command, TablePrintsTheListsOfACard) {
    DeckFolder const folder;
    std::string const deck = "table \"" + OwnDeck("footbridge.bdf") + "\" ";
    EXPECT_EQ(Call(folder, deck + "load 100").output, "  SI  LI\n1.35   1\n 1.5   2\n");
    EXPECT_EQ(Call(folder, deck + "SPC1 1 --csv").output, "G,THRU\n101,\n201,\n301,\n107,307\n");
    for (char const* refused : {"SPC1 2", "GRID 101", "PBARL 1", "NONE 1", "SPC1"}) {
        Outcome const outcome = Call(folder, deck + refused);
        EXPECT_EQ(outcome.status, 2) << refused;
        EXPECT_EQ(outcome.output, "") << refused;
        EXPECT_NE(outcome.errors, "") << refused;
    }
}

TEST(Command, StoreTellsOfEachTable) {
    if (!HasTableStore())
        GTEST_SKIP() << "built without SQLite";
    DeckFolder const folder;
    std::string const deck = "\"" + folder.Write("deck.bdf", "GRID,1\nGRID,2\nCROD,3,4,1,2\n") + "\"";
    std::string const file = (folder.Path() / "deck.db").string();
    std::string const told = "GRID: 2 rows, 8 columns, equal\nCROD: 1 rows, 4 columns, equal\n";
    for (int time = 0; time < 2; ++time) {
        Outcome const outcome = Call(folder, "store " + deck + " \"" + file + "\"");
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_EQ(outcome.output, told);
    }
    Outcome const refused = Call(folder, "store " + deck + " " + deck);
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.output, "");
    EXPECT_NE(refused.errors.find("cannot store in"), std::string::npos);
}

TEST(Command, CheckTellsAndCountsWhatItFinds) {
    DeckFolder const folder;
    struct Case {
        char const* text;
        int status;
        std::string output;
    };
    std::string const path = (folder.Path() / "deck.bdf").string();
    std::string const sound = ": 1 card, 0 misplaced lines, 0 violations, 0 dangling references, ";
    for (auto const& [text, status, output] :
         {Case{"GRID,1\n", 0, path + sound + "0 duplicate ids, 0 warnings\n"},
          {"GRID,0\n", 1,
           path + ":1: GRID ID 0: Input of 0 violates: VALUE > 0\n" + path +
               ": 1 card, 0 misplaced lines, 1 violation, 0 dangling references, 0 duplicate ids, 0 "
               "warnings\n"},
          {"+A,2\nGRID,1\n", 1,
           path + ": 1 card, 1 misplaced line, 0 violations, 0 dangling references, 0 duplicate ids, 0 "
                  "warnings\n"},
          {"GRID,1\nGRID,1\n", 0,
           path + ":2: GRID ID 1: warning: it repeats GRID at " + path + ":1\n" + path +
               ": 2 cards, 0 misplaced lines, 0 violations, 0 dangling references, 0 duplicate ids, 1 "
               "warning\n"}}) {
        Outcome const outcome = Call(folder, "check \"" + folder.Write("deck.bdf", text) + "\"");
        EXPECT_EQ(outcome.status, status) << text;
        EXPECT_EQ(outcome.output, output);
    }
}

TEST(Command, ShowTellsWhatTheFootbridgeIs) {
    DeckFolder const folder;
    Outcome const shown = Call(folder, "show \"" + OwnDeck("footbridge.bdf") + "\"");
    EXPECT_EQ(shown.status, 0);
    EXPECT_EQ(shown.errors, "");
    EXPECT_EQ(shown.output.substr(0, shown.output.find('\n')), "Footbridge over the mill race");
    for (char const* line : {"Cards: 82 of 17 kinds\n", "  GRID           21  first field 101 to 307\n",
                             "  X1  0 to 12535.9\n", "does not hold: none\n", "wrong in the text: none\n"})
        EXPECT_NE(shown.output.find(line), std::string::npos) << line << shown.output;
}

} // namespace
