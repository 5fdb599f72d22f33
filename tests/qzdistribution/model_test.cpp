// Random operations on the tables of a set beside the same ones on plain vectors.

#include "store_support.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

namespace {

struct ModelColumn {
    QZDT_Type type;
    Cells cells;
    std::optional<QZDT_ColumnIdentifier> identifier;
    QZDT_EntityType entityType;

    QZ_DT_Variant Default() const {
        QZ_DT_Variant cell;
        qzdt::VisitType(type, [&]<class T>(std::type_identity<T>) {
            cell.Set(T{});
            return true;
        });
        return cell;
    }
};

using ModelTable = std::vector<ModelColumn>;

/// A set of tables, in the store and as a model in the same order.
class Pair {
public:
    Pair(qzString path, Random& random) : m_path(std::move(path)), m_random(random) {
        EXPECT_TRUE(Done(Store().OpenDatabase(m_path, m_database)));
        EXPECT_TRUE(Done(Store().CreateTableSet(m_database, "set", m_set)));
        CreateTable();
    }
    ~Pair() { EXPECT_TRUE(Done(Store().CloseDatabase(m_database))); }

    void Step() {
        static constexpr void (Pair::*operations[])() = {
            &Pair::CreateTable,  &Pair::DropTable,    &Pair::CloneTable,    &Pair::CloneTable,
            &Pair::InsertColumn, &Pair::InsertColumn, &Pair::SetColumn,     &Pair::SetColumn,
            &Pair::Identify,     &Pair::RemoveColumn, &Pair::MoveColumn,    &Pair::ResizeRows,
            &Pair::RemoveRows,   &Pair::SetCells,     &Pair::SetCells,      &Pair::BeginChange,
            &Pair::EndChange,    &Pair::EndChange,    &Pair::SetEntityType, &Pair::Reopen};
        (this->*m_random.Pick(operations))();
        while (m_model.size() > 4)
            DropTable();
    }

    void ExpectEqual() {
        qzStlVector<QZDT_TableHandle> tables;
        ASSERT_TRUE(Done(Store().GetTables(m_set, tables)));
        ASSERT_EQ(tables.size(), m_model.size());
        for (std::size_t k = 0; k < tables.size(); ++k)
            ExpectEqual(tables[k], m_model[k]);
    }

private:
    static constexpr unsigned int s_mostRows = 1300; // three chunks

    // --- tables ---

    void CreateTable() {
        QZDT_TableHandle table;
        EXPECT_TRUE(Done(Store().CreateTable(m_set, NewName(), table)));
        m_model.emplace_back();
    }
    void DropTable() {
        if (m_model.size() < 2)
            return;
        EXPECT_TRUE(Done(Store().DropTable(PickTable())));
        m_model.erase(m_model.begin() + m_table);
    }
    void CloneTable() {
        QZDT_TableHandle const table = PickTable();
        QZDT_TableHandle copy;
        ModelTable clone = Model();
        if (m_random.Chance(2)) {
            qzStlVector<unsigned int> rows(m_random.Below(50));
            std::ranges::generate(rows, [&] { return m_random.Below(s_mostRows); });
            EXPECT_TRUE(Done(Store().CloneTable(table, rows, copy)));
            std::ranges::sort(rows);
            for (ModelColumn& column : clone) {
                Cells const cells = std::exchange(column.cells, {});
                for (unsigned int const row : rows) {
                    if (row < cells.size())
                        column.cells.push_back(cells[row]);
                }
            }
        } else {
            EXPECT_TRUE(Done(Store().CloneTable(table, copy)));
        }
        EXPECT_TRUE(Done(Store().SetName(copy, NewName())));
        m_model.push_back(std::move(clone));
    }

    // --- columns ---

    void InsertColumn() {
        PickTable();
        if (Model().size() > 6)
            return;
        auto const type = static_cast<QZDT_Type>(1 + m_random.Below(8));
        m_column = m_random.Below(9);
        EXPECT_TRUE(Done(Store().InsertColumn(m_handle, type, m_column)));
        m_column = std::min(m_column, static_cast<unsigned int>(Model().size()));
        Model().insert(Model().begin() + m_column, ModelColumn{type, {}, {}, {}});
        FillColumn();
    }
    void SetColumn() {
        if (PickColumn())
            FillColumn();
    }
    void FillColumn() {
        Column().cells = RandomCells(Column().type, RowCount(), m_random);
        EXPECT_TRUE(Done(::SetCells(m_handle, m_column, Column().type, Column().cells)));
    }
    void Identify() {
        if (!PickColumn())
            return;
        if (m_random.Chance(3)) {
            EXPECT_TRUE(Done(Store().RemoveColumnIdentifier(m_handle, m_column)));
            Column().identifier.reset();
            return;
        }
        Column().identifier = {RandomCell<int>(m_random), RandomCell<qzString>(m_random), -1,
                               RandomCell<unsigned int>(m_random), 0xFFFFFFFF};
        EXPECT_TRUE(Done(Store().SetColumnIdentifier(m_handle, m_column, *Column().identifier)));
    }
    void SetEntityType() {
        if (!PickColumn())
            return;
        QZDT_EntityType const type{1, 0xFFFFFFFF, RandomCell<qzString>(m_random), "", -7};
        bool const isEntity = Column().type == QZDT_ID;
        EXPECT_EQ(bool(Store().SetColumnEntityType(m_handle, m_column, type)), isEntity);
        if (isEntity)
            Column().entityType = type;
    }
    void RemoveColumn() {
        if (!PickColumn())
            return;
        EXPECT_TRUE(Done(Store().RemoveColumn(m_handle, m_column)));
        Model().erase(Model().begin() + m_column);
    }
    void MoveColumn() {
        if (!PickColumn())
            return;
        unsigned int const to = m_random.Below(9);
        EXPECT_TRUE(Done(Store().MoveColumn(m_handle, m_column, to)));
        ModelColumn moved = std::move(Column());
        Model().erase(Model().begin() + m_column);
        auto const place = std::min<std::size_t>(to, Model().size());
        Model().insert(Model().begin() + static_cast<std::ptrdiff_t>(place), std::move(moved));
    }

    // --- rows ---

    void ResizeRows() {
        if (!PickColumn())
            return;
        unsigned int const count = RowCount();
        auto const resize = [&](ModelColumn& column) { column.cells.resize(count, column.Default()); };
        if (m_random.Chance(2)) {
            EXPECT_TRUE(Done(Store().ResizeRows(m_handle, m_column, count)));
            resize(Column());
        } else {
            EXPECT_TRUE(Done(count == 0 ? Store().ClearRows(m_handle) : Store().ResizeRows(m_handle, count)));
            std::ranges::for_each(Model(), resize);
        }
    }
    void RemoveRows() {
        if (!PickColumn())
            return;
        qzStlVector<unsigned int> rows;
        for (unsigned int k = m_random.Below(m_random.Chance(2) ? 3 : 400); k > 0; --k)
            rows.push_back(m_random.Below(static_cast<unsigned int>(Column().cells.size()) + 1));
        std::ranges::sort(rows);
        auto const fits = [&](ModelColumn const& column) {
            return !rows.empty() && rows.back() < column.cells.size();
        };
        auto const remove = [&](ModelColumn& column) {
            Cells const cells = std::exchange(column.cells, {});
            for (unsigned int row = 0; row < cells.size(); ++row) {
                if (!std::ranges::binary_search(rows, row))
                    column.cells.push_back(cells[row]);
            }
        };
        if (m_random.Chance(2)) {
            EXPECT_EQ(bool(Store().RemoveRows(m_handle, m_column, rows)), fits(Column()));
            if (fits(Column()))
                remove(Column());
        } else {
            bool const fit = std::ranges::all_of(Model(), fits);
            EXPECT_EQ(bool(Store().RemoveRows(m_handle, rows)), fit);
            if (fit)
                std::ranges::for_each(Model(), remove);
        }
    }
    void SetCells() {
        if (!PickColumn() || Column().cells.empty())
            return;
        for (unsigned int k = m_random.Below(20); k > 0; --k) {
            unsigned int const row = m_random.Below(static_cast<unsigned int>(Column().cells.size()));
            QZ_DT_Variant const cell = RandomCells(Column().type, 1, m_random)[0];
            EXPECT_TRUE(Done(Store().SetCell(m_handle, row, m_column, cell)));
            Column().cells[row] = cell;
        }
    }

    // --- changes and files ---

    void BeginChange() {
        if (m_saved.size() == 3)
            return;
        EXPECT_TRUE(Done(Store().BeginChange(m_database)));
        m_saved.push_back(m_model);
    }
    void EndChange() {
        bool const keeps = m_random.Chance(2);
        QZDT_Result const ended = keeps ? Store().CommitChange(m_database) : Store().CancelChange(m_database);
        EXPECT_EQ(bool(ended), !m_saved.empty());
        if (m_saved.empty())
            return;
        if (!keeps)
            m_model = std::move(m_saved.back());
        m_saved.pop_back();
    }
    void Reopen() {
        if (m_path == ":memory:" || !m_random.Chance(3))
            return;
        EXPECT_TRUE(Done(Store().CloseDatabase(m_database)));
        if (!m_saved.empty())
            m_model = std::move(m_saved.front()); // an open change is cancelled
        m_saved.clear();
        ASSERT_TRUE(Done(Store().OpenDatabase(m_path, m_database)));
        EXPECT_TRUE(Done(Store().OpenTableSet(m_database, "set", m_set)));
    }

    // --- choices ---

    qzString NewName() { return std::to_string(++m_nameCount); }
    QZDT_TableHandle PickTable() {
        qzStlVector<QZDT_TableHandle> tables;
        EXPECT_TRUE(Done(Store().GetTables(m_set, tables)));
        m_table = m_random.Below(static_cast<unsigned int>(m_model.size()));
        return m_handle = tables.at(m_table);
    }
    bool PickColumn() {
        PickTable();
        if (!Model().empty())
            m_column = m_random.Below(static_cast<unsigned int>(Model().size()));
        return !Model().empty();
    }
    unsigned int RowCount() { return m_random.Pick({0U, 1U, 499U, 500U, 501U, m_random.Below(s_mostRows)}); }
    ModelTable& Model() { return m_model[m_table]; }
    ModelColumn& Column() { return Model()[m_column]; }

    // --- comparison ---

    void ExpectEqual(QZDT_TableHandle const& table, ModelTable const& model) {
        ASSERT_EQ(Store().GetColumnCount(table), model.size());
        for (unsigned int column = 0; column < model.size(); ++column) {
            ModelColumn const& expected = model[column];
            ASSERT_EQ(Store().GetColumnType(table, column), expected.type);
            ASSERT_EQ(Store().GetRowCount(table, column), expected.cells.size());
            Cells cells;
            ASSERT_TRUE(Done(GetCells(table, column, cells)));
            ASSERT_TRUE(AreSame(cells, expected.cells));
            QZDT_ColumnIdentifier identifier;
            ASSERT_EQ(bool(Store().GetColumnIdentifier(table, column, identifier)),
                      expected.identifier.has_value());
            ASSERT_EQ(identifier, expected.identifier.value_or(QZDT_ColumnIdentifier()));
            QZDT_EntityType type;
            ASSERT_EQ(bool(Store().GetColumnEntityType(table, column, type)), expected.type == QZDT_ID);
            ASSERT_EQ(type, expected.entityType);
            if (expected.cells.empty())
                continue;
            unsigned int const row = m_random.Below(static_cast<unsigned int>(expected.cells.size()));
            QZ_DT_Variant cell;
            ASSERT_TRUE(Done(Store().GetCell(table, row, column, cell)));
            ASSERT_TRUE(AreSame(cell, expected.cells[row]));
        }
    }

    qzString m_path;
    Random& m_random;
    QZDT_DBHandle m_database;
    QZDT_DTSHandle m_set;
    std::vector<ModelTable> m_model;
    std::vector<std::vector<ModelTable>> m_saved; // as they were when the open changes began
    unsigned int m_nameCount = 0;
    unsigned int m_table = 0;
    unsigned int m_column = 0;
    QZDT_TableHandle m_handle;
};

class RandomOperations : public testing::TestWithParam<bool> {};

TEST_P(RandomOperations, LeaveTheTablesThatPlainVectorsHold) {
    TemporaryFolder const folder;
    Random random;
    SCOPED_TRACE(random.GetSeed());
    Pair pair(GetParam() ? folder.GetFile("tables") : ":memory:", random);
    for (unsigned int step = 0; step < 1500 && !testing::Test::HasFailure(); ++step) {
        SCOPED_TRACE(step);
        pair.Step();
        if (step % 5 == 0)
            pair.ExpectEqual();
    }
}

INSTANTIATE_TEST_SUITE_P(InMemoryAndInAFile, RandomOperations, testing::Bool());

} // namespace
