#include "contract/table_contract.h"
#include "descriptor/ExternalTables.h"
#include "qzdistribution/QZ_DT_Mgr.h"
#include "support/TemporaryFolder.h"

#include <filesystem>

namespace qzDescriptor::test {
namespace {

QZ_DT_Mgr& Manager() { return QZ_DT_Mgr::GetInstance(); }

/// A database with a set for tables, closed at the end.
class Database {
public:
    explicit Database(qzString const& path = ":memory:") {
        QZDT_Result const opened = Manager().OpenDatabase(path, m_database);
        EXPECT_TRUE(opened) << opened.GetMessage();
        if (!Manager().OpenTableSet(m_database, "tests", m_set)) {
            EXPECT_TRUE(Manager().CreateTableSet(m_database, "tests", m_set));
        }
    }
    Database(Database const&) = delete;
    Database& operator=(Database const&) = delete;
    ~Database() { Close(); }

    void Close() { (void)Manager().CloseDatabase(m_database); }

    QZDT_DBHandle const& GetDB() const { return m_database; }
    QZDT_DTSHandle const& GetSet() const { return m_set; }
    Tabular MakeTable() const { return Tabular(m_database, m_set); }
    std::size_t CountTables() const {
        qzStlVector<QZDT_TableHandle> tables;
        EXPECT_TRUE(Manager().GetTables(m_set, tables));
        return tables.size();
    }

private:
    QZDT_DBHandle m_database;
    QZDT_DTSHandle m_set;
};

struct StoreInMemory {
    static constexpr bool s_ragged = true;
    Tabular MakeTable() { return m_database.MakeTable(); }
    Database m_database;
};

struct StoreInFile {
    static constexpr bool s_ragged = true;
    Tabular MakeTable() { return m_database.MakeTable(); }
    TemporaryFolder m_folder;
    Database m_database{m_folder.GetFile("tables")};
};

INSTANTIATE_TYPED_TEST_SUITE_P(ExternalInMemory, TableContract, StoreInMemory);
INSTANTIATE_TYPED_TEST_SUITE_P(ExternalInFile, TableContract, StoreInFile);

/// A column of each kind, of some length.
Tabular Fill(Tabular table) {
    TypesOf<ColumnTypes>::ForEach([&]<class List>(std::type_identity<List>) {
        table.InsertColumn(MakeContainer<List>(0), table.GetColumnCount());
    });
    EXPECT_EQ(table.GetRowCount(), 3u);
    return table;
}

TEST(ExternalTable, KnowsItsHandlesAndIdentifiers) {
    Database database;
    Tabular table = Fill(database.MakeTable());
    EXPECT_TRUE(table.UsesExternalStorage());
    EXPECT_EQ(table.GetDBHandle(), database.GetDB());
    EXPECT_EQ(table.GetDTSHandle(), database.GetSet());
    EXPECT_TRUE(GetTableHandle(table).IsValid());

    unsigned int column = 77;
    Identifier identifier;
    EXPECT_FALSE(table.GetIdentifierFromColumn(1, identifier));
    EXPECT_TRUE(SetColumnIdentifier(table, 1, Identifier("T", 2, 3, 4)));
    EXPECT_TRUE(SetColumnIdentifier(table, 2, Identifier(-7)));
    EXPECT_FALSE(SetColumnIdentifier(table, 99, Identifier("T")));
    table.InsertColumn(qzStlVector<int>{}, 0); // they move with their columns
    EXPECT_TRUE(table.GetColumnFromIdentifier(Identifier("T"), column));
    EXPECT_EQ(column, 2u);
    EXPECT_TRUE(table.GetIdentifierFromColumn(3, identifier));
    EXPECT_EQ(identifier.GetNumericKey(), -7);
    EXPECT_FALSE(table.GetColumnFromIdentifier(Identifier("E"), column));
    Tabular const copy(table);
    EXPECT_EQ(copy, table);
    EXPECT_TRUE(copy.GetColumnFromIdentifier(Identifier(-7), column));
    Tabular other(table);
    EXPECT_TRUE(SetColumnIdentifier(other, 2, Identifier("E")));
    EXPECT_NE(other, table);
}

TEST(ExternalTable, GoesBetweenMemoryAndStoreInOneCall) {
    Database database, another;
    Tabular ragged = Fill(Tabular());
    ragged.InsertColumn(EntityList(EntityFullType(), {5, 6}, {}), 2); // empty beside full ones
    Tabular const stored = CopyToStore(ragged, database.GetDB(), database.GetSet());
    EXPECT_TRUE(stored.UsesExternalStorage());
    EXPECT_EQ(stored, ragged);
    Tabular elsewhere = CopyToStore(stored, another.GetDB(), QZDT_DTSHandle());
    EXPECT_EQ(elsewhere.GetDBHandle(), another.GetDB());
    EXPECT_EQ(elsewhere, ragged);
    elsewhere.ClearRows();
    EXPECT_EQ(stored, ragged); // copies are deep
    Tabular const back = CopyToMemory(stored);
    EXPECT_FALSE(back.UsesExternalStorage());
    EXPECT_EQ(back, ragged);
    EXPECT_FALSE(HasStorage(CopyToStore(ragged, QZDT_DBHandle(7, 7), QZDT_DTSHandle())));
}

TEST(ExternalTable, WithoutANameEndsWithItsTabular) {
    Database database;
    {
        Tabular table = Fill(database.MakeTable());
        Tabular const copy(table), rows(table, {1, 1});
        EXPECT_EQ(database.CountTables(), 3u);
        table = copy;
        EXPECT_EQ(database.CountTables(), 3u);
        EXPECT_EQ(table, copy);
    }
    EXPECT_EQ(database.CountTables(), 0u);
}

TEST(ExternalTable, WithANameOutlivesTheProcess) {
    TemporaryFolder const folder;
    qzString const file = folder.GetFile("tables");
    Tabular expected = Fill(Tabular());
    {
        Database database(file);
        Tabular table = CopyToStore(expected, database.GetDB(), database.GetSet());
        Tabular second = database.MakeTable();
        EXPECT_TRUE(NameTable(table, "stress"));
        EXPECT_FALSE(NameTable(second, "stress"));
        EXPECT_FALSE(NameTable(second, ""));
        SetColumnIdentifier(table, 0, Identifier("T"));
    }
    Database database(file);
    EXPECT_EQ(database.CountTables(), 1u);
    Tabular const table = OpenTable(database.GetDB(), database.GetSet(), "stress");
    EXPECT_EQ(table, expected);
    qzString name;
    EXPECT_TRUE(GetTableName(table, name));
    EXPECT_EQ(name, "stress");
    unsigned int column = 7;
    EXPECT_TRUE(table.GetColumnFromIdentifier(Identifier("T"), column));
    EXPECT_EQ(column, 0u);
    EXPECT_FALSE(HasStorage(OpenTable(database.GetDB(), database.GetSet(), "strain")));
    EXPECT_FALSE(NameTable(expected, "in memory"));
}

TEST(ExternalTable, FailsQuietlyWhenItsDatabaseIsClosed) {
    Database database;
    Tabular table = Fill(database.MakeTable());
    database.Close();
    Value value(true);
    EXPECT_EQ(table.GetRowCount(), 0u);
    EXPECT_FALSE(table.GetCellValue(0, 0, value));
    EXPECT_FALSE(table.SetCellValue(0, 0, value));
    EXPECT_FALSE(table.SetColumn(0, qzStlVector<bool>{true}));
    EXPECT_EQ(table.InsertColumn(BT_INT, CT_SCALAR, EntityFullType(), 0), Tabular::s_notInserted);
    EXPECT_FALSE(table.RemoveRows({0}) || table.RemoveColumn(0));
    EXPECT_EQ(table.GetColumnCount(), 0u); // what the store knows of it
    Tabular const copy(table);
    EXPECT_FALSE(HasStorage(copy));
    EXPECT_FALSE(HasStorage(Tabular(database.GetDB(), database.GetSet())));
}

// What the store cannot do in full it does not do at all.
TEST(ExternalTable, StaysAsItIsWhenTheStoreIsFull) {
    TemporaryFolder const folder;
    qzString const file = folder.GetFile("tables");
    Database database(file);
    Tabular table = Fill(database.MakeTable());
    Tabular const before = CopyToMemory(table);
    ASSERT_TRUE(Manager().Flush(database.GetDB()));
    ASSERT_TRUE(Manager().SetSizeLimit(database.GetDB(), std::filesystem::file_size(file) + 65536));
    qzStlVector<double> const large(1'000'000, 0.1);
    EXPECT_FALSE(table.SetColumn(3, large));
    EXPECT_EQ(table.InsertColumn(large, 1), 0u);
    EXPECT_EQ(table, before);
    ASSERT_TRUE(Manager().SetSizeLimit(database.GetDB(), 0));
    EXPECT_TRUE(table.SetColumn(3, large));
    EXPECT_EQ(table.GetRowCount(), 1'000'000u);
}

} // namespace
} // namespace qzDescriptor::test
