// A table of 1,000,000 rows of an int, two doubles, a text and a bool: filled cell by cell, a tenth of its
// rows removed, compared with an equal one. Beside columns of variants, and a table of a database in memory.

#include "descriptor/qzdescriptor.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#ifdef QZ_HAVE_QT
#    include <QString>
#    include <QVariant>
#    include <QVector>
#endif
#ifdef QZ_HAVE_SQLITE
#    include <sqlite3.h>
#endif

namespace {

constexpr unsigned int s_rows = 1'000'000;
constexpr unsigned int s_columns = 5;

// The cells of a row.
int Id(unsigned int row) { return static_cast<int>(row); }
double Thickness(unsigned int row) { return 0.5 * row; }
double Load(unsigned int row) { return 1.0 / (row + 1.0); }
bool IsFree(unsigned int row) { return row % 3 == 0; }

/// Every tenth row.
qzStlVector<unsigned int> RemovedRows() {
    qzStlVector<unsigned int> rows;
    for (unsigned int row = 7; row < s_rows; row += 10)
        rows.push_back(row);
    return rows;
}

struct Ours {
    using Table = qzDescriptor::Tabular;

    static Table MakeEmpty() {
        using namespace qzDescriptor;
        Table table;
        BasicType const types[s_columns] = {BT_INT, BT_DOUBLE, BT_DOUBLE, BT_STRING, BT_BOOL};
        for (unsigned int column = 0; column < s_columns; ++column)
            table.InsertColumn(types[column], CT_SCALAR, EntityFullType(), column);
        table.SetColumn(0, qzStlVector<int>(s_rows));
        return table;
    }
    static void Fill(Table& table) {
        qzDescriptor::Value id(0), thickness(0.0), load(0.0), name{qzString()}, isFree(false);
        qzString const text = "wing rib";
        for (unsigned int row = 0; row < s_rows; ++row) {
            id.SetValue(Id(row), 0, 0);
            thickness.SetValue(Thickness(row), 0, 0);
            load.SetValue(Load(row), 0, 0);
            name.SetValue(text, 0, 0);
            isFree.SetValue(IsFree(row), 0, 0);
            table.SetCellValue(row, 0, id);
            table.SetCellValue(row, 1, thickness);
            table.SetCellValue(row, 2, load);
            table.SetCellValue(row, 3, name);
            table.SetCellValue(row, 4, isFree);
        }
    }
    static void RemoveRows(Table& table, qzStlVector<unsigned int> const& rows) { table.RemoveRows(rows); }
    static bool AreEqual(Table const& a, Table const& b) { return a == b; }
    static unsigned int CountRows(Table const& table) { return table.GetRowCount(); }
};

#ifdef QZ_HAVE_QT
struct QtColumns {
    using Table = QVector<QVector<QVariant>>;

    static Table MakeEmpty() { return Table(s_columns, QVector<QVariant>(s_rows)); }
    static void Fill(Table& table) {
        QString const text("wing rib");
        for (unsigned int row = 0; row < s_rows; ++row) {
            table[0][row] = Id(row);
            table[1][row] = Thickness(row);
            table[2][row] = Load(row);
            table[3][row] = text;
            table[4][row] = IsFree(row);
        }
    }
    static void RemoveRows(Table& table, qzStlVector<unsigned int> const& rows) {
        std::vector<bool> removed(s_rows);
        for (unsigned int const row : rows)
            removed[row] = true;
        for (auto& column : table) {
            qsizetype kept = 0;
            for (qsizetype row = 0; row < column.size(); ++row) {
                if (!removed[static_cast<std::size_t>(row)])
                    column[kept++] = std::move(column[row]);
            }
            column.resize(kept);
        }
    }
    static bool AreEqual(Table const& a, Table const& b) { return a == b; }
    static unsigned int CountRows(Table const& table) { return static_cast<unsigned int>(table[0].size()); }
};
#endif

#ifdef QZ_HAVE_SQLITE
/// A database in memory, with one table.
struct Sqlite {
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Close>;
    using Table = std::unique_ptr<sqlite3, Close>;

    static Statement Prepare(Table const& table, char const* text) {
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(table.get(), text, -1, &statement, nullptr);
        return Statement(statement);
    }
    static void Run(Table const& table, char const* text) {
        sqlite3_exec(table.get(), text, nullptr, nullptr, nullptr);
    }

    static Table MakeEmpty() {
        sqlite3* database = nullptr;
        sqlite3_open(":memory:", &database);
        Table table(database);
        Run(table,
            "create table t(r integer primary key, id int, thickness real, load real, name text, free int)");
        return table;
    }
    static void Fill(Table& table) {
        Run(table, "begin");
        Statement const insert = Prepare(table, "insert into t values (?,?,?,?,?,?)");
        for (unsigned int row = 0; row < s_rows; ++row) {
            sqlite3_bind_int64(insert.get(), 1, row);
            sqlite3_bind_int(insert.get(), 2, Id(row));
            sqlite3_bind_double(insert.get(), 3, Thickness(row));
            sqlite3_bind_double(insert.get(), 4, Load(row));
            sqlite3_bind_text(insert.get(), 5, "wing rib", -1, SQLITE_STATIC);
            sqlite3_bind_int(insert.get(), 6, IsFree(row));
            sqlite3_step(insert.get());
            sqlite3_reset(insert.get());
        }
        Run(table, "commit");
    }
    static void RemoveRows(Table& table, qzStlVector<unsigned int> const& rows) {
        Run(table, "begin");
        Statement const remove = Prepare(table, "delete from t where r = ?");
        for (unsigned int const row : rows) {
            sqlite3_bind_int64(remove.get(), 1, row);
            sqlite3_step(remove.get());
            sqlite3_reset(remove.get());
        }
        Run(table, "commit");
    }
    static bool AreEqual(Table const& a, Table const& b) {
        char const* const all = "select id, thickness, load, name, free from t order by r";
        Statement const left = Prepare(a, all), right = Prepare(b, all);
        auto const text = [](Statement const& row) {
            return reinterpret_cast<char const*>(sqlite3_column_text(row.get(), 3));
        };
        for (;;) {
            bool const more = sqlite3_step(left.get()) == SQLITE_ROW;
            if (more != (sqlite3_step(right.get()) == SQLITE_ROW))
                return false;
            if (!more)
                return true;
            for (int const column : {0, 4}) {
                if (sqlite3_column_int(left.get(), column) != sqlite3_column_int(right.get(), column))
                    return false;
            }
            for (int const column : {1, 2}) {
                if (sqlite3_column_double(left.get(), column) != sqlite3_column_double(right.get(), column))
                    return false;
            }
            if (std::string_view(text(left)) != text(right))
                return false;
        }
    }
    static unsigned int CountRows(Table const& table) {
        Statement const count = Prepare(table, "select count(*) from t");
        sqlite3_step(count.get());
        return static_cast<unsigned int>(sqlite3_column_int(count.get(), 0));
    }
};
#endif

template <class Peer>
void Fill(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto table = Peer::MakeEmpty();
        state.ResumeTiming();
        Peer::Fill(table);
        if (Peer::CountRows(table) != s_rows)
            state.SkipWithError("rows are missing");
        state.PauseTiming();
        { auto const ended = std::move(table); }
        state.ResumeTiming();
    }
}

template <class Peer>
void RemoveRows(benchmark::State& state) {
    auto const rows = RemovedRows();
    for (auto _ : state) {
        state.PauseTiming();
        auto table = Peer::MakeEmpty();
        Peer::Fill(table);
        state.ResumeTiming();
        Peer::RemoveRows(table, rows);
        if (Peer::CountRows(table) != s_rows - rows.size())
            state.SkipWithError("other rows were removed");
        state.PauseTiming();
        { auto const ended = std::move(table); }
        state.ResumeTiming();
    }
}

template <class Peer>
void Compare(benchmark::State& state) {
    auto a = Peer::MakeEmpty(), b = Peer::MakeEmpty();
    Peer::Fill(a);
    Peer::Fill(b);
    for (auto _ : state) {
        if (!Peer::AreEqual(a, b))
            state.SkipWithError("equal tables differ");
    }
}

template <class Peer>
void Register(std::string const& who) {
    auto const add = [&](std::string const& what, void (*measure)(benchmark::State&)) {
        benchmark::RegisterBenchmark((what + "/" + who).c_str(), measure)->Unit(benchmark::kMillisecond);
    };
    add("fill by cell", Fill<Peer>);
    add("remove a tenth", RemoveRows<Peer>);
    add("compare", Compare<Peer>);
}

} // namespace

int RegisterAll() {
    Register<Ours>("ours");
#ifdef QZ_HAVE_QT
    Register<QtColumns>("qt");
#endif
#ifdef QZ_HAVE_SQLITE
    Register<Sqlite>("sqlite");
#endif
    return 0;
}

static int const s_registered = RegisterAll();
