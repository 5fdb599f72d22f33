#include "deck/DeckFolder.h"
#include "qzinterp/qzInterp.h"

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
    std::string const table = "table \"" + OwnDeck("footbridge.bdf") + "\" ";
    for (std::string const& arguments :
         {std::string(), std::string("facts"), "facts \"" + deck + "\" more", "count \"" + deck + "\"",
          "facts --fast \"" + deck + "\"", "facts \"" + deck + ".none\"",
          "show \"" + folder.Path().string() + "\"", "write \"" + deck + "\"", std::string("describe NONE"),
          table + "SPC1 2", table + "GRID 101", table + "PBARL 1", table + "NONE 1", table + "SPC1"}) {
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

TEST(Command, TablePrintsTheListsOfACard) {
    DeckFolder const folder;
    std::string const deck = "table \"" + OwnDeck("footbridge.bdf") + "\" ";
    EXPECT_EQ(Call(folder, deck + "load 100").output, "  SI  LI\n1.35   1\n 1.5   2\n");
    EXPECT_EQ(Call(folder, deck + "SPC1 1 --csv").output, "G,THRU\n101,\n201,\n301,\n107,307\n");
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

TEST(Command, ObjectsAreFoundShownAndChanged) {
    DeckFolder const folder;
    struct Case {
        std::string arguments;
        int status;
        char const* part; // of what is printed
    };
    std::string const bridge = '"' + OwnDeck("footbridge.bdf") + "\" ";
    std::string const sampler = '"' + OwnDeck("sampler.bdf") + "\" ";
    std::string const output = " -o \"" + (folder.Path() / "out.bdf").string() + '"';
    Case const cases[] = {
        {"describe grid", 0, "GRID: Grid point\n"},
        {"describe --markdown", 0, "\n\n## MAT1: "},
        {"show " + bridge, 0, "Footbridge over the mill race\n"},
        {"show " + bridge, 0, "Cards: 82 of 17 kinds\n"},
        {"show " + bridge, 0, "  GRID           21  first field 101 to 307\n"},
        {"show " + bridge, 0, "  X1  0 to 12535.9\n"},
        {"show " + bridge, 0, "does not hold: none\n"},
        {"show " + bridge, 0, "wrong in the text: none\n"},
        {"summary " + bridge, 0,
         "\n    shell element                    12\n      CQUAD4                         12\n"},
        {"show " + bridge + "pshell 1", 0, "\n  NSM        0 (default)                    Mass per area"},
        {"show " + bridge + "CBAR 3001", 0, "\n  X1         1 (default of the deck)"},
        {"show " + sampler + "CROD 17", 0, "\n  PID        17 (own number)  PROD 17"},
        {"show " + sampler + "ply 2", 0, "\nowned by PCOMP 2 (plies)\n"},
        {"show " + bridge + "PSHELL 2", 2, "qzdeck: there is no PSHELL 2\n"},
        {"show " + bridge + "nothing 2", 2, "qzdeck: nothing is called nothing\n"},
        {"show " + bridge + "PSHELL", 2, "CARD requires ID"},
        {"tree " + sampler + "GRAV 1", 0, "load set 32\n  GRAV 1 (loads)\n"},
        {"tree " + sampler, 0, "\nPCOMP 2\n  ply 1 (plies)\n  ply 2 (plies)\n"},
        {"query " + bridge + "element \"EID < 1003\"", 0, "CQUAD4 1001\nCQUAD4 1002\n"},
        {"query " + bridge + "element \"\" --count", 0, "40\n"},
        {"query " + bridge + "\"line property\" \"MID = 1\" --csv", 0, "type,id,PID,MID\n"},
        {"query " + bridge + "PSHELL \"T > 10\" --explain 1", 0, "PSHELL 1: T > 10 is false: T is 8\n"},
        {"query " + bridge + "element \"EID = or\"", 2, "qzdeck: at 7: found 'or', expected a value\n"},
        {"query " + bridge + "element \"G1 = 106 or GA = 106 or M > 1\"", 0,
         "CQUAD4 1011\nCBAR 2006\nCBAR 3011\n"},
        {"query " + bridge + "element \"GA = 1 and weight > 2\"", 2,
         "qzdeck: 'weight' is no attribute of element\n"},
        {"query " + bridge + "element \"weight > 2\"", 2, "qzdeck: 'weight' is no attribute of element\n"},
        {"set " + bridge + "PSHELL 1 T=12. NSM=-1.-3" + output, 0, ""},
        {"set " + sampler + "PCOMP 2 \"T(2)=.25\"" + output, 0, ""},
        {"types", 0,
         "\n      CQUAD4: 14 attributes\n        configuration: turned by angle, 13 attributes\n"},
        {"types", 0, "\n  load: 5 attributes\n    owned by: load set, loads\n"},
        {"menu CQUAD4", 0, "Actions\n  Describe -> Describe\n  Mass -> Mass\n"},
        {"menu set", 2, "qzdeck: set has no menu\n"},
        {"actions MAT1", 0, "\nRenumber: Gives it another number, and all that refer to it\n"},
        {"run " + bridge + "CQUAD4 1001 Mass", 0, "The mass of CQUAD4 1001 is 0.1256\n"},
        {"run " + bridge + "PSHELL 1 Renumber 7" + output, 0, "now, for 12 references to it.\n"},
        {"run " + bridge + "PSHELL 1 Renumber x" + output, 1, "qzdeck: 'x' is no number for a card.\n"},
        {"run " + bridge + "PSHELL 1 Dance", 1, "qzdeck: PSHELL 1 has no action Dance\n"},
        {"run " + bridge + "CQUAD4 1006 Dance", 1, "has no action"},
        {"script " + bridge + bridge, 2, "qzdeck: a script is a file .py or .tcl\n"},
    };
    for (auto const& [arguments, status, part] : cases) {
        Outcome const outcome = Call(folder, arguments);
        EXPECT_EQ(outcome.status, status) << arguments << outcome.errors;
        std::string const& printed = status == 0 ? outcome.output : outcome.errors;
        EXPECT_NE(printed.find(part), std::string::npos) << arguments << '\n' << printed;
    }
}

TEST(Command, ARefusedChangeWritesNothing) {
    DeckFolder const folder;
    std::string const output = (folder.Path() / "out.bdf").string();
    std::string const set = "set \"" + OwnDeck("footbridge.bdf") + "\" PSHELL 1 -o \"" + output + "\" ";
    Outcome const refused = Call(folder, set + "NSM=1. T=-3");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.errors, "qzdeck: PSHELL 1 T: Input of -3 violates: VALUE > 0\n");
    EXPECT_FALSE(std::filesystem::exists(output));
    EXPECT_EQ(Call(folder, set + "T=3 MID2=").status, 0);
    std::string const shown = Call(folder, "show \"" + output + "\" PSHELL 1").output;
    EXPECT_NE(shown.find("\n  T          3 "), std::string::npos) << shown;
    EXPECT_NE(shown.find("\n  MID2       - "), std::string::npos) << shown;
}

#ifdef QZ_HAVE_PYTHON_MODULES
TEST(Command, PythonWorksOnTheObjectsOfADeck) {
    DeckFolder const folder;
    std::string const bridge = '"' + OwnDeck("footbridge.bdf") + "\" ";
    std::string const output = (folder.Path() / "out.bdf").string();
    std::string const toOutput = " -o \"" + output + '"';
    Outcome const scaled = Call(folder, "run " + bridge + "PSHELL 1 \"Scale thickness\" 1.5" + toOutput);
    EXPECT_EQ(scaled.output, "Callback execution succeeded\n") << scaled.errors;
    Outcome const thick = Call(folder, "query \"" + output + "\" PSHELL \"T = 12\"");
    EXPECT_EQ(thick.output, "PSHELL 1\n") << thick.errors;
    Outcome const refused = Call(folder, "run " + bridge + "PSHELL 1 \"Scale thickness\" -1");
    EXPECT_TRUE(refused.errors.starts_with("script (python): scale_thickness: Traceback")) << refused.errors;
    EXPECT_TRUE(
        refused.errors.ends_with("Input of -8 violates: VALUE > 0\nqzdeck: Callback execution failed\n"))
        << refused.errors;

    std::string const script = folder.Write("script.py", "from qz.mdi.isession import Session\n"
                                                         "for prop in Session().objects('PSHELL'):\n"
                                                         "    prop['T'] = 4\n"
                                                         "    print(prop.text('T'))\n");
    Outcome const changed = Call(folder, "script " + bridge + '"' + script + '"' + toOutput);
    EXPECT_EQ(changed.output, "4\n") << changed.errors;
    EXPECT_EQ(Call(folder, "query \"" + output + "\" PSHELL \"T = 4\" --count").output, "1\n");
}
#endif

#ifndef QZ_WITH_PYTHON
TEST(Command, TellsThatThereIsNoPython) {
    DeckFolder const folder;
    std::string const bridge = '"' + OwnDeck("footbridge.bdf") + "\" ";
    Outcome const action = Call(folder, "run " + bridge + "PSHELL 1 \"Scale thickness\"");
    EXPECT_EQ(action.status, 1);
    EXPECT_EQ(action.errors, "qzdeck: Interpretor not found\n");
    Outcome const script = Call(folder, "script " + bridge + '"' + folder.Write("script.py", "1") + '"');
    EXPECT_EQ(script.status, 1);
    EXPECT_EQ(script.errors, "qzdeck: there is no interpreter of python\n");
}
#endif

TEST(Command, ScriptsPrintAndFail) {
    if (qzInterp::Get("tcl") == nullptr)
        GTEST_SKIP() << "there is no Tcl";
    DeckFolder const folder;
    std::string const deck = "script \"" + folder.Write("deck.bdf", "GRID,1\n") + "\" ";
    std::string const script = folder.Write("script.tcl", "puts [expr {6 * 7}]\n");
    std::string const wrong = folder.Write("wrong.tcl", "error {no more}\n");
    Outcome const done = Call(folder, deck + '"' + script + '"');
    EXPECT_EQ(done.status, 0) << done.errors;
    EXPECT_EQ(done.output, "42\n");
    Outcome const failed = Call(folder, deck + '"' + wrong + '"');
    EXPECT_EQ(failed.status, 1);
    EXPECT_NE(failed.errors.find("no more"), std::string::npos) << failed.errors;
    EXPECT_EQ(Call(folder, deck + '"' + script + ".none.tcl\"").status, 2);
}

} // namespace
