// What other processes find in a file, however its last user ended.

#include "sample_file.h"

#include <chrono>
#include <functional>
#include <thread>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Runs a body in a process of its own, which ends by itself or by the body.
pid_t Start(std::function<bool()> const& body) {
    pid_t const process = fork();
    if (process == 0)
        _exit(body() ? 0 : 1);
    return process;
}

bool Succeeds(std::function<bool()> const& body) {
    int status = 0;
    waitpid(Start(body), &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

QZDT_TableHandle OpenCounters(qzString const& path, QZDT_DBHandle& database) {
    QZDT_DTSHandle set;
    QZDT_TableHandle table;
    EXPECT_TRUE(Done(Store().OpenDatabase(path, database)));
    if (Store().OpenTableSet(database, "set", set)) {
        EXPECT_TRUE(Done(Store().OpenTable(set, "counters", table)));
        return table;
    }
    QZDT_Change change(database);
    EXPECT_TRUE(Done(Store().CreateTableSet(database, "set", set)));
    EXPECT_TRUE(Done(Store().CreateTable(set, "counters", table)));
    for (unsigned int column = 0; column < 3; ++column)
        EXPECT_TRUE(Done(Store().InsertColumn(table, QZDT_INT, column)));
    EXPECT_TRUE(Done(Store().ResizeRows(table, 1)));
    EXPECT_TRUE(Done(change.Commit()));
    return table;
}

/// Writes state after state for ever: every row of every column is the number of the state, and the number of
/// rows depends on it.
bool WriteStates(qzString const& path) {
    QZDT_DBHandle database;
    QZDT_TableHandle const table = OpenCounters(path, database);
    QZ_DT_Variant last;
    int state = 0;
    bool going = Store().GetCell(table, 0, 0, last) && last.Get(state);
    while (going) {
        ++state;
        QZDT_Change change(database);
        qzStlVector<int> const values(1 + static_cast<unsigned int>(state) % 7 * 3000, state);
        for (unsigned int column = 0; column < 3; ++column)
            going = going && Store().SetColumn(table, column, values);
        going = going && change.Commit();
    }
    return false;
}

TEST(DeadProcesses, LeaveTheLastWholeState) {
    TemporaryFolder const folder;
    qzString const path = folder.GetFile("counters");
    Random random;
    SCOPED_TRACE(random.GetSeed());
    int lastState = 0;
    for (int round = 0; round < 12; ++round) {
        pid_t const process = Start([&] { return WriteStates(path); });
        std::this_thread::sleep_for(std::chrono::milliseconds(20 + random.Below(80)));
        kill(process, SIGKILL);
        int status = 0;
        waitpid(process, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "it ended by itself";

        QZDT_DBHandle database;
        QZDT_TableHandle const table = OpenCounters(path, database);
        qzStlVector<int> values;
        ASSERT_TRUE(Done(Store().GetColumn(table, 0, values)));
        ASSERT_FALSE(values.empty());
        int const state = values[0];
        EXPECT_GE(state, lastState);
        for (unsigned int column = 0; column < 3; ++column) {
            ASSERT_TRUE(Done(Store().GetColumn(table, column, values)));
            EXPECT_EQ(values, qzStlVector<int>(1 + static_cast<unsigned int>(state) % 7 * 3000, state));
        }
        lastState = state;
        ASSERT_TRUE(Done(Store().CloseDatabase(database)));
    }
    EXPECT_GT(lastState, 0);
}

TEST(EndedProcesses, LeaveTheirLastCells) {
    TemporaryFolder const folder;
    qzString const path = folder.GetFile("counters");
    EXPECT_TRUE(Succeeds([&]() -> bool {
        QZDT_DBHandle database;
        QZDT_TableHandle const table = OpenCounters(path, database);
        bool const set(Store().SetCell(table, 0, 1, QZ_DT_Variant(42)));
        std::exit(set ? 0 : 1);
    }));
    QZDT_DBHandle database;
    QZDT_TableHandle const table = OpenCounters(path, database);
    QZ_DT_Variant cell;
    EXPECT_TRUE(Done(Store().GetCell(table, 0, 1, cell)));
    EXPECT_EQ(cell, QZ_DT_Variant(42));
    EXPECT_TRUE(Done(Store().CloseDatabase(database)));
}

TEST(ReadOnlyFiles, AreRefusedAndStayAsTheyAre) {
    TemporaryFolder const folder;
    qzString const path = folder.GetFile("tables");
    MakeSampleFile(path);
    std::string const before = ReadFile(path);
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    EXPECT_TRUE(Succeeds([&] {
        QZDT_DBHandle database;
        uid_t const nobody = 65534; // root may write everywhere
        return (getuid() != 0 || setuid(nobody) == 0) &&
               Store().OpenDatabase(path, database).GetMessage().find("read-only") != qzString::npos;
    }));
    EXPECT_EQ(ReadFile(path), before);
}

TEST(Pipes, AreNoDatabases) {
    TemporaryFolder const folder;
    qzString const path = folder.GetFile("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    QZDT_DBHandle database;
    EXPECT_TRUE(Refused(Store().OpenDatabase(path, database)));
}

} // namespace
