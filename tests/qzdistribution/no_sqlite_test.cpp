#include "store_support.h"

TEST(LibraryWithoutSqlite, OpensNothingAndSaysWhy) {
    for (char const* path : {":memory:", "tables"}) {
        QZDT_DBHandle database;
        QZDT_Result const opened = Store().OpenDatabase(path, database);
        EXPECT_FALSE(opened);
        EXPECT_NE(opened.GetMessage().find("without SQLite"), qzString::npos);
        EXPECT_FALSE(database.IsValid() || Store().IsOpen(database));
    }
}
