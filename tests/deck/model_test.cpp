#include "deck/DeckFolder.h"
#include "model/field_value.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

using qzDeck::Card;
using qzDeck::FieldKind;
using qzDeck::KindOf;
using qzDescriptor::Identifier;
using qzDescriptor::Value;

Value const* Find(Card const& card, char const* name, unsigned int row = Identifier::s_unset) {
    return card.Find(Identifier(name, 0, row));
}

TEST(Model, FieldsOfKnownCardsAreFoundByName) {
    DeckFolder const folder;
    auto const model = folder.Read("GRID,1\nGRID,2,,0.5\n+,9\nCBAR,1,1,1,2,3\nPCOMP,1\n+,1,2.\n+,,,5,3.\n");
    Card const& longer = model.Cards()[1];
    EXPECT_EQ(Find(longer, "X1"), &longer.Values()[2]);
    EXPECT_EQ(Find(longer, "CP")->GetValuePtr(), nullptr);
    EXPECT_EQ(longer.Find(Identifier(9)), &longer.Values()[8]) << "behind the last field";
    EXPECT_EQ(longer.Find(Identifier(3)), nullptr) << "it has a name";
    EXPECT_EQ(Find(longer, "X4"), nullptr);
    EXPECT_EQ(longer.Find(Identifier()), nullptr);
    EXPECT_EQ(Find(model.Cards()[0], "X1"), nullptr) << "the card ends before";
    EXPECT_EQ(Find(model.Cards()[2], "G0"), &model.Cards()[2].Values()[4]);
    EXPECT_EQ(Find(model.Cards()[2], "X1"), nullptr) << "there is a point in its place";
    Card const& laminate = model.Cards()[3];
    EXPECT_EQ(Find(laminate, "T"), &laminate.Values()[9]) << "of the first ply";
    EXPECT_EQ(Find(laminate, "MID", 3), nullptr) << "there are no more than three";
    EXPECT_EQ(Find(laminate, "THETA", 2), &laminate.Values()[18]);
}

TEST(Model, FieldsOfUnknownCardsAreFoundByNumber) {
    DeckFolder const folder;
    auto const model = folder.Read("X,1\nX,2,,0.5\n");
    Card const& longer = model.Cards()[1];
    ASSERT_EQ(&model.Cards()[0].Kind(), &longer.Kind());
    EXPECT_EQ(longer.Find(Identifier(3)), &longer.Values()[2]);
    EXPECT_EQ(longer.Find(Identifier(2))->GetValuePtr(), nullptr);
    EXPECT_EQ(model.Cards()[0].Find(Identifier(3)), nullptr);
    EXPECT_EQ(longer.Find(Identifier(4)), nullptr);
    EXPECT_EQ(longer.Find(Identifier(-1)), nullptr);
    EXPECT_EQ(Find(longer, "X1"), nullptr);
}

struct Change {
    char const* deck;
    Identifier field;
    Value value;
    bool isDone;
    char const* card; ///< as TextOf writes it
};

TEST(Model, FieldsAreChangedToWhatTheyCanHold) {
    DeckFolder const folder;
    Value const integer(7);
    Value const real(2.5);
    Value const text(qzString("GOO"));
    for (auto const& [deck, field, value, isDone, card] : {
             Change{"GRID,1\n", Identifier("X2"), real, true, "GRID 1 _ _ 2.5"},
             {"GRID,1,,,2.5\n", Identifier("X2"), Value(), true, "GRID 1"},
             {"GRID,1\n", Identifier("X2"), integer, false, "GRID 1"},
             {"GRID,1\n", Identifier("ID"), integer, true, "GRID 7"},
             {"GRID,1\n", Identifier(9), text, true, "GRID 1 _ _ _ _ _ _ _ 'GOO'"},
             {"GRID,1\n", Identifier(3), real, false, "GRID 1"},
             {"CBAR,1\n", Identifier("G0"), integer, true, "CBAR 1 _ _ _ 7"},
             {"CBAR,1,,,,7\n", Identifier("X1"), real, true, "CBAR 1 _ _ _ 2.5"},
             {"CBAR,1\n", Identifier("OFFT"), text, true, "CBAR 1 _ _ _ _ _ _ 'GOO'"},
             {"CBAR,1\n", Identifier("OFFT"), Value(qzString("1, 2")), false, "CBAR 1"},
             {"PARAM,N\n", Identifier("V1"), text, true, "PARAM 'N' 'GOO'"},
             {"PARAM,N\n", Identifier("V1"), Value(std::numeric_limits<double>::infinity()), false,
              "PARAM 'N'"},
             {"X\n", Identifier(2), Value(true), false, "X"},
             {"X\n", Identifier(2), integer, true, "X _ 7"},
             {"X\n", Identifier("N"), integer, false, "X"},
             {"X\n", Identifier(2000000000), integer, false, "X"},
             {"LOAD,1,1.,1.,2\n", Identifier("LI", 0, 1), integer, true, "LOAD 1 1.0 1.0 2 _ 7"},
             {"LOAD,1,1.,1.,2\n", Identifier("LI", 0, 2), integer, false, "LOAD 1 1.0 1.0 2"},
             {"SPC1,1,1,2\n", Identifier("THRU", 0, 1), Value(qzString("THRU")), true, "SPC1 1 1 2 'THRU'"},
         }) {
        auto model = folder.Read(deck);
        EXPECT_EQ(model.Cards()[0].Set(field, value), isDone) << deck << card;
        EXPECT_EQ(TextOf(model.Cards()[0]), card);
    }
}

TEST(Model, NamesOfCardsAreOfAnyCase) {
    DeckFolder const folder;
    auto const model = folder.Read("grid,1\nGRID,2\nGrid*,3\n  gRiD  4\n\xE9t\xDF,1\n\xC9TSS,2\n");
    EXPECT_EQ(TextOf(model), "GRID 1\nGRID 2\nGRID 3\nGRID 4\n\xC9TSS 1\n\xC9TSS 2\n");
    EXPECT_EQ(model.Kinds().size(), 2U);
}

struct Field {
    char const* text;
    FieldKind kind;
    char const* value; ///< as TextOf writes it
    char const* problem = "";
};

TEST(Model, WhatNoTypeHoldsIsKeptAsWrittenUnderAMark) {
    DeckFolder const folder;
    for (Field const& field : {
             Field{"2147483647", FieldKind::Integer, "2147483647"},
             {"2147483648", FieldKind::Integer, "int'2147483648'", "the integer needs more than 32 bits"},
             {"-09999999999", FieldKind::Integer, "int'-09999999999'", "the integer needs more than 32 bits"},
             {"1.5-3", FieldKind::Real, "0.0015"},
             {"0.0-400", FieldKind::Real, "0.0"},
             {"1.+400", FieldKind::Real, "real'1.+400'", "the real number is out of range"},
             {"-1.-400", FieldKind::Real, "-0.0", "the real number is out of range"},
             {"1e5", FieldKind::RealWithoutPoint, "real_nodot1e+05"},
             {"1e999", FieldKind::RealWithoutPoint, "real_nodot'1e999'", "the real number is out of range"},
             {"0.75E 01", FieldKind::GappedExponent, "bad_gap_exponent'0.75E 01'", "a blank inside a number"},
             {"2.1  E5", FieldKind::Unreadable, "bad'2.1  E5'", "a blank inside a number"},
             {"1 2", FieldKind::Unreadable, "bad'1 2'", "a blank inside a number"},
             {"1 x", FieldKind::Unreadable, "bad'1 x'", "neither a number nor a text"},
             {"0x10", FieldKind::Unreadable, "bad'0x10'", "neither a number nor a text"},
             {"\xE9\x01\xFF", FieldKind::Unreadable, "bad'\xE9\x01\xFF'", "neither a number nor a text"},
             {"THRU", FieldKind::Text, "'THRU'"},
             {"real", FieldKind::Text, "'real'"},
             {"NINELONGS", FieldKind::Text, "'NINELONGS'", "a text of more than 8 characters"},
         }) {
        auto const model = folder.Read("X*,1," + std::string(field.text) + "\n");
        EXPECT_EQ(TextOf(model), "X 1 " + std::string(field.value) + "\n");
        EXPECT_EQ(KindOf(model.Cards()[0].Values()[1]), field.kind) << field.text;
        std::string const report = ReportsOf(model);
        EXPECT_EQ(report.substr(0, report.find(": '")),
                  *field.problem ? "1: " + std::string(field.problem) : "");
    }
}

TEST(Model, IdsTooWideForTheirFieldAreReportedWhereTheyShow) {
    DeckFolder const folder;
    std::string const wide = ": an integer wider than its field of 8 columns: ";
    struct Case {
        std::string deck;
        std::string reports;
    };
    for (auto const& [deck, reports] : {
             Case{"CROD,123456789,1,1,2\n", "1" + wide + "'123456789'\n"},
             {"CROD           1       1123456789       2\n", "1" + wide + "'12345678'\n"},
             {"SPC1    1       123     1       2       3       4       5       123456789\n",
              "1" + wide + "'12345678'\n"},
             {"CROD*                  1               1       123456789               2\n", ""},
             {"CTETRA  700000017000000270000003\n", ""},
             {"CTETRA         17000000170000002      3\n", ""},
             {"CROD    1       1       123456782       3\n", ""},
             {"SPC1    1       123     1       2       3       4       5       12345678+A\n", ""},
             {"CROD,12345678,1\n", ""},
         })
        EXPECT_EQ(ReportsOf(folder.Read(deck)), reports) << deck;
}

// The texts of lines, fields and reports lie in the source; they must go with the model when it moves.
TEST(Model, CanBeMoved) {
    DeckFolder const folder;
    auto model = std::make_unique<qzDeck::Model>(folder.Read("X,\t1..\nY"));
    qzDeck::Model const moved = std::move(*model);
    model.reset();
    EXPECT_EQ(moved.GetSource().Lines()[0].text, "X,      1..");
    EXPECT_EQ(moved.GetSource().Lines()[1].text, "Y");
    EXPECT_EQ(ReportsOf(moved), "1: neither a number nor a text: '1..'\n");
    EXPECT_EQ(moved.Cards()[0].Name(), "X");
}

} // namespace
