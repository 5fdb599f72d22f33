// Every allocation of an operation fails once: nothing is thrown, and nothing has changed.

#include "store_support.h"

#include "support/FailingAllocation.h"

#include <functional>

namespace {

TEST(StoreWithoutMemory, StaysAsItIs) {
    qzString const text = "a text that needs memory of its own";
    QZDT_DBHandle database;
    QZDT_DTSHandle set;
    QZDT_TableHandle table;
    ASSERT_TRUE(Store().OpenDatabase(":memory:", database) && Store().CreateTableSet(database, text, set) &&
                Store().CreateTable(set, text, table) && Store().InsertColumn(table, QZDT_STRING, 0) &&
                Store().ResizeRows(table, 510) && Store().SetCell(table, 505, 0, QZ_DT_Variant(text)));
    qzStlVector<qzString> before;
    ASSERT_TRUE(Done(Store().GetColumn(table, 0, before)));

    qzString const name = text + text;
    QZ_DT_Variant const value(text);
    QZDT_ColumnIdentifier const identifier{1, text, 0, 0, 0};
    qzStlVector<unsigned int> const rows = {0, 505};
    qzStlVector<qzString> const values(600, "x");
    qzStlVector<qzString> texts;
    qzStlVector<QZDT_TableHandle> tables;
    QZDT_TableHandle made;
    QZ_DT_Variant cell;
    std::function<QZDT_Result()> const operations[] = {
        [&] { return Store().CreateTable(set, name, made); },
        [&] { return Store().GetTables(set, tables); },
        [&] { return Store().CloneTable(table, rows, made); },
        [&] { return Store().InsertColumn(table, QZDT_INT, 0); },
        [&] { return Store().RemoveColumn(table, 0); },
        [&] { return Store().SetColumn(table, 0, values); },
        [&] { return Store().GetColumn(table, 0, texts); },
        [&] { return Store().SetColumnIdentifier(table, 0, identifier); },
        [&] { return Store().ResizeRows(table, 1200); },
        [&] { return Store().RemoveRows(table, rows); },
        [&] { return Store().GetCell(table, 505, 0, cell); },
        [&] { return Store().SetCell(table, 3, 0, value); },
        [&] { return Store().DropTableSet(set); },
    };
    for (std::function<QZDT_Result()> const& operation : operations) {
        bool succeeded = false;
        for (unsigned int n = 1; !succeeded; ++n) {
            QZDT_Change const change(database);
            EXPECT_FALSE(FailsAtAllocation(n, [&] { succeeded = bool(operation()); })) << "it threw";
            qzStlVector<qzString> now;
            if (!succeeded) {
                ASSERT_TRUE(Done(Store().GetColumn(table, 0, now)));
                ASSERT_EQ(now, before);
            }
            ASSERT_LT(n, 2000U);
        }
    }
    EXPECT_TRUE(Done(Store().CloseDatabase(database)));
}

} // namespace
