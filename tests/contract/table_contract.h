#pragma once

#include "contract/table_model.h"
#include "support/Random.h"

#include <limits>

namespace qzDescriptor::test {

/// What every table does, wherever it is stored. A store says how an empty table is made, and whether columns
/// may differ in length.
///
///     struct MemoryStore {
///         static constexpr bool s_ragged = true;
///         Tabular MakeTable() { return Tabular(); }
///     };
///     INSTANTIATE_TYPED_TEST_SUITE_P(Memory, TableContract, MemoryStore);
template <class Store>
class TableContract : public testing::Test {
protected:
    using Doubles = qzStlVector<double>;
    using Rows = qzStlVector<unsigned int>;

    Tabular MakeTable() { return m_store.MakeTable(); }
    /// One column, and as many rows as there are numbers.
    Tabular MakeTable(Doubles const& numbers) {
        Tabular table = MakeTable();
        table.InsertColumn(numbers, 0);
        return table;
    }
    static Doubles Read(Tabular const& table, unsigned int column = 0) {
        Doubles numbers;
        EXPECT_EQ(table.GetColumn(column, numbers), 0);
        return numbers;
    }
    static EntityList Grids(Rows const& ids) { return EntityList(EntityFullType("GRID"), ids, {}); }

    /// The table holds exactly the model's cells.
    static void ExpectCells(Tabular const& table, TableModel const& model) {
        ASSERT_EQ(table.GetColumnCount(), model.columns.size());
        ASSERT_EQ(table.GetRowCount(), model.RowCount());
        for (unsigned int c = 0; c < model.columns.size(); ++c) {
            TableModel::Column const& column = model.columns[c];
            ASSERT_EQ(table.GetBasicType(c), column.basic);
            ASSERT_EQ(table.GetCompoundType(c), column.compound);
            ASSERT_EQ(table.GetEntityListType(c), column.entityType);
            ASSERT_TRUE(!column.entityType.IsValid() || table.HasThisEntityListType(column.entityType));
            Value cell;
            std::vector<std::string> cells;
            for (unsigned int row = 0; table.GetCellValue(row, c, cell); ++row)
                cells.push_back(CellText(cell));
            ASSERT_EQ(cells, column.cells) << "column " << c;
        }
        ASSERT_FALSE(table.HasThisEntityListType(EntityFullType("no such")));
    }

    Store m_store;
};

TYPED_TEST_SUITE_P(TableContract);

TYPED_TEST_P(TableContract, StartsWithoutColumnsAndRows) {
    Tabular table = this->MakeTable();
    EXPECT_EQ(table.GetColumnCount(), 0u);
    EXPECT_EQ(table.GetRowCount(), 0u);
    EXPECT_EQ(table.GetBasicType(0), BT_NONE);
    EXPECT_EQ(table.GetCompoundType(0), CT_NONE);
    EXPECT_TRUE(table.ClearRows() && table.ReserveRows(10) && table.RemoveRows({7}));
    EXPECT_FALSE(table.RemoveColumn(0));
    EXPECT_TRUE(table == this->MakeTable());
}

TYPED_TEST_P(TableContract, ColumnsAnswerToTheirOwnTypeAndRefuseEveryOther) {
    using Lists = TypesOf<ColumnTypes>;
    Lists::ForEach([&]<class List>(std::type_identity<List>) {
        Tabular table = this->MakeTable();
        List const list = MakeContainer<List>(0);
        EXPECT_EQ(table.InsertColumn(list, 7), 0u);
        EXPECT_EQ(table.GetRowCount(), 3u);
        Lists::ForEach([&]<class Other>(std::type_identity<Other>) {
            bool const same = std::is_same_v<Other, List>;
            Other output = MakeContainer<Other>(1, 2), scratch;
            EXPECT_EQ(table.GetColumn(1, output), -1);
            EXPECT_EQ(table.GetColumn(0, output), same ? 0 : 1);
            EXPECT_EQ(output, MakeContainer<Other>(same ? 0 : 1, same ? 3 : 2));
            EXPECT_EQ(ReadColumn(table, 0, scratch), same ? output : Other());
            EXPECT_FALSE(table.SetColumn(1, output));
            EXPECT_EQ(table.SetColumn(0, output), same);
            Value cell(ValuePtr::Create(Samples<CellOf<Other>>::Make(2), DS_DEFAULT));
            EXPECT_EQ(table.SetCellValue(1, 0, cell), same);
            EXPECT_FALSE(table.SetCellValue(3, 0, cell) || table.SetCellValue(0, 1, cell));
            EXPECT_FALSE(table.GetCellValue(3, 0, cell) || table.GetCellValue(0, 1, cell));
            EXPECT_EQ(CellText(cell),
                      CellText(Value(ValuePtr::Create(Samples<CellOf<Other>>::Make(2), DS_DEFAULT))));
        });
        EXPECT_EQ(table.GetRowCount(), 3u);
        Value cell(ValuePtr::Create(Samples<CellOf<List>>::Make(1), DS_ON));
        EXPECT_TRUE(table.GetCellValue(1, 0, cell));
        EXPECT_EQ(cell, Value(ValuePtr::Create(Samples<CellOf<List>>::Make(2), DS_DEFAULT)));
        EXPECT_FALSE(table.SetCellValue(0, 0, Value()));
    });
}

TYPED_TEST_P(TableContract, EmptyColumnsExistForExactlyTheTypesOfCells) {
    Tabular table = this->MakeTable({1, 2});
    TableModel model;
    model.InsertColumn(qzStlVector<double>{1, 2}, 0);
    for (int basic = -1; basic < 17; ++basic) {
        for (int compound = -1; compound < 14; ++compound) {
            for (EntityFullType const& type : {EntityFullType("GRID"), EntityFullType()}) {
                SCOPED_TRACE(testing::Message() << basic << '/' << compound << ' ' << type.GetTypeNamed());
                auto const insert = [&](auto& target) {
                    return target.InsertColumn(BasicType(basic), CompoundType(compound), type, 3);
                };
                EXPECT_EQ(insert(table), insert(model));
            }
        }
    }
    EXPECT_EQ(table.GetColumnCount(), 1u + 2 * 7 + 18);
    this->ExpectCells(table, model);
}

TYPED_TEST_P(TableContract, RowsAreRemovedOnceAndAllOrNone) {
    Tabular table = this->MakeTable({0, 1, 2, 3, 4});
    EXPECT_FALSE(table.RemoveRows({0, 0xFFFFFFFF}));
    EXPECT_EQ(table.GetRowCount(), 5u);
    qzStlVector<double> numbers(1000), kept;
    qzStlVector<unsigned int> rows;
    for (unsigned int row = 0; row < 1000; ++row) {
        numbers[row] = row;
        if (row % 3 == 0 || (row > 200 && row < 400)) // single rows, and runs across many words
            rows.push_back(row);
        else
            kept.push_back(row);
    }
    Tabular large = this->MakeTable(numbers);
    EXPECT_TRUE(large.RemoveRows(rows));
    EXPECT_EQ(this->Read(large), kept);
}

TYPED_TEST_P(TableContract, CopiesOfRowsRiseAndRepeat) {
    Tabular const table = this->MakeTable({0, 1, 2, 3, 4});
    EXPECT_EQ(this->Read(Tabular(table, {3, 0, 3, 5, 0xFFFFFFFF})), (qzStlVector<double>{0, 3, 3}));
    EXPECT_EQ(this->Read(Tabular(table, {})), qzStlVector<double>());
    EXPECT_EQ(Tabular(table, {}).GetColumnCount(), 1u);
}

TYPED_TEST_P(TableContract, CopiesAreDeepAndSelfAssignmentKeepsATable) {
    Tabular table = this->MakeTable({1, 2});
    Tabular copy(table);
    EXPECT_TRUE(copy.SetCellValue(0, 0, Value(9.0)));
    EXPECT_EQ(this->Read(table), (qzStlVector<double>{1, 2}));
    Tabular& same = table;
    table = same;
    EXPECT_EQ(this->Read(table), (qzStlVector<double>{1, 2}));
    table = copy;
    EXPECT_EQ(this->Read(table), (qzStlVector<double>{9, 2}));
}

TYPED_TEST_P(TableContract, TablesAgreeWithinATolerance) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinity = std::numeric_limits<double>::infinity();
    struct Row {
        double a, b, tolerance;
        bool agree;
    };
    Row const rows[] = {
        {1, 1 + 0.9e-8, 1e-8, true},   {1, 1 + 1.1e-8, 1e-8, false}, {1, 1.5, 0.5, true},
        {1, 1 + 0.9e-12, 0, true},     {1, 1 + 1.1e-12, nan, false}, {infinity, infinity, 1, true},
        {infinity, 1, infinity, true}, {nan, nan, infinity, false},  {-infinity, infinity, 1, false},
        {0.0, -0.0, 0, true}};
    for (Row const& row : rows) {
        SCOPED_TRACE(testing::Message() << row.a << ' ' << row.b << ' ' << row.tolerance);
        Tabular a = this->MakeTable({7, row.a}), b = this->MakeTable({7, row.b});
        EXPECT_EQ(Tabular::AreEqualWithinTolerance(a, b, row.tolerance), row.agree);
        EXPECT_EQ(a == b, Tabular::AreEqualWithinTolerance(a, b, 1e-8));
        using Triples = qzStlVector<qzTTriple<double>>;
        a.InsertColumn(Triples{{}, {1, 2, row.b}}, 0);
        b.InsertColumn(Triples{{}, {1, 2, row.a}}, 0);
        EXPECT_EQ(Tabular::AreEqualWithinTolerance(a, b, row.tolerance), row.agree);
    }
}

TYPED_TEST_P(TableContract, ColumnsOfTheTableItselfAreArguments) {
    Tabular table = this->MakeTable();
    table.InsertColumn(qzStlVector<unsigned int>{4, 1, 1, 0, 2, 3}, 0);
    table.InsertColumn(this->Grids({9, 8, 7, 6, 5, 4}), 1);
    auto const ids = [&] { return table.GetColumnUIntList(0); };
    if (ids() == nullptr)
        return; // a store that shows no columns has none to pass
    table.InsertColumn(*ids(), 0);
    table.InsertColumn(*ids(), 2);
    EXPECT_TRUE(table.SetColumn(2, *ids()) && table.SetColumn(0, *ids()));
    table.InsertColumn(*table.GetColumnEntityList(3), 0);
    EXPECT_TRUE(table.SetColumn(4, *table.GetColumnEntityList(0)));
    EXPECT_EQ(table.GetColumnCount(), 5u);
    for (unsigned int column : {1u, 2u, 3u})
        EXPECT_EQ(*table.GetColumnUIntList(column), (qzStlVector<unsigned int>{4, 1, 1, 0, 2, 3}));
    EXPECT_EQ(*table.GetColumnEntityList(4), this->Grids({9, 8, 7, 6, 5, 4}));
    EXPECT_EQ(*Tabular(table, *table.GetColumnUIntList(1)).GetColumnEntityList(0),
              this->Grids({9, 8, 8, 7, 6, 5}));
    EXPECT_TRUE(table.RemoveRows(*table.GetColumnUIntList(1)));
    EXPECT_EQ(*table.GetColumnEntityList(0), this->Grids({4}));
}

// Random operations on a table and on its model, which must answer and become the same.
TYPED_TEST_P(TableContract, TablesDoWhatTheModelDoes) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    Tabular table = this->MakeTable(), earlier = table;
    TableModel model, earlierModel;
    auto const randomRows = [&] {
        qzStlVector<unsigned int> rows(random.Below(4));
        for (unsigned int& row : rows)
            row = random.Below(static_cast<unsigned int>(model.RowCount()) + (random.Chance(4) ? 2 : 0) + 1);
        return rows;
    };
    for (int step = 0; step < 3000 && !this->HasFatalFailure(); ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step);
        unsigned int const kind = random.Below(8), action = random.Below(10);
        unsigned int const at = random.Below(static_cast<unsigned int>(model.columns.size()) + 2);
        unsigned int const first = random.Below(3), count = random.Below(7), row = random.Below(7);
        EntityFullType const type =
            random.Pick({EntityFullType("GRID"), EntityFullType("CBAR", 2), EntityFullType()});
        auto const rows = randomRows();
        bool const isOfItsType = at < model.columns.size() && random.Chance(2); // else most are refused
        unsigned int number = 0;
        TypesOf<ColumnTypes>::ForEach([&]<class List>(std::type_identity<List>) {
            bool const isNext = number++ == kind;
            if (isOfItsType ? !model.columns[at].IsLike(TableModel::MakeColumn(List())) : !isNext)
                return;
            auto list = MakeContainer<List>(static_cast<int>(first), count);
            Value cell(ValuePtr::Create(Samples<CellOf<List>>::Make(static_cast<int>(first)), DS_DEFAULT));
            if constexpr (std::is_same_v<List, EntityList>) {
                list.SetEntityFullType(type);
                cell.SetValue(Entity(type, row));
            }
            auto const act = [&](auto& target) -> unsigned int {
                switch (action) {
                case 0:
                    return model.columns.size() < 8 ? target.InsertColumn(list, at) : 0;
                case 1:
                    return target.InsertColumn(CellTraits<List>::s_basic, CellTraits<List>::s_compound, type,
                                               at);
                case 2:
                    return target.SetColumn(at, list);
                case 3:
                    return model.columns.size() > 5 && target.RemoveColumn(at);
                case 4:
                    return first == 0 && target.ClearRows();
                case 5:
                    return target.ReserveRows(count);
                case 6:
                    return target.RemoveRows(rows);
                case 7:
                    target = std::remove_reference_t<decltype(target)>(target, rows);
                    return 0;
                default:
                    return target.SetCellValue(row, at, cell);
                }
            };
            TableModel next = model;
            unsigned int const answer = act(next);
            if (next.IsRagged() && !TypeParam::s_ragged)
                return;
            EXPECT_EQ(act(table), answer) << "action " << action;
            model = next;
        });
        this->ExpectCells(table, model);
        EXPECT_EQ(table == earlier, model == earlierModel);
        if (random.Chance(5)) {
            earlier = table;
            earlierModel = model;
        }
    }
}

REGISTER_TYPED_TEST_SUITE_P(TableContract, StartsWithoutColumnsAndRows,
                            ColumnsAnswerToTheirOwnTypeAndRefuseEveryOther,
                            EmptyColumnsExistForExactlyTheTypesOfCells, RowsAreRemovedOnceAndAllOrNone,
                            CopiesOfRowsRiseAndRepeat, CopiesAreDeepAndSelfAssignmentKeepsATable,
                            TablesAgreeWithinATolerance, ColumnsOfTheTableItselfAreArguments,
                            TablesDoWhatTheModelDoes);

} // namespace qzDescriptor::test
