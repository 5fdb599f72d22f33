#pragma once

#include "store_support.h"

#include <fstream>
#include <iterator>

#include <sqlite3.h>

/// A closed database with columns of every type in several tables.
inline void MakeSampleFile(qzString const& path) {
    Random random;
    QZDT_DBHandle database;
    QZDT_DTSHandle set;
    EXPECT_TRUE(Done(Store().OpenDatabase(path, database)));
    EXPECT_TRUE(Done(Store().CreateTableSet(database, "set", set)));
    for (char const* name : {"one", "two"}) {
        QZDT_TableHandle table;
        EXPECT_TRUE(Done(Store().CreateTable(set, name, table)));
        for (int code = QZDT_BOOL; code <= QZDT_ID; ++code) {
            auto const type = static_cast<QZDT_Type>(code);
            auto const column = static_cast<unsigned int>(code - 1);
            EXPECT_TRUE(Done(Store().InsertColumn(table, type, column)));
            EXPECT_TRUE(Done(SetCells(table, column, type, RandomCells(type, 700, random))));
            EXPECT_TRUE(Done(Store().SetColumnIdentifier(table, column, {code, name, 0, 1, 2})));
        }
        EXPECT_TRUE(Done(Store().SetColumnEntityType(table, 7, {1, 2, "GRID", "", 0})));
    }
    EXPECT_TRUE(Done(Store().CloseDatabase(database)));
}

inline std::string ReadFile(qzString const& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteFile(qzString const& path, std::string const& bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// A file as another program has it open.
class OtherProgram {
public:
    explicit OtherProgram(qzString const& path) {
        EXPECT_EQ(sqlite3_open(path.c_str(), &m_handle), SQLITE_OK);
    }
    OtherProgram(OtherProgram const&) = delete;
    OtherProgram& operator=(OtherProgram const&) = delete;
    ~OtherProgram() { sqlite3_close(m_handle); }

    void Run(char const* sql) {
        EXPECT_EQ(sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(m_handle) << ": " << sql;
    }

private:
    sqlite3* m_handle = nullptr;
};
