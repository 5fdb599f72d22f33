// A table of 1,000,000 rows and 5 columns in a file: filled, scanned, read and changed by cells, thinned out.
// The peer is SQLite as it is usually used, with a row of the table in a row of its own.

#include "qzdistribution/QZ_DT_Mgr.h"

#include <benchmark/benchmark.h>

#ifdef QZ_HAVE_SQLITE
#    include <sqlite3.h>
#endif

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <numeric>
#include <random>
#include <string>

namespace {

constexpr unsigned int s_rowCount = 1'000'000;
constexpr unsigned int s_columnCount = 5;
constexpr unsigned int s_cellCount = 100'000;

using Doubles = qzStlVector<double>;

Doubles const& Values() {
    static Doubles const s_values = [] {
        Doubles values(s_rowCount);
        std::iota(values.begin(), values.end(), 0.5);
        return values;
    }();
    return s_values;
}

void Check(bool succeeded, char const* what) {
    if (!succeeded) {
        std::fprintf(stderr, "%s failed\n", what);
        std::exit(1);
    }
}

/// The path of the database that is measured, in the folder for temporary files. Nothing is there afterwards.
std::string ClearPath() {
    std::string const path =
        (std::filesystem::temp_directory_path() / "qz_bench_external_tables.db").string();
    for (char const* suffix : {"", "-wal", "-shm", "-journal"})
        std::filesystem::remove(path + suffix);
    return path;
}

class Ours {
public:
    Ours() {
        QZDT_DTSHandle set;
        Check(m_manager.OpenDatabase(ClearPath(), m_database) &&
                  m_manager.CreateTableSet(m_database, "set", set) && m_manager.CreateTable(set, "", m_table),
              "open");
    }
    ~Ours() {
        Check(bool(m_manager.CloseDatabase(m_database)), "close");
        ClearPath();
    }

    void Fill() {
        QZDT_Change change(m_database);
        for (unsigned int column = 0; column < s_columnCount; ++column)
            Check(m_manager.InsertColumn(m_table, QZDT_DOUBLE, column) &&
                      m_manager.SetColumn(m_table, column, Values()),
                  "fill");
        Check(bool(change.Commit()), "commit");
    }

    double Scan() {
        Doubles values;
        Check(bool(m_manager.GetColumn(m_table, 3, values)), "scan");
        return values.back();
    }

    double Read(unsigned int row, unsigned int column) {
        QZ_DT_Variant cell;
        double value = 0;
        Check(m_manager.GetCell(m_table, row, column, cell) && cell.Get(value), "read");
        return value;
    }

    void Write(unsigned int row, unsigned int column) {
        Check(bool(m_manager.SetCell(m_table, row, column, QZ_DT_Variant(1.5))), "write");
    }
    void EndWriting() { Check(bool(m_manager.Flush(m_database)), "flush"); }
    void BeginWriting() {}

    void RemoveTenth() {
        qzStlVector<unsigned int> rows;
        for (unsigned int row = 0; row < s_rowCount; row += 10)
            rows.push_back(row);
        Check(bool(m_manager.RemoveRows(m_table, rows)), "remove");
    }

private:
    QZ_DT_Mgr& m_manager = QZ_DT_Mgr::GetInstance();
    QZDT_DBHandle m_database;
    QZDT_TableHandle m_table;
};

#ifdef QZ_HAVE_SQLITE
class SqlRows {
public:
    SqlRows() {
        Check(sqlite3_open(ClearPath().c_str(), &m_database) == SQLITE_OK, "open");
        Execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;"
                "CREATE TABLE data(r INTEGER PRIMARY KEY, c0 REAL, c1 REAL, c2 REAL, c3 REAL, c4 REAL)");
        for (unsigned int column = 0; column < s_columnCount; ++column) {
            std::string const name = "c" + std::to_string(column);
            m_read[column] = Prepare("SELECT " + name + " FROM data WHERE r = ?");
            m_write[column] = Prepare("UPDATE data SET " + name + " = 1.5 WHERE r = ?");
        }
    }
    ~SqlRows() {
        for (sqlite3_stmt* statement : m_read)
            sqlite3_finalize(statement);
        for (sqlite3_stmt* statement : m_write)
            sqlite3_finalize(statement);
        sqlite3_close(m_database);
        ClearPath();
    }

    void Fill() {
        sqlite3_stmt* const insert = Prepare("INSERT INTO data VALUES(?, ?, ?, ?, ?, ?)");
        Execute("BEGIN");
        for (unsigned int row = 0; row < s_rowCount; ++row) {
            sqlite3_bind_int64(insert, 1, row);
            for (unsigned int column = 0; column < s_columnCount; ++column)
                sqlite3_bind_double(insert, static_cast<int>(column) + 2, Values()[row]);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        Execute("COMMIT");
        sqlite3_finalize(insert);
    }

    double Scan() {
        sqlite3_stmt* const scan = Prepare("SELECT c3 FROM data ORDER BY r");
        Doubles values;
        values.reserve(s_rowCount);
        while (sqlite3_step(scan) == SQLITE_ROW)
            values.push_back(sqlite3_column_double(scan, 0));
        sqlite3_finalize(scan);
        return values.back();
    }

    double Read(unsigned int row, unsigned int column) {
        sqlite3_stmt* const read = m_read[column];
        sqlite3_bind_int64(read, 1, row);
        sqlite3_step(read);
        double const value = sqlite3_column_double(read, 0);
        sqlite3_reset(read);
        return value;
    }

    void BeginWriting() { Execute("BEGIN"); }
    void Write(unsigned int row, unsigned int column) {
        sqlite3_bind_int64(m_write[column], 1, row);
        sqlite3_step(m_write[column]);
        sqlite3_reset(m_write[column]);
    }
    void EndWriting() { Execute("COMMIT"); }

    // The numbers of the rows are closed up by writing the table anew: an update in place would depend on an
    // order that SQL does not promise.
    void RemoveTenth() {
        Execute("BEGIN; DELETE FROM data WHERE r % 10 = 0;"
                "CREATE TABLE kept(r INTEGER PRIMARY KEY, c0 REAL, c1 REAL, c2 REAL, c3 REAL, c4 REAL);"
                "INSERT INTO kept SELECT row_number() OVER (ORDER BY r) - 1, c0, c1, c2, c3, c4 FROM data;"
                "DROP TABLE data; ALTER TABLE kept RENAME TO data; COMMIT");
    }

private:
    void Execute(char const* sql) {
        Check(sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
    }
    sqlite3_stmt* Prepare(std::string const& sql) {
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v2(m_database, sql.c_str(), -1, &statement, nullptr) == SQLITE_OK, sql.c_str());
        return statement;
    }

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_read[s_columnCount];
    sqlite3_stmt* m_write[s_columnCount];
};
#endif

/// Calls use(row, column) for cells everywhere in the table.
template <class Use>
void ForRandomCells(Use&& use) {
    std::mt19937 random(1);
    for (unsigned int k = 0; k < s_cellCount; ++k)
        use(static_cast<unsigned int>(random() % s_rowCount),
            static_cast<unsigned int>(random() % s_columnCount));
}

template <class Use>
void ForNeighbouringCells(Use&& use) {
    for (unsigned int k = 0; k < s_cellCount; ++k)
        use(k / s_columnCount, k % s_columnCount);
}

template <class Peer>
void Fill(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto peer = std::make_unique<Peer>();
        state.ResumeTiming();
        peer->Fill();
        state.PauseTiming();
        peer.reset();
        state.ResumeTiming();
    }
}

template <class Peer>
void RemoveTenth(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto peer = std::make_unique<Peer>();
        peer->Fill();
        state.ResumeTiming();
        peer->RemoveTenth();
        state.PauseTiming();
        peer.reset();
        state.ResumeTiming();
    }
}

template <class Peer>
void Scan(benchmark::State& state) {
    Peer peer;
    peer.Fill();
    for (auto _ : state)
        benchmark::DoNotOptimize(peer.Scan());
}

template <class Peer, class Cells>
void ReadCells(benchmark::State& state, Cells cells) {
    Peer peer;
    peer.Fill();
    for (auto _ : state) {
        double sum = 0;
        cells([&](unsigned int row, unsigned int column) { sum += peer.Read(row, column); });
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * s_cellCount);
}

template <class Peer, class Cells>
void WriteCells(benchmark::State& state, Cells cells) {
    Peer peer;
    peer.Fill();
    for (auto _ : state) {
        peer.BeginWriting();
        cells([&](unsigned int row, unsigned int column) { peer.Write(row, column); });
        peer.EndWriting();
    }
    state.SetItemsProcessed(state.iterations() * s_cellCount);
}

template <class Peer>
void Register(std::string const& who) {
    auto const random = [](auto&& use) { ForRandomCells(use); };
    auto const neighbours = [](auto&& use) { ForNeighbouringCells(use); };
    auto const add = [&](char const* what, std::function<void(benchmark::State&)> const& run) {
        benchmark::RegisterBenchmark((what + ("/" + who)).c_str(), run)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    add("fill 1M x 5", Fill<Peer>);
    add("scan 1M doubles", Scan<Peer>);
    add("read 100k cells anywhere", [=](benchmark::State& state) { ReadCells<Peer>(state, random); });
    add("read 100k neighbouring cells", [=](benchmark::State& state) { ReadCells<Peer>(state, neighbours); });
    add("write 100k cells anywhere", [=](benchmark::State& state) { WriteCells<Peer>(state, random); });
    add("write 100k neighbouring cells",
        [=](benchmark::State& state) { WriteCells<Peer>(state, neighbours); });
    add("remove a tenth of 1M x 5", RemoveTenth<Peer>);
}

bool const s_registered = [] {
    Register<Ours>("ours");
#ifdef QZ_HAVE_SQLITE
    Register<SqlRows>("SQL rows");
#endif
    return true;
}();

} // namespace
