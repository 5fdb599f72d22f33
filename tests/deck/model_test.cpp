#include "deck/DeckFolder.h"
#include "model/field_value.h"

#include <gtest/gtest.h>

namespace {

using qzDeck::FieldKind;
using qzDeck::KindOf;
using qzDescriptor::Identifier;
using qzDescriptor::Value;

TEST(Model, EveryFieldIsAValueOfItsType) {
    DeckFolder const folder;
    auto const model = folder.Read("PARAM*,7,,2.5,THRU\n");
    auto const& values = model.Cards().at(0).Values();
    ASSERT_EQ(values.size(), 4U);
    EXPECT_EQ(values[0].GetBasicType(), qzDescriptor::BT_INT);
    EXPECT_EQ(values[1].GetBasicType(), qzDescriptor::BT_NONE);
    EXPECT_EQ(values[2].GetBasicType(), qzDescriptor::BT_DOUBLE);
    EXPECT_EQ(values[3].GetBasicType(), qzDescriptor::BT_STRING);
    double real = 0.0;
    EXPECT_TRUE(values[2].GetValue(real));
    EXPECT_EQ(real, 2.5);
}

TEST(Model, FieldsAreFoundByTheirNumber) {
    DeckFolder const folder;
    auto const model = folder.Read("GRID,1\nGRID,2,,0.5\n");
    auto const& shorter = model.Cards()[0];
    auto const& longer = model.Cards()[1];
    ASSERT_EQ(&shorter.Kind(), &longer.Kind());
    ASSERT_EQ(longer.Kind().fields.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(longer.Find(longer.Kind().fields[i]), &longer.Values()[i]);
    ASSERT_NE(longer.Find(Identifier(3)), nullptr);
    EXPECT_TRUE(longer.Find(Identifier(2))->GetValuePtr() == nullptr);
    EXPECT_EQ(shorter.Find(Identifier(3)), nullptr);
    EXPECT_EQ(longer.Find(Identifier(4)), nullptr);
    EXPECT_EQ(longer.Find(Identifier(0)), nullptr);
    EXPECT_EQ(longer.Find(Identifier("X1")), nullptr);
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
