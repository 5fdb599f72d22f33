#include "deck/DeckFolder.h"
#include "facts/DeckFacts.h"
#include "facts/facts_json.h"

#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;

std::string FactsOf(qzDeck::Model const& model) { return ToJson(CollectFacts(model)); }

struct Fact {
    char const* deck;
    char const* pointer; ///< into the facts
    char const* value;
};

Fact const s_facts[] = {
    {"", "",
     R"({"cards":{},"ids":{},"field_kinds":{},"columns":{},"grid_sums_6_digits":{"x":null,"y":null,"z":null},
                 "dangling_references":{},"structure_errors_count":0,"unparsable_fields_count":0})"},
    {"GRID,1\ngrid,2\nMAT1\n", "/cards", R"({"GRID":2,"MAT1":1})"},
    {"X,7\nX,7\nX,-2\nX,A\nX\nY\n", "/ids", R"({"X":{"min":-2,"max":7,"count":3,"distinct":2}})"},
    {"X,,1,2.,3e1,4.E 1,A,5..\nY,,1\n", "/field_kinds",
     R"({"blank":2,"int":2,"real":1,"real_nodot":1,"bad_gap_exponent":1,"str":1,"bad":1})"},
    {"X,1.5\nX,-2e1\nX,4.E 1\nX,7\nX,7\nX,A\n", "/columns/X/1",
     R"({"real":1,"real_nodot":1,"bad_gap_exponent":1,"int":2,"str":1,
         "real_sum":21.5,"real_min":-20.0,"real_max":40.0,"int_sum":14})"},
    {"X,1234567.\nX,0.4\n", "/columns/X/1/real_sum", "1234570.0"},
    {"X,1.+20\nX,1.\nX,-1.+20\n", "/columns/X/1/real_sum", "1.0"},
    {"X,,1\nX\n", "/columns/X", R"({"1":{"blank":1},"2":{"int":1,"int_sum":1}})"},
    {"X\nY,1\n", "/columns", R"({"Y":{"1":{"int":1,"int_sum":1}}})"},
    {"X,1\n+,,,,,,,,1\n+,,,,,,,,1\n+,1\n", "/columns/X/24", R"({"int":1,"int_sum":1})"},
    {"X,1\n+,,,,,,,,1\n+,,,,,,,,1\n+,1\n", "/columns/X/25", ""},
    {"GRID,1,,1,2.5,3e0\nGRID,2,,4.E 1,A,5..\nGRID,3,,-0.5\n", "/grid_sums_6_digits",
     R"({"x":0.5,"y":2.5,"z":3.0})"},
    {"GRID,1\n", "/grid_sums_6_digits", R"({"x":0.0,"y":0.0,"z":0.0})"},
    {"\xC9T\xE9,1\n\xE9t\xC9,1\n", "/cards", "{\"\xC3\x89T\xC3\x89\":2}"},
    {"\xB5,1\n\xFF,1\n", "/cards", "{\"\xCE\x9C\":1,\"\xC5\xB8\":1}"},
    {"\"\\: ,1\n", "/cards", R"({"\"\\:":1})"},
    {"GRID,1\nSPOINT,2\nCROD,9,9,1,2\nCROD,9,9,1,3\nCROD,9,9,0\nCROD,9,9,A,1.\nPROD,9\n",
     "/dangling_references", R"({"CROD->GRID":1,"CROD->PROD":0})"},
    {"CBAR,1\nCBAR,2\nCBAR,7,3\nCBAR,7,4\nCBAR,7,5\nCBAR,3.0,A\nCBAR,3.5\nCBAR,A\nCBAR\nPBAR,1\nPBARL,"
     "3\nPBARL,4\n",
     "/dangling_references/CBAR->PBAR|PBARL", "5"},
    {"SPC,1,1,,,1\nFORCE,1,1\n", "/dangling_references", R"({"SPC->GRID":2,"FORCE->GRID":1})"},
    {"+,1\nX,=(2),/\n+A,1\nINCLUDE 'none'\nX,1,2,3,4,5,6,7,8,9,10\n", "/structure_errors_count", "6"},
    {"X,1..,4.E 1,A,1 2\n", "/unparsable_fields_count", "3"},
    {"X,18446744073709551615\n", "/columns/X/1/int_sum", "18446744073709551615"},
    {"X,99999999999\n", "/ids/X/max", "99999999999"},
};

TEST(Facts, CountAndSumTheFieldsAsWritten) {
    DeckFolder const folder;
    for (Fact const& fact : s_facts) {
        Json const facts = Json::parse(FactsOf(folder.Read(fact.deck)));
        Json::json_pointer const pointer(fact.pointer);
        if (*fact.value == '\0') {
            EXPECT_FALSE(facts.contains(pointer)) << fact.deck;
            continue;
        }
        ASSERT_TRUE(facts.contains(pointer)) << fact.deck << fact.pointer << facts;
        EXPECT_EQ(facts[pointer], Json::parse(fact.value)) << fact.deck << fact.pointer;
    }
}

TEST(Facts, NumbersBeyondTheMachinesAreWrittenInFull) {
    DeckFolder const folder;
    std::string const facts = FactsOf(folder.Read("X,99999999999999999999,1.+400\nX,1,-1.\nY,-1.+400\n"
                                                  "Z,1.+400\nZ,-1.+400\n"));
    for (char const* member :
         {"\"int_sum\": 100000000000000000000\n", "\"max\": 99999999999999999999,\n", "\"real_sum\": 1e999,",
          "\"real_min\": -1.0,", "\"real_max\": 1e999\n", "\"real_min\": -1e999,", "\"real_sum\": null,"})
        EXPECT_NE(facts.find(member), std::string::npos) << member << facts;
    EXPECT_NE(facts.find("\"cards\": {\n  \"X\": 2,"), std::string::npos) << facts;
}

// Reasoned from the drawing: three lines of seven points, each with the last one on the skew abutment; twelve
// plates; two girders of six bars and seven cross beams of two; every girder bar 164 mm below its points;
// five wind forces, one of them 1,650 N; nothing refers to what is not there.
TEST(Facts, OfTheFootbridgeAreThoseOfItsDrawing) {
    auto const model = qzDeck::Model::Read(OwnDeck("footbridge.bdf")).value();
    EXPECT_EQ(ReportsOf(model), "");
    Json const facts = Json::parse(FactsOf(model));
    EXPECT_EQ(facts["cards"],
              Json::parse(R"({"CBAR":26,"GRID":21,"CQUAD4":12,"FORCE":5,"PARAM":3,"CONM2":2,"LOAD":2,
        "SPC1":2,"BAROR":1,"CORD2R":1,"GRAV":1,"MAT1":1,"MOMENT":1,"PBAR":1,"PBARL":1,"PLOAD4":1,"PSHELL":1})"));
    EXPECT_EQ(facts["ids"]["GRID"], Json::parse(R"({"min":101,"max":307,"count":21,"distinct":21})"));
    EXPECT_EQ(facts["grid_sums_6_digits"], Json::parse(R"({"x":126804.0,"y":21000.0,"z":0.0})"));
    EXPECT_EQ(facts["columns"]["CBAR"]["1"], Json::parse(R"({"int":26,"int_sum":66183})"));
    EXPECT_EQ(facts["columns"]["CBAR"]["13"]["real_sum"], -12 * 164.0);
    EXPECT_EQ(facts["columns"]["CBAR"]["16"]["real_sum"], -12 * 164.0);
    EXPECT_EQ(facts["columns"]["FORCE"]["4"]["real_sum"], 6450.0);
    EXPECT_EQ(facts["columns"]["CONM2"]["4"]["real_sum"], 0.12);
    EXPECT_EQ(facts["columns"]["MAT1"]["5"]["real_max"], 7.85e-9);
    EXPECT_EQ(facts["columns"]["PLOAD4"]["3"]["real_min"], -0.005);
    EXPECT_EQ(facts["field_kinds"]["real_nodot"], 1);
    for (auto const& [reference, count] : facts["dangling_references"].items())
        EXPECT_EQ(count, 0) << reference;
    EXPECT_EQ(facts["structure_errors_count"], 0);
    EXPECT_EQ(facts["unparsable_fields_count"], 0);
}

std::string FixedLine(std::string line, std::size_t width, std::vector<std::string> const& fields) {
    std::size_t column = 8;
    for (std::string const& field : fields) {
        line.resize(column, ' ');
        line += field;
        column += width;
    }
    return line + "\n";
}

/// 30,000 points in large fields, two lines each, and 40,000 plates, each on four consecutive points.
std::string LargeDeck() {
    std::string deck;
    for (int i = 1; i <= 30000; ++i) {
        std::string const id = std::to_string(i);
        deck += FixedLine("GRID*", 16, {id, "", id + ".5", "-" + id + "."}) + "*       0.25\n";
    }
    for (int i = 1; i <= 40000; ++i)
        deck += FixedLine("CQUAD4", 8,
                          {std::to_string(i), "1", std::to_string(i), std::to_string(i + 1),
                           std::to_string(i + 2), std::to_string(i + 3)});
    return deck;
}

TEST(Facts, OfAHundredThousandLinesAreExact) {
    DeckFolder const folder;
    auto const model = folder.Read(LargeDeck());
    EXPECT_EQ(model.GetSource().Lines().size(), 100000U);
    Json const facts = Json::parse(FactsOf(model));
    EXPECT_EQ(facts["cards"], Json::parse(R"({"CQUAD4":40000,"GRID":30000})"));
    // the sum of 1 to n is n (n + 1) / 2
    EXPECT_EQ(facts["grid_sums_6_digits"], Json::parse(R"({"x":450030000.0,"y":-450015000.0,"z":7500.0})"));
    EXPECT_EQ(facts["columns"]["GRID"]["1"]["int_sum"], 450015000);
    EXPECT_EQ(facts["columns"]["CQUAD4"]["6"]["int_sum"], 800020000 + 3 * 40000);
    EXPECT_EQ(facts["field_kinds"], Json::parse(R"({"int":270000,"blank":30000,"real":90000})"));
    // points beyond 30,000: 1, 2 and 3 of the plates on the edge, all 4 of the 10,000 behind it
    EXPECT_EQ(facts["dangling_references"]["CQUAD4->GRID"], 1 + 2 + 3 + 4 * 10000);
    EXPECT_EQ(facts["dangling_references"]["CQUAD4->PSHELL|PCOMP"], 40000);
    EXPECT_TRUE(model.GetReports().empty());
}

// Facts that an independent checker found in published decks, all of them key by key.
TEST(Facts, OfPublishedDecksAreThoseOfTheChecker) {
    auto const decks = SharedDecks();
    if (decks.empty())
        GTEST_SKIP() << "there are none here";
    for (std::filesystem::path const deck : decks) {
        Json const expected =
            Json::parse(std::ifstream(std::filesystem::path(deck).replace_extension(".facts.json")));
        auto const model = qzDeck::Model::Read(deck.string()).value();
        Json const facts = Json::parse(FactsOf(model));
        EXPECT_EQ(facts.size(), 8U);
        for (auto const& [key, value] : facts.items())
            EXPECT_EQ(value, expected.at(key)) << deck << key;
        EXPECT_EQ(ReportsOf(model), "");
    }
}

} // namespace
