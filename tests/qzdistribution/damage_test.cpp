// Files that were ours: whatever has become of them, they open or they do not, and what they give is ended.

#include "sample_file.h"

namespace {

/// Reads and changes everything there is; whether all of it succeeded.
bool UseEverything(qzString const& path) {
    QZDT_DBHandle database;
    if (!Store().OpenDatabase(path, database))
        return false;
    bool succeeded = true;
    qzStlVector<QZDT_DTSHandle> sets;
    EXPECT_TRUE(Done(Store().GetTableSets(database, sets)));
    for (QZDT_DTSHandle const& set : sets) {
        qzStlVector<QZDT_TableHandle> tables;
        EXPECT_TRUE(Done(Store().GetTables(set, tables)));
        for (QZDT_TableHandle const& table : tables) {
            Cells cells;
            QZ_DT_Variant cell;
            QZDT_TableHandle copy;
            for (unsigned int column = 0; column < Store().GetColumnCount(table); ++column) {
                succeeded &= bool(GetCells(table, column, cells));
                succeeded &= bool(Store().GetCell(table, 600, column, cell));
                succeeded &= bool(Store().SetCell(table, 600, column, cell));
            }
            succeeded &= bool(Store().CloneTable(table, {3, 400, 650}, copy));
            succeeded &= bool(Store().RemoveRows(table, {0, 1, 650}));
        }
        succeeded &= bool(Store().DropTableSet(set));
    }
    succeeded &= bool(Store().CloseDatabase(database));
    return succeeded && sets.size() == 1;
}

class DamagedFile : public testing::Test {
protected:
    DamagedFile() {
        MakeSampleFile(m_sound);
        m_bytes = ReadFile(m_sound);
    }

    bool IsUsable(std::string const& bytes) {
        for (char const* suffix : {"", "-wal", "-shm", "-journal"})
            std::filesystem::remove(m_damaged + suffix);
        WriteFile(m_damaged, bytes);
        return UseEverything(m_damaged);
    }

    TemporaryFolder m_folder;
    qzString m_sound = m_folder.GetFile("sound");
    qzString m_damaged = m_folder.GetFile("damaged");
    std::string m_bytes;
};

TEST_F(DamagedFile, IsNeverUsableWhenItIsCutShort) {
    ASSERT_TRUE(IsUsable(m_bytes));
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (std::size_t pages = 1; pages * 4096 < m_bytes.size(); pages += 1 + random.Below(3))
        EXPECT_FALSE(IsUsable(m_bytes.substr(0, pages * 4096 - random.Below(2) * random.Below(4096))))
            << pages;
}

TEST_F(DamagedFile, OpensOrDoesNotWithFlippedBits) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    unsigned int usable = 0;
    unsigned int const rounds = 300;
    for (unsigned int round = 0; round < rounds; ++round) {
        std::string bytes = m_bytes;
        for (unsigned int flips = 1 + random.Below(40); flips > 0; --flips) {
            // Half of them in the first pages, where the catalog is.
            auto const size = static_cast<unsigned int>(random.Chance(2) ? bytes.size() : 8 * 4096);
            bytes[random.Below(size)] ^= static_cast<char>(1 << random.Below(8));
        }
        usable += IsUsable(bytes) ? 1 : 0;
    }
    EXPECT_GT(usable, 0U) << "values may differ where nothing else does";
    EXPECT_LT(usable, rounds);
}

TEST_F(DamagedFile, IsNotUsableWhenItsPartsDoNotFit) {
    char const* const damages[] = {
        "CREATE TRIGGER t AFTER INSERT ON chunk BEGIN DELETE FROM data_table; END",
        "CREATE TABLE more(x)",
        "DROP TABLE column_identifier",
        "PRAGMA application_id = 1",
        "PRAGMA user_version = 2",
        "UPDATE data_column SET position = 5 WHERE position = 2",
        "UPDATE data_column SET position = -1 WHERE position = 0",
        "UPDATE data_column SET type = 9 WHERE position = 0",
        "UPDATE data_column SET type = 1 WHERE position = 7",
        "UPDATE data_column SET table_id = 99 WHERE position = 7",
        "UPDATE data_column SET id = 3000000000 WHERE id = 8",
        "UPDATE data_column SET row_count = 4294967295 WHERE position = 3",
        "UPDATE data_column SET row_count = 1200 WHERE position = 4",
        "UPDATE data_column SET row_count = -1 WHERE position = 4",
        "UPDATE data_table SET set_id = 7",
        "UPDATE data_table SET name = x'00'",
        "UPDATE data_table SET id = 0 WHERE id = 1",
        "UPDATE table_set SET name = x''",
        "INSERT INTO table_set SELECT 5, name FROM table_set",
        "INSERT INTO column_identifier VALUES(99, 1, x'', 0, 0, 0)",
        "UPDATE column_identifier SET number = 5000000000",
        "UPDATE column_entity_type SET column_id = 1 WHERE column_id = 8",
        "DELETE FROM chunk WHERE key = (SELECT max(key) FROM chunk)",
        "UPDATE chunk SET data = x'' WHERE key >> 32 = 4",
        "UPDATE chunk SET data = 17 WHERE key >> 32 = 4",
        "UPDATE chunk SET data = zeroblob(length(data) + 1)",
        "UPDATE chunk SET data = CAST(x'FFFFFFFF' || substr(data, 5) AS BLOB) WHERE key >> 32 = 5",
    };
    for (char const* damage : damages) {
        WriteFile(m_damaged, m_bytes);
        OtherProgram(m_damaged).Run(damage);
        EXPECT_FALSE(IsUsable(ReadFile(m_damaged))) << damage;
    }
}

} // namespace
