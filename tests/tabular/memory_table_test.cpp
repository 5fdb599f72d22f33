#include "contract/table_contract.h"

namespace qzDescriptor::test {
namespace {

struct MemoryStore {
    static constexpr bool s_ragged = true;
    Tabular MakeTable() { return Tabular(QZDT_DBHandle(), QZDT_DTSHandle()); }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, TableContract, MemoryStore);

TEST(MemoryTable, HasNoHandlesAndNoIdentifiers) {
    Tabular table(QZDT_DBHandle(), QZDT_DTSHandle(1, 2));
    table.InsertColumn(qzStlVector<int>{1}, 0);
    EXPECT_FALSE(table.UsesExternalStorage());
    EXPECT_EQ(table.GetDBHandle(), QZDT_DBHandle());
    EXPECT_EQ(table.GetDTSHandle(), QZDT_DTSHandle());
    unsigned int column = 7;
    Identifier identifier("T");
    EXPECT_FALSE(table.GetColumnFromIdentifier(identifier, column));
    EXPECT_FALSE(table.GetIdentifierFromColumn(0, identifier));
    EXPECT_EQ(column, 7u);
    EXPECT_EQ(identifier, Identifier("T"));
}

Tabular MakeRagged() {
    Tabular table;
    table.InsertColumn(qzStlVector<double>{1, 2, 3}, 0);
    EXPECT_EQ(table.InsertColumn(EntityList(EntityFullType(), {5, 6}, {}), 1), 0u);
    return table;
}

TEST(MemoryTable, EntitiesWithoutATypeMakeAnEmptyColumnBesideFullOnes) {
    Tabular table = MakeRagged();
    EXPECT_EQ(table.GetRowCount(), 3u);
    ASSERT_NE(table.GetColumnEntityList(1), nullptr);
    EXPECT_TRUE(table.GetColumnEntityList(1)->IsEmpty());
    Value cell;
    EXPECT_FALSE(table.GetCellValue(0, 1, cell));
    EXPECT_FALSE(table.SetCellValue(0, 1, Value(Entity(EntityFullType("GRID"), 1))));
    EXPECT_FALSE(table.RemoveRows({1})) << "the empty column has no such row";
    EXPECT_EQ(*table.GetColumnDoubleList(0), (qzStlVector<double>{1, 3}));
    EXPECT_EQ(Tabular(table, {1}).GetColumnEntityList(1)->GetIdListCount(), 0u);
}

TEST(MemoryTable, ColumnsOfDifferentLengthsCompareByTheCellsThatTheTableHas) {
    Tabular const table = MakeRagged();
    Tabular filled(table);
    EXPECT_TRUE(filled == table);
    EXPECT_TRUE(filled.SetColumn(0, qzStlVector<double>{1, 2, 3, 4}) && filled.RemoveRows({3}));
    EXPECT_FALSE(filled == table) << "one has entity cells where the other has none";

    Tabular front(filled), back(filled); // in both, column 0 has no rows and the others have some
    front.InsertColumn(qzStlVector<bool>(), 0);
    back.SetCellValue(0, 0, Value(9.0));
    back.InsertColumn(qzStlVector<bool>(), 0);
    EXPECT_EQ(front.GetRowCount(), 0u);
    EXPECT_EQ(front.GetColumnDoubleList(1)->size(), 3u);
    EXPECT_TRUE(front == back) << "cells behind the last row are none of the table's";
    EXPECT_FALSE(front.RemoveRows({0}));
    EXPECT_EQ(front.GetColumnDoubleList(1)->size(), 2u) << "removed wherever there is such a row";
}

TEST(MemoryTable, TopologyIndicesFollowTheirEntities) {
    EntityFullType const face(EntityFullType::TopologyType(3), "FACE", 0u);
    Tabular table;
    table.InsertColumn(EntityList(face, {5, 6, 7}, {1, 2, 3}), 0);
    Tabular other(table);
    EXPECT_TRUE(other.SetCellValue(1, 0, Value(Entity(face, 6, 9))));
    EXPECT_FALSE(other == table);
    EXPECT_TRUE(table.RemoveRows({0}));
    EXPECT_EQ(table.GetColumnEntityList(0)->GetTopologyIndexList(), (qzStlVector<char>{2, 3}));
    EXPECT_EQ(Tabular(other, {1}).GetColumnEntityList(0)->GetTopologyIndexList(), (qzStlVector<char>{9}));
}

TEST(TableWithoutStorage, FailsInEveryOperation) {
    Tabular source = MakeRagged();
    Tabular const taken(std::move(source));
    EXPECT_EQ(taken.GetColumnCount(), 2u);
    Tabular const unknown(QZDT_DBHandle(1, 0), QZDT_DTSHandle(1, 0)); // no such store is built in
    for (Tabular table : {source, unknown}) {
        table = Tabular(table, {0});
        EXPECT_FALSE(table.UsesExternalStorage() || table.GetDBHandle().IsValid() ||
                     table.GetDTSHandle().IsValid());
        EXPECT_EQ(table.GetColumnCount() + table.GetRowCount(), 0u);
        EXPECT_EQ(table.GetBasicType(0), BT_NONE);
        EXPECT_EQ(table.GetCompoundType(0), CT_NONE);
        EXPECT_EQ(table.GetEntityListType(0), EntityFullType());
        EXPECT_FALSE(table.HasThisEntityListType(EntityFullType("GRID")));
        Identifier identifier;
        unsigned int column = 0;
        EXPECT_FALSE(table.GetColumnFromIdentifier(identifier, column) ||
                     table.GetIdentifierFromColumn(0, identifier));
        Value cell(1.0);
        EXPECT_FALSE(table.GetCellValue(0, 0, cell) || table.SetCellValue(0, 0, cell));
        TypesOf<ColumnTypes>::ForEach([&]<class List>(std::type_identity<List>) {
            List list = MakeContainer<List>(0), scratch;
            EXPECT_EQ(table.GetColumn(0, list), -1);
            EXPECT_EQ(ReadColumn(table, 0, scratch), List());
            EXPECT_EQ(table.InsertColumn(list, 0), 0u);
            EXPECT_FALSE(table.SetColumn(0, list));
        });
        EXPECT_EQ(table.InsertColumn(BT_INT, CT_SCALAR, EntityFullType(), 0), Tabular::s_notInserted);
        EXPECT_FALSE(table.RemoveColumn(0) || table.ClearRows() || table.ReserveRows(1) ||
                     table.RemoveRows({0}));
        EXPECT_TRUE(table == Tabular()) << "there is nothing in either";
    }
}

} // namespace
} // namespace qzDescriptor::test
