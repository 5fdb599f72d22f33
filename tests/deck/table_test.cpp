#include "check/Finding.h"
#include "deck/DeckFolder.h"
#include "descriptor/Allowables.h"
#include "tables/list_table.h"
#include "tables/table_store.h"
#include "tables/table_text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace {

using namespace qzDeck;
using namespace qzDescriptor;

std::string Csv(Card const& card) {
    std::ostringstream out;
    WriteCsv(out, TextsOf(ListColumns(*card.Kind().definition), ListRows(card)));
    return out.str();
}

TEST(Table, HasARowForEachPartOfAList) {
    DeckFolder const folder;
    struct Case {
        std::string deck;
        std::string csv;
    };
    for (auto const& [deck, csv] :
         {Case{"PCOMP,2,,,,,,,\n+,21,.001,0.,yes,,,,\n+,,,45.,,22,2,X,NO\n",
               "MID,T,THETA,SOUT\n21,0.001,0,YES\n,,45,NO\n22,2,0,NO\n"},
          {"LOAD,33,1.,1.35,31,,32,2.\n", "SI,LI\n1.35,31\n,32\n2,\n"},
          {"SPC1,42,123,7,1,THRU,999,8,THRU\n", "G,THRU\n7,\n1,999\n8,\n"},
          {"SPC1,42,123,THRU,9,THRU,,10,A\n", "G,THRU\n9,10\n"},
          {"RBE2,20,1,123,2,3000000000,1.2-5\n", "GM,THRU,ALPHA\n2,,\n,,\n,,1.2e-05\n"},
          {"RBE3,21,,9,123,1.,123,5,6\n+,.5,12,,8,UM,5,1\n", "WT,C,G\n1,123,5\n1,123,6\n0.5,12,8\n"},
          {"CORD1R,11,1,2,4,12,1,2,5\n", "CID,G1,G2,G3\n11,1,2,4\n12,1,2,5\n"},
          {"SPCADD,44\n", "S\n"}}) {
        Model const model = folder.Read(deck);
        EXPECT_EQ(Csv(model.Cards().front()), csv) << deck;
    }
}

TEST(Table, HasTypedColumnsUnderTheirDefinitions) {
    auto const model = Model::Read(OwnDeck("sampler.bdf")).value();
    for (Card const& card : model.Cards()) {
        Tabular const table = MakeTable(card);
        if (card.Kind().definition == nullptr) {
            EXPECT_EQ(table.GetColumnCount(), 0U) << card.Name();
            continue;
        }
        TabularDefinition const definition = MakeTableDefinition(*card.Kind().definition);
        ASSERT_EQ(table.GetColumnCount(), definition.GetColumnCount()) << card.Name();
        for (unsigned int column = 0; column < table.GetColumnCount(); ++column)
            EXPECT_EQ(table.GetBasicType(column), definition.GetColumnDefinition(column).GetValueBasicType())
                << card.Name() << column;
    }
}

bool IsRefused(Definition const& definition, Tabular const& table, unsigned int row, unsigned int column) {
    Value cell;
    EXPECT_TRUE(table.GetCellValue(row, column, cell));
    Allowables::EnforceGenericTestSentinel const enforced;
    return definition.GetAllowables().Test(cell) == 1;
}

using Refusals = std::set<std::tuple<Card const*, std::size_t, std::string>>;

void AddRefusals(Card const& card, Refusals& refusals) {
    TabularDefinition const definition = MakeTableDefinition(*card.Kind().definition);
    TableRows const rows = ListRows(card);
    Tabular const table = MakeTable(card);
    for (unsigned int column = 0; column < definition.GetColumnCount(); ++column) {
        Definition const& ofColumn = definition.GetColumnDefinition(column);
        for (unsigned int row = 0; row < rows.size(); ++row) {
            Value const* const value = rows[row][column];
            if (value != nullptr && IsRefused(ofColumn, table, row, column))
                refusals.emplace(&card, static_cast<std::size_t>(value - card.Values().data()),
                                 ofColumn.GetAllowables().GetFailureMessage());
        }
    }
}

TEST(Table, FindsTheViolationsThatFieldsTestedOneByOneShow) {
    DeckFolder const folder;
    std::string const more = "SPC1,1,1,-5,THRU,-2\nRBE3,2,,3,1,1.,1,-7,-8\n+,2.,1,-9\nLOAD,1,1.,1.,-1\n";
    Refusals expected;
    Refusals found;
    for (Model const& model : {Model::Read(OwnDeck("faults.bdf")).value(), folder.Read(more)}) {
        for (Finding const& finding : CheckFields(model)) {
            if (finding.message.starts_with("Input of") && MakeTable(*finding.card).GetColumnCount() > 0)
                expected.emplace(finding.card, finding.place, finding.message);
        }
        for (Card const& card : model.Cards()) {
            if (card.Kind().definition != nullptr)
                AddRefusals(card, found);
        }
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(expected.size(), 9U);
}

TEST(Table, QuotesInCsvWhatWouldReadOtherwise) {
    std::ostringstream out;
    WriteCsv(out, {{"A", "", "B C"}, {"x,y", "say \"so\"", "two\nlines"}});
    EXPECT_EQ(out.str(), "A,,B C\n\"x,y\",\"say \"\"so\"\"\",\"two\nlines\"\n");
}

ModelTable const& Named(std::vector<ModelTable> const& tables, std::string const& name) {
    return *std::find_if(tables.begin(), tables.end(),
                         [&](ModelTable const& table) { return table.name == name; });
}

TEST(ModelTables, HoldWhatBlanksStandFor) {
    DeckFolder const folder;
    auto const tables = MakeModelTables(folder.Read("GRDSET,,7,,,,,123\nGRID,1,,1.,2,X\nGRID,2,3,,,,4,5,6\n"
                                                    "CTRIA3,8,,1,2\nCBAR,9,5,1,2,3\nRBE2,6,1,1,2\n"));
    ASSERT_EQ(tables.size(), 3U);
    struct Case {
        char const* table;
        unsigned int column;
        char const* name;
        qzStlVector<int> cells;
    };
    for (auto const& [table, column, name, cells] : {Case{"GRID", 1, "CP", {7, 3}},
                                                     {"GRID", 6, "PS", {123, 5}},
                                                     {"CTRIA3", 1, "PID", {8}},
                                                     {"CTRIA3", 4, "G3", {0}},
                                                     {"CBAR", 3, "GB", {2}}}) {
        ModelTable const& found = Named(tables, table);
        EXPECT_EQ(found.columns[column].identifier.GetNameKey(), name);
        EXPECT_EQ(*found.data.GetColumnIntList(column), cells) << table << name;
    }
    EXPECT_EQ(*Named(tables, "GRID").data.GetColumnDoubleList(3), (qzStlVector<double>{2.0, 0.0}));
    EXPECT_EQ(Named(tables, "CBAR").columns.size(), 4U);
}

/// Whether each table of the model is in the file, after it was stored there under the name.
std::vector<bool> StoreAndCompare(Model const& model, std::string const& file, std::string const& set) {
    auto const tables = MakeModelTables(model);
    std::vector<bool> areEqual;
    QZDT_Result const stored = StoreTables(file, set, tables);
    EXPECT_TRUE(stored) << stored.GetMessage();
    QZDT_Result const compared = CompareWithStore(file, set, tables, areEqual);
    EXPECT_TRUE(compared) << compared.GetMessage();
    EXPECT_EQ(areEqual.size(), tables.size());
    return areEqual;
}

using Equal = std::vector<bool>;

TEST(TableStore, ReplacesTheSetOfTheNameAndNoOther) {
    if (!HasTableStore())
        GTEST_SKIP() << "built without SQLite";
    DeckFolder const folder;
    std::string const file = (folder.Path() / "model.db").string();
    Model const first = folder.Read("GRID,1,,1.\nCTRIA3,1,1,1,2,3\n");
    Model const second = folder.Read("GRID,1,,1.5\n");
    EXPECT_EQ(StoreAndCompare(first, file, "a"), Equal({true, true}));
    EXPECT_EQ(StoreAndCompare(first, file, "b"), Equal({true, true}));
    EXPECT_EQ(StoreAndCompare(second, file, "a"), Equal({true}));
    Equal areEqual;
    EXPECT_TRUE(CompareWithStore(file, "a", MakeModelTables(first), areEqual));
    EXPECT_EQ(areEqual, Equal({false, false}));
    EXPECT_TRUE(CompareWithStore(file, "b", MakeModelTables(first), areEqual));
    EXPECT_EQ(areEqual, Equal({true, true}));
    EXPECT_FALSE(CompareWithStore(file, "c", MakeModelTables(first), areEqual));
}

TEST(TableStore, RefusesAFileThatIsNoDatabase) {
    DeckFolder const folder;
    std::string const file = folder.Write("text.db", "This is a text, longer than the head of a database.\n");
    auto const size = std::filesystem::file_size(file);
    EXPECT_FALSE(StoreTables(file, "a", {}));
    EXPECT_EQ(std::filesystem::file_size(file), size);
}

TEST(TableStore, HoldsEveryDeckAsItIs) {
    if (!HasTableStore())
        GTEST_SKIP() << "built without SQLite";
    DeckFolder const folder;
    for (std::string const& deck : AllDecks()) {
        auto const areEqual =
            StoreAndCompare(Model::Read(deck).value(), (folder.Path() / "model.db").string(), deck);
        EXPECT_EQ(std::count(areEqual.begin(), areEqual.end(), false), 0) << deck;
    }
}

} // namespace
