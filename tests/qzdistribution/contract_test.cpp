// What every database keeps to, in memory or in a file.

#include "store_support.h"

#include <functional>
#include <set>

namespace {

class OpenDatabase : public testing::TestWithParam<bool> {
protected:
    OpenDatabase() {
        EXPECT_TRUE(Done(Store().OpenDatabase(m_path, m_database)));
        EXPECT_TRUE(Done(Store().CreateTableSet(m_database, "set", m_set)));
        EXPECT_TRUE(Done(Store().CreateTable(m_set, "table", m_table)));
    }
    ~OpenDatabase() override {
        if (Store().IsOpen(m_database)) {
            EXPECT_TRUE(Done(Store().CloseDatabase(m_database)));
        }
    }

    void FillColumn(QZDT_Type type, unsigned int rows) {
        Random random;
        EXPECT_TRUE(Done(Store().InsertColumn(m_table, type, 0)));
        EXPECT_TRUE(Done(SetCells(m_table, 0, type, RandomCells(type, rows, random))));
    }

    qzStlVector<int> GetInts(unsigned int column) {
        qzStlVector<int> values;
        EXPECT_TRUE(Done(Store().GetColumn(m_table, column, values)));
        return values;
    }

    bool IsInFile() const { return GetParam(); }
    void Reopen() {
        ASSERT_TRUE(Done(Store().CloseDatabase(m_database)));
        ASSERT_TRUE(Done(Store().OpenDatabase(m_path, m_database)));
        ASSERT_TRUE(Done(Store().OpenTableSet(m_database, "set", m_set)));
    }

    TemporaryFolder m_folder;
    qzString m_path = IsInFile() ? m_folder.GetFile("tables") : ":memory:";
    QZDT_DBHandle m_database;
    QZDT_DTSHandle m_set;
    QZDT_TableHandle m_table;
};

INSTANTIATE_TEST_SUITE_P(InMemoryAndInAFile, OpenDatabase, testing::Bool());

TEST_P(OpenDatabase, FindsSetsAndTablesByNamesOfAnyBytes) {
    using namespace std::string_literals;
    qzStlVector<QZDT_DTSHandle> sets = {m_set};
    for (qzString const& name : {"zz"s, "a\0b"s, "a"s, "\xFF"s}) {
        QZDT_DTSHandle made;
        ASSERT_TRUE(Done(Store().CreateTableSet(m_database, name, made)));
        sets.push_back(made);
        QZDT_DTSHandle found;
        EXPECT_TRUE(Refused(Store().CreateTableSet(m_database, name, found)));
        EXPECT_FALSE(found.IsValid());
        EXPECT_TRUE(Done(Store().OpenTableSet(m_database, name, found)));
        EXPECT_EQ(found, made);
        QZDT_TableHandle table;
        QZDT_TableHandle foundTable;
        EXPECT_TRUE(Done(Store().CreateTable(made, name, table)));
        EXPECT_TRUE(Refused(Store().CreateTable(made, name, foundTable)));
        EXPECT_TRUE(Done(Store().OpenTable(made, name, foundTable)));
        EXPECT_EQ(foundTable, table);
        qzString text;
        EXPECT_TRUE(Done(Store().GetName(table, text)));
        EXPECT_EQ(text, name);
        QZDT_DTSHandle owner;
        QZDT_DBHandle database;
        EXPECT_TRUE(Done(Store().GetTableSet(table, owner)));
        EXPECT_EQ(owner, made);
        EXPECT_TRUE(Done(Store().GetDatabase(made, database)));
        EXPECT_EQ(database, m_database);
    }
    qzStlVector<QZDT_DTSHandle> listed;
    EXPECT_TRUE(Done(Store().GetTableSets(m_database, listed)));
    EXPECT_EQ(listed, sets);
    EXPECT_TRUE(Refused(Store().CreateTableSet(m_database, "", m_set)));
    EXPECT_TRUE(Refused(Store().OpenTable(m_set, "none", m_table)));
}

TEST_P(OpenDatabase, HoldsTablesWithoutANameUntilItIsClosed) {
    qzStlVector<QZDT_TableHandle> made(3, m_table);
    EXPECT_TRUE(Store().CreateTable(m_set, "", made[1]) && Store().CreateTable(m_set, "", made[2]));
    EXPECT_TRUE(Refused(Store().OpenTable(m_set, "", m_table)));
    EXPECT_TRUE(Refused(Store().SetName(made[1], "table"))) << "which is taken";
    EXPECT_TRUE(Done(Store().SetName(made[1], "kept")));
    EXPECT_TRUE(Done(Store().SetName(made[0], "")));
    EXPECT_TRUE(Done(Store().SetName(made[1], "table"))) << "which is free again";
    qzStlVector<QZDT_TableHandle> listed;
    EXPECT_TRUE(Done(Store().GetTables(m_set, listed)));
    EXPECT_EQ(listed, made);
    if (!IsInFile())
        return;
    Reopen();
    EXPECT_TRUE(Done(Store().GetTables(m_set, listed)));
    EXPECT_EQ(listed.size(), 1U);
    EXPECT_TRUE(Done(Store().OpenTable(m_set, "table", m_table)));
}

struct Case {
    char const* name;
    std::function<QZDT_Result(QZDT_TableHandle const&)> run;
};

std::vector<Case> TableOperations() {
    static qzString s_name;
    static QZDT_DTSHandle s_set;
    static QZDT_TableHandle s_copy;
    static qzStlVector<int> s_ints;
    static QZDT_ColumnIdentifier s_identifier;
    static QZDT_EntityType s_type;
    static QZ_DT_Variant s_cell;
    return {
        {"name", [](auto& table) { return Store().GetName(table, s_name); }},
        {"set name", [](auto& table) { return Store().SetName(table, "new"); }},
        {"set", [](auto& table) { return Store().GetTableSet(table, s_set); }},
        {"clone", [](auto& table) { return Store().CloneTable(table, s_copy); }},
        {"clone rows", [](auto& table) { return Store().CloneTable(table, {0}, s_copy); }},
        {"insert", [](auto& table) { return Store().InsertColumn(table, QZDT_INT, 0); }},
        {"remove", [](auto& table) { return Store().RemoveColumn(table, 0); }},
        {"move", [](auto& table) { return Store().MoveColumn(table, 0, 1); }},
        {"set column", [](auto& table) { return Store().SetColumn(table, 0, s_ints); }},
        {"get column", [](auto& table) { return Store().GetColumn(table, 0, s_ints); }},
        {"set identifier", [](auto& table) { return Store().SetColumnIdentifier(table, 0, s_identifier); }},
        {"get identifier", [](auto& table) { return Store().GetColumnIdentifier(table, 0, s_identifier); }},
        {"remove identifier", [](auto& table) { return Store().RemoveColumnIdentifier(table, 0); }},
        {"set entity type", [](auto& table) { return Store().SetColumnEntityType(table, 0, s_type); }},
        {"get entity type", [](auto& table) { return Store().GetColumnEntityType(table, 0, s_type); }},
        {"resize", [](auto& table) { return Store().ResizeRows(table, 7); }},
        {"resize column", [](auto& table) { return Store().ResizeRows(table, 0, 7); }},
        {"clear", [](auto& table) { return Store().ClearRows(table); }},
        {"reserve", [](auto& table) { return Store().ReserveRows(table, 7); }},
        {"remove rows", [](auto& table) { return Store().RemoveRows(table, {0}); }},
        {"remove rows of column", [](auto& table) { return Store().RemoveRows(table, 0, {0}); }},
        {"get cell", [](auto& table) { return Store().GetCell(table, 0, 0, s_cell); }},
        {"set cell", [](auto& table) { return Store().SetCell(table, 0, 0, QZ_DT_Variant(1)); }},
        {"drop", [](auto& table) { return Store().DropTable(table); }},
    };
}

void ExpectNothing(QZDT_TableHandle const& table) {
    for (Case const& operation : TableOperations())
        EXPECT_TRUE(Refused(operation.run(table))) << operation.name;
    EXPECT_EQ(Store().GetColumnCount(table), 0U);
    EXPECT_EQ(Store().GetColumnType(table, 0), QZDT_NONE);
    EXPECT_EQ(Store().GetRowCount(table), 0U);
}

void ExpectNothing(QZDT_DTSHandle const& set) {
    qzString name;
    QZDT_DBHandle database;
    QZDT_TableHandle table;
    qzStlVector<QZDT_TableHandle> tables;
    EXPECT_TRUE(Refused(Store().GetName(set, name)));
    EXPECT_TRUE(Refused(Store().GetDatabase(set, database)));
    EXPECT_TRUE(Refused(Store().CreateTable(set, "new", table)));
    EXPECT_TRUE(Refused(Store().OpenTable(set, "table", table)));
    EXPECT_TRUE(Refused(Store().GetTables(set, tables)));
    EXPECT_TRUE(Refused(Store().DropTableSet(set)));
    EXPECT_FALSE(database.IsValid() || table.IsValid());
}

void ExpectNothing(QZDT_DBHandle const& database) {
    QZDT_DTSHandle set;
    qzStlVector<QZDT_DTSHandle> sets;
    EXPECT_FALSE(Store().IsOpen(database));
    EXPECT_TRUE(Refused(Store().CreateTableSet(database, "new", set)));
    EXPECT_TRUE(Refused(Store().OpenTableSet(database, "set", set)));
    EXPECT_TRUE(Refused(Store().GetTableSets(database, sets)));
    EXPECT_TRUE(Refused(Store().SetSizeLimit(database, 0)));
    EXPECT_TRUE(Refused(Store().Flush(database)));
    EXPECT_TRUE(Refused(Store().BeginChange(database)));
    EXPECT_TRUE(Refused(Store().CommitChange(database)));
    EXPECT_TRUE(Refused(Store().CancelChange(database)));
    EXPECT_TRUE(Refused(QZDT_Change(database).Commit()));
    EXPECT_TRUE(Refused(Store().CloseDatabase(database)));
    EXPECT_FALSE(set.IsValid());
}

TEST_P(OpenDatabase, RecognisesHandlesThatNameNothing) {
    ExpectNothing(QZDT_TableHandle());
    ExpectNothing(QZDT_DTSHandle());
    ExpectNothing(QZDT_DBHandle());
    ExpectNothing(QZDT_DBHandle(m_database.GetGeneration(), 1));
    ExpectNothing(QZDT_TableHandle(m_table.GetGeneration() + 1, m_table.GetIndex()));
    ExpectNothing(QZDT_TableHandle(m_table.GetGeneration(), m_table.GetIndex() + 1));

    QZDT_TableHandle const droppedTable = m_table;
    EXPECT_TRUE(Done(Store().DropTable(m_table)));
    EXPECT_TRUE(Done(Store().CreateTable(m_set, "table", m_table)));
    EXPECT_NE(m_table, droppedTable);
    ExpectNothing(droppedTable);

    QZDT_DTSHandle const droppedSet = m_set;
    EXPECT_TRUE(Done(Store().DropTableSet(m_set)));
    ExpectNothing(m_table);
    EXPECT_TRUE(Done(Store().CreateTableSet(m_database, "set", m_set)));
    ExpectNothing(droppedSet);

    EXPECT_TRUE(Done(Store().CloseDatabase(m_database)));
    ExpectNothing(m_database);
    ExpectNothing(m_set);
    ExpectNothing(m_table);
}

TEST_P(OpenDatabase, ForgetsTheHandlesOfCancelledTablesForGood) {
    QZDT_TableHandle cancelled;
    {
        QZDT_Change const change(m_database);
        EXPECT_TRUE(Done(Store().CreateTable(m_set, "", cancelled)));
        EXPECT_TRUE(Done(Store().DropTable(m_table)));
        ExpectNothing(m_table);
    }
    QZDT_TableHandle next;
    EXPECT_TRUE(Done(Store().CreateTable(m_set, "", next)));
    EXPECT_NE(next, cancelled);
    ExpectNothing(cancelled);
    EXPECT_TRUE(Done(Store().InsertColumn(m_table, QZDT_INT, 0))) << "its drop was cancelled";
}

TEST_P(OpenDatabase, RefusesOtherTypesAndMissingPlacesAndLeavesOutputs) {
    FillColumn(QZDT_DOUBLE, 600);
    qzStlVector<int> ints = {1, 2};
    QZ_DT_Variant cell(7);
    EXPECT_TRUE(Refused(Store().GetColumn(m_table, 0, ints)));
    EXPECT_TRUE(Refused(Store().GetColumn(m_table, 1, ints)));
    EXPECT_TRUE(Refused(Store().SetColumn(m_table, 0, ints)));
    EXPECT_TRUE(Refused(Store().GetCell(m_table, 600, 0, cell)));
    EXPECT_TRUE(Refused(Store().GetCell(m_table, 0, 1, cell)));
    EXPECT_TRUE(Refused(Store().SetCell(m_table, 0, 0, cell))) << "an int into doubles";
    EXPECT_TRUE(Refused(Store().SetCell(m_table, 0, 0, QZ_DT_Variant()))) << "nothing";
    EXPECT_TRUE(Refused(Store().SetCell(m_table, 600, 0, QZ_DT_Variant(1.0))));
    EXPECT_TRUE(Refused(Store().InsertColumn(m_table, QZDT_NONE, 0)));
    EXPECT_TRUE(Refused(Store().InsertColumn(m_table, static_cast<QZDT_Type>(9), 0)));
    EXPECT_TRUE(Refused(Store().RemoveColumn(m_table, 1)));
    EXPECT_TRUE(Refused(Store().MoveColumn(m_table, 1, 0)));
    EXPECT_TRUE(Refused(Store().RemoveRows(m_table, {})));
    EXPECT_TRUE(Refused(Store().RemoveRows(m_table, {600})));
    EXPECT_TRUE(Refused(Store().RemoveRows(m_table, {2, 1})));
    EXPECT_EQ(ints, (qzStlVector<int>{1, 2}));
    EXPECT_EQ(cell, QZ_DT_Variant(7));
    EXPECT_EQ(Store().GetRowCount(m_table), 600U);
}

TEST_P(OpenDatabase, KeepsCellsThatNeedMoreMemoryThanItHas) {
    unsigned int const rowCount = 20'000;
    unsigned int const stride = 490; // another chunk for almost every cell
    EXPECT_TRUE(Done(Store().InsertColumn(m_table, QZDT_STRING, 0)));
    EXPECT_TRUE(Done(Store().ResizeRows(m_table, rowCount)));
    qzStlVector<qzString> expected(rowCount);
    for (char const letter : {'a', 'b'}) {
        for (unsigned int row = 0; row < rowCount; row += stride) {
            expected[row] = qzString(1'000'000 + row, letter);
            ASSERT_TRUE(Done(Store().SetCell(m_table, row, 0, QZ_DT_Variant(expected[row]))));
        }
    }
    qzStlVector<qzString> texts;
    ASSERT_TRUE(Done(Store().GetColumn(m_table, 0, texts)));
    EXPECT_TRUE(texts == expected);
}

TEST_P(OpenDatabase, ChangesNothingWhenItIsFull) {
    EXPECT_TRUE(Done(Store().InsertColumn(m_table, QZDT_INT, 0)));
    EXPECT_TRUE(Done(Store().SetColumn(m_table, 0, qzStlVector<int>{1, 2, 3})));
    EXPECT_TRUE(Done(Store().SetCell(m_table, 1, 0, QZ_DT_Variant(20))));
    qzStlVector<int> const before = {1, 20, 3};
    ASSERT_TRUE(Done(Store().SetSizeLimit(m_database, 200'000)));

    EXPECT_TRUE(Refused(Store().SetColumn(m_table, 0, qzStlVector<int>(100'000, 7))));
    EXPECT_EQ(GetInts(0), before);
    EXPECT_TRUE(Refused(Store().ResizeRows(m_table, 1'000'000)));
    EXPECT_EQ(GetInts(0), before);

    QZDT_Change change(m_database);
    EXPECT_TRUE(Done(Store().SetCell(m_table, 0, 0, QZ_DT_Variant(-1))));
    EXPECT_TRUE(Refused(Store().ResizeRows(m_table, 1'000'000)));
    QZDT_Result const committed = change.Commit();
    EXPECT_EQ(GetInts(0), committed ? (qzStlVector<int>{-1, 20, 3}) : before)
        << "all of the change or nothing";

    EXPECT_TRUE(Done(Store().SetSizeLimit(m_database, 0)));
    EXPECT_TRUE(Done(Store().SetColumn(m_table, 0, qzStlVector<int>(100'000, 7))));
    EXPECT_EQ(GetInts(0), qzStlVector<int>(100'000, 7));
}

TEST_P(OpenDatabase, KeepsCellsThatCannotBeWrittenYet) {
    EXPECT_TRUE(Done(Store().InsertColumn(m_table, QZDT_STRING, 0)));
    EXPECT_TRUE(Done(Store().ResizeRows(m_table, 3)));
    ASSERT_TRUE(Done(Store().SetSizeLimit(m_database, 1)));
    QZ_DT_Variant const large(qzString(100'000, 'x'));
    EXPECT_TRUE(Done(Store().SetCell(m_table, 2, 0, large)));
    EXPECT_TRUE(Refused(Store().Flush(m_database)));
    EXPECT_TRUE(Refused(Store().RemoveRows(m_table, {0}))) << "which would come after the cell";
    EXPECT_TRUE(Done(Store().SetSizeLimit(m_database, 0)));
    EXPECT_TRUE(Done(Store().RemoveRows(m_table, {0})));
    QZ_DT_Variant cell;
    EXPECT_TRUE(Done(Store().GetCell(m_table, 1, 0, cell)));
    EXPECT_EQ(cell, large);
}

TEST(EntityTypeTags, TellTypesApartWhateverTheirTopology) {
    QZDT_EntityType const types[] = {{1, 0, "", "", 0},  {2, 0, "", "", 0},  {1, 2, "", "", 0},
                                     {1, 0, "1", "", 0}, {0, 0, "a", "", 0}, {0, 0, "a", "b", 0}};
    std::set<unsigned int> tags;
    for (QZDT_EntityType type : types) {
        unsigned int const tag = Store().GetTagForTableEntityType(type);
        EXPECT_TRUE(tag != 0 && tags.insert(tag).second);
        type.topology = 3;
        EXPECT_EQ(Store().GetTagForTableEntityType(type), tag);
    }
    EXPECT_EQ(Store().GetTagForTableEntityType({}), 0U);
    EXPECT_EQ(Store().GetTagForTableEntityType({0, 5, "", "x", 1}), 0U);
}

} // namespace
