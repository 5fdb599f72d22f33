#include "deck/DeckFolder.h"
#include "facts/DeckFacts.h"

#include <gtest/gtest.h>

namespace {

// broken.bdf holds one line of every kind that can be wrong.
constexpr char const* s_brokenReports =
    "7: a continuation line before the first card\n"
    "9: there is no free line before this one to repeat: '='\n"
    "9: a continuation line before the first card\n"
    "12: '==' repeats all that remains; what follows it is ignored: '7.0'\n"
    "13: the field is already passed; the value goes to the next one: '3)0.0'\n"
    "15: a generator that is not expanded: '=(3)'\n"
    "15: not the name of a card: '=(3)'\n"
    "16: a generator that is not expanded: '*(1)'\n"
    "16: neither a number nor a text: '*(1)'\n"
    "17: a generator that is not expanded: '9)+AB'\n"
    "17: neither a number nor a text: '+AB'\n"
    "19: a free line has more than ten fields; it is cut before: 'T'\n"
    "22: no card or more than one is continued by this line: '+P2'\n"
    "23: behind a line that belongs elsewhere, an unnamed one is read as part of the card before both: '+    "
    "           3.0'\n"
    "25: not the name of a card: 'GRID   4'\n"
    "26: not the name of a card: '2.0+5'\n"
    "28: an integer wider than its field of 8 columns: '12345678'\n"
    "29: an integer wider than its field of 8 columns: '123456789'\n"
    "32: a free line of large fields begins a new row of eight fields: '*,2.0'\n"
    "34: a blank inside a number: '2.1  E5'\n"
    "34: neither a number nor a text: '0x10'\n"
    "34: a blank inside a number: '0.75E 01'\n"
    "34: neither a number nor a text: '1,5'\n"
    "34: the real number is out of range: '1.+400'\n"
    "34: the real number is out of range: '1.-400'\n"
    "35: the integer needs more than 32 bits: '3000000000'\n"
    "35: neither a number nor a text: '1.2.3'\n"
    "36: a text of more than 8 characters: 'ALONGLABEL'\n"
    "38: INCLUDE without a path in single quotes is not followed: 'INCLUDE \"footbridge.bdf\"'\n"
    "38: neither a number nor a text: '\"footbri'\n"
    "38: neither a number nor a text: 'dge.bdf\"'\n"
    "39: the included file cannot be read: 'no_such_file.bdf'\n"
    "40: the file includes itself, directly or through others: 'broken.bdf'\n";

// What is kept of it: every line with fields but the orphans.
constexpr char const* s_brokenCards =
    "GRID 1 _ 0.0 0.0 0.0\n"
    "GRID 2 _ 0.0 0.0 0.0\n"
    "GRID 3 _ 1.0 0.0\n"
    "=(3)\n"
    "GRID bad'*(1)'\n"
    "GRID 5 _ 0.0 0.0 0.0 _ _ bad'+AB'\n"
    "CQUAD4 1 1 1 2 3 4\n"
    "PBAR 1 1 1.0 _ _ _ _ _ _ 3.0\n"
    "GRID   4 _ _ 0.0\n"
    "2.0+5 7\n"
    "CROD 1 1 12345678 9 2\n"
    "CROD 123456789 1 1 2\n"
    "GRID 6 _ 0.0 1.0 _ _ _ _ 2.0\n"
    "MAT1 1 bad'2.1  E5' bad'0x10' bad_gap_exponent'0.75E 01' bad'1,5' real'1.+400' 0.0\n"
    "SPC1 int'3000000000' 123456 bad'1.2.3'\n"
    "LOADSET _ 'ALONGLABEL'\n"
    "INCLUDE bad'\"footbri' bad'dge.bdf\"'\n"
    "GRID 9 _ 1.0 2.0 3.0\n";

TEST(Reports, TellFileLineAndReason) {
    auto const model = qzDeck::Model::Read(OwnDeck("broken.bdf")).value();
    EXPECT_EQ(ReportsOf(model), s_brokenReports);
    std::string const first = Describe(model.GetReports().front(), model.GetSource());
    EXPECT_EQ(first, OwnDeck("broken.bdf") + ":7: a continuation line before the first card");
}

TEST(Reports, DropNothing) {
    auto const model = qzDeck::Model::Read(OwnDeck("broken.bdf")).value();
    EXPECT_EQ(TextOf(model), s_brokenCards);
    std::string orphans;
    for (std::uint32_t line : model.Orphans())
        orphans.append(model.GetSource().Lines()[line].text).append("\n");
    EXPECT_EQ(orphans, "        1.0     2.0\n=,2,,0.0\n+P2     1.0     2.0\n");
}

TEST(Reports, OnlyLinesWithoutAPlaceAreStructureErrors) {
    auto const facts = CollectFacts(qzDeck::Model::Read(OwnDeck("broken.bdf")).value());
    // lines 7, 9, 22 continue nothing; 15, 16, 17 generate; 19 is too long; 39, 40 include what cannot be
    // read
    EXPECT_EQ(facts.structureErrors, 9U);
    // one each in lines 16, 17, 35, two in 38, four in 34
    EXPECT_EQ(facts.kinds.OfUnreadable(), 9U);
}

TEST(Reports, ShowLongAndUnprintableTextsInBrief) {
    DeckFolder const folder;
    std::string const text = "\x1B[31m" + std::string(100, '9');
    EXPECT_EQ(ReportsOf(folder.Read("X,1," + text + "\n")),
              "1: neither a number nor a text: '?[31m" + std::string(67, '9') + "...'\n");
}

} // namespace
