#include "cards/card_position.h"
#include "cards/families.h"
#include "cards/registry.h"
#include "deck/DeckFolder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

using namespace qzDeck;
using namespace qzDescriptor;

TEST(Cards, AreFoundByName) {
    EXPECT_GE(AllCards().size(), 40U);
    for (CardDefinition const& card : AllCards())
        EXPECT_EQ(FindCard(card.Name()), &card);
    EXPECT_EQ(FindCard("PLOAD4"), nullptr);
    EXPECT_EQ(FindCard("grid"), nullptr);
}

TEST(Cards, HaveFieldsWithNamesPlacesAndSoundDefaults) {
    Allowables::EnforceGenericTestSentinel const guard;
    for (CardDefinition const& card : AllCards()) {
        std::set<std::string> names;
        for (Field const& field : card.AllFields()) {
            std::string const name = card.Name() + " " + field.identifier.GetNameKey();
            Definition const& definition = field.definition;
            EXPECT_TRUE(names.insert(name).second) << name;
            EXPECT_TRUE(definition.IsSpecified() && !definition.GetDisplayName().empty()) << name;
            EXPECT_EQ(field.position.GetLength(), field.position.IsValid() ? 8 : 0) << name;
            Value value;
            bool const hasDefault = definition.GetAllowables().GetDefault(value);
            EXPECT_TRUE(hasDefault || !HasFlag(field, FIELD_HAS_DEFAULT)) << name;
            EXPECT_EQ(definition.GetAllowables().Test(value), 0) << name;
            EXPECT_TRUE(!hasDefault || value.GetBasicType() == definition.GetValueBasicType()) << name;
            auto const family = definition.GetUserParams().GetForeignReference();
            EXPECT_LE(family, AllFamilies().size()) << name;
        }
        auto const before = [](Field const& a, Field const& b) {
            return PlaceOf(a.position) < PlaceOf(b.position);
        };
        EXPECT_TRUE(std::is_sorted(card.FixedFields().begin(), card.FixedFields().end(), before))
            << card.Name();
    }
}

TEST(Cards, FamiliesStandUnderTheirCodes) {
    for (FamilyTraits const& family : AllFamilies())
        EXPECT_EQ(&TraitsOf(family.family), &family) << family.label;
}

// Data field numbers as people count them: 1 stands in columns 9 to 16 of the first line, 9 below it.
TEST(Cards, HaveTheirFieldsWhereTheFormatHasThem) {
    struct Case {
        char const* card;
        char const* field;
        std::size_t number;
    };
    for (auto const& [card, name, number] :
         {Case{"GRID", "SEID", 8}, {"GRDSET", "CP", 2},    {"GRDSET", "CD", 6},   {"CORD2S", "C3", 11},
          {"CQUAD4", "ZOFFS", 8},  {"CQUAD4", "T1", 11},   {"CTRIA3", "MCID", 6}, {"CTRIA3", "T3", 13},
          {"CTETRA", "G10", 12},   {"CHEXA", "G20", 22},   {"CHEXA1", "G8", 10},  {"CBAR", "X1", 5},
          {"CBAR", "G0", 5},       {"CBAR", "OFFT", 8},    {"CBAR", "F", 8},      {"CBAR", "W3B", 16},
          {"BAROR", "X3", 7},      {"CBEAM", "SB", 18},    {"CROD", "G2", 4},     {"CONROD", "MID", 4},
          {"PSHELL", "TS/T", 7},   {"PSHELL", "MID4", 11}, {"PCOMP", "LAM", 8},   {"PCOMP", "MID", 9},
          {"PCOMP", "SOUT", 12},   {"PBAR", "C1", 9},      {"PBAR", "I12", 19},   {"PBARL", "TYPE", 4},
          {"PBEAML", "DIM", 9},    {"PBEAM", "F2", 16},    {"PROD", "NSM", 6},    {"PSOLID", "FCTN", 7},
          {"MAT1", "MCSID", 12},   {"MAT2", "G33", 7},     {"MAT2", "SS", 16},    {"FORCE", "N3", 7},
          {"GRAV", "N1", 4},       {"LOAD", "LI", 4},      {"SPC", "D2", 7},      {"SPC1", "G", 3},
          {"SPC1", "THRU", 3},     {"SPCADD", "S", 2},     {"RBE2", "ALPHA", 4},  {"RBE3", "REFGRID", 3},
          {"RBE3", "WT", 5},       {"CONM2", "X3", 7},     {"CONM2", "I11", 9},   {"CONM2", "I33", 14},
          {"DESVAR", "XUB", 5},    {"EIGRL", "NORM", 8},   {"PARAM", "V2", 3}}) {
        std::vector<std::string> names;
        for (Field const& field : FieldsAt(FindCard(card)->AllFields(), number - 1))
            names.push_back(field.identifier.GetNameKey());
        EXPECT_NE(std::find(names.begin(), names.end(), name), names.end()) << card << " " << name;
    }
}

std::string Labels(Card const& card) {
    PlacedFields placed;
    card.Place(placed);
    std::string labels;
    for (std::size_t place = 0; place < placed.size(); ++place)
        labels += (place == 0 ? "" : " ") + placed[place].Label(place);
    return labels;
}

TEST(Cards, SayWhatStandsAtEachPlaceOfATail) {
    struct Case {
        char const* deck;
        char const* labels;
    };
    DeckFolder const folder;
    for (auto const& [deck, labels] :
         {Case{"LOAD,1,1.,2.,3,4.\n", "SID S SI(1) LI(1) SI(2) LI(2)"},
          {"SPC1,1,123,5,THRU,9\n", "SID C G(1) THRU(2) G(3)"},
          {"SPC1\n", "SID C G(1)"},
          {"RBE2,1,2,123,3,4,6.-6\n", "EID GN CM GM(1) GM(2) ALPHA(3)"},
          {"SPOINT,1,THRU,5\n", "ID(1) THRU(2) ID(3)"},
          {"PBARL,1,1,,tube\n+,2.,1.\n", "PID MID GROUP TYPE 5 6 7 8 DIM(1) DIM(2) NSM"},
          {"PBARL,1,1,,NEW\n+,2.,1.,3.\n", "PID MID GROUP TYPE 5 6 7 8 DIM(1) DIM(2) DIM(3) NSM"},
          {"PBEAML,1,1,,ROD\n+,2.,0.,YES,.5,1.\n",
           "PID MID GROUP TYPE 5 6 7 8 DIM(1,1) NSM(1) SO(2) X(2) DIM(2,1) NSM(2)"},
          {"RBE3,1,,2,3,1.,123,4,5\n+,2.,1,6,7,,UM,8,1\n+,9,2,ALPHA,1.-5\n",
           "EID 2 REFGRID REFC WT(1) C(1) G(1,1) G(1,2) WT(2) C(2) G(2,1) G(2,2) G(2,3) UM GM(1) CM(1) GM(2) "
           "CM(2) ALPHA A"},
          {"RBE3,1\n", "EID 2 REFGRID REFC WT(1) C(1) G(1,1)"},
          {"CORD1R,1,2,3,4,5\n", "CID(1) G1(1) G2(1) G3(1) CID(2) G1(2) G2(2) G3(2)"},
          {"CBAR,1,1,1,2,9,,,1\n", "EID PID GA GB G0 X2 X3 F PA PB W1A W2A W3A W1B W2B W3B"},
          {"GRID,1\n+,9\n", "ID CP X1 X2 X3 CD PS SEID 9"},
          {"PLOAD4,1,2\n", "1 2"}})
        EXPECT_EQ(Labels(folder.Read(deck).Cards().at(0)), labels) << deck;
}

} // namespace
