// Which files are opened, and what is left in them.

#include "sample_file.h"

#include "support/Threads.h"

namespace {

testing::AssertionResult IsRefused(qzString const& path) {
    QZDT_DBHandle database;
    QZDT_Result const opened = Store().OpenDatabase(path, database);
    if (opened)
        (void)Store().CloseDatabase(database);
    return Refused(opened) << path;
}

TEST(DatabaseFiles, AreNotTakenFromOthers) {
    TemporaryFolder const folder;
    qzString const text = folder.GetFile("text");
    WriteFile(text,
              "SQLite format 3: a text about it, longer than the header that is looked at in files of ours.");
    qzString const shortText = folder.GetFile("short");
    WriteFile(shortText, "x");
    qzString const others = folder.GetFile("others");
    OtherProgram owner(others);
    owner.Run("PRAGMA journal_mode = WAL; CREATE TABLE chunk(key INTEGER PRIMARY KEY, data BLOB)");
    for (qzString const& path : {text, shortText, others}) {
        std::string const before = ReadFile(path);
        EXPECT_TRUE(IsRefused(path));
        EXPECT_EQ(ReadFile(path), before);
    }
    owner.Run("INSERT INTO chunk VALUES(1, x'00')");
}

TEST(DatabaseFiles, NeedAPathToAFile) {
    TemporaryFolder const folder;
    EXPECT_TRUE(IsRefused(""));
    EXPECT_TRUE(IsRefused(folder.GetFile("tables") + '\0' + "x"));
    EXPECT_TRUE(IsRefused(folder.GetFile("")));
    EXPECT_TRUE(IsRefused(folder.GetFile("missing/tables")));
    EXPECT_FALSE(std::filesystem::exists(folder.GetFile("tables")));
}

TEST(DatabaseFiles, AreMadeWhereThereIsNoneOrAnEmptyOne) {
    for (bool const isThere : {false, true}) {
        TemporaryFolder const folder;
        qzString const path = folder.GetFile("\u00e9");
        if (isThere)
            WriteFile(path, "");
        EXPECT_FALSE(IsRefused(path));
        std::filesystem::directory_iterator const files(folder.GetFile(""));
        EXPECT_EQ(std::distance(files, {}), 1) << "nothing is left beside a closed file";
        EXPECT_FALSE(IsRefused(path));
    }
}

TEST(DatabaseFiles, BelongToOneUserAtATime) {
    TemporaryFolder const folder;
    qzString const path = folder.GetFile("tables");
    MakeSampleFile(path);
    {
        OtherProgram reader(path);
        reader.Run("BEGIN; SELECT count(*) FROM chunk");
        EXPECT_TRUE(IsRefused(path));
    }
    QZDT_DBHandle database;
    ASSERT_TRUE(Done(Store().OpenDatabase(path, database)));
    EXPECT_TRUE(IsRefused(path));
    EXPECT_TRUE(Done(Store().CloseDatabase(database)));
    EXPECT_FALSE(IsRefused(path));
}

TEST(Databases, AreUsedByDifferentThreadsAtOnce) {
    TemporaryFolder const folder;
    RunThreads(4, [&](unsigned int thread) {
        qzString const path = thread % 2 == 0 ? ":memory:" : folder.GetFile(std::to_string(thread).c_str());
        for (int round = 0; round < 5; ++round) {
            QZDT_DBHandle database;
            QZDT_DTSHandle set;
            QZDT_TableHandle table;
            ASSERT_TRUE(Done(Store().OpenDatabase(path, database)));
            ASSERT_TRUE(Done(Store().CreateTableSet(database, std::to_string(round), set)));
            ASSERT_TRUE(Done(Store().CreateTable(set, "", table)));
            ASSERT_TRUE(Done(Store().InsertColumn(table, QZDT_UINT, 0)));
            ASSERT_TRUE(Done(Store().SetColumn(table, 0, qzStlVector<unsigned int>(2000, thread))));
            qzStlVector<unsigned int> values;
            ASSERT_TRUE(Done(Store().GetColumn(table, 0, values)));
            ASSERT_EQ(values, qzStlVector<unsigned int>(2000, thread));
            ASSERT_TRUE(Done(Store().CloseDatabase(database)));
        }
    });
}

} // namespace
