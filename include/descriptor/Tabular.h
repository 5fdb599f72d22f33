#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <memory>

namespace qzDescriptor {

class TabularDataBase;

/// The data of a table: typed columns with a common number of rows. Cells are bools, ints, unsigned ints,
/// doubles, texts, triples of ints or doubles, or entities of one type.
///
///     Tabular loads;
///     loads.InsertColumn(qzStlVector<double>{0.0, 0.5, 1.0}, 0);         // time
///     loads.InsertColumn(qzStlVector<qzString>{"rest", "ramp"}, 1);      // phase, lengthened to 3 rows
///     loads.SetCellValue(2, 1, Value(qzString("hold")));
///     loads.GetColumnDoubleList(0)->back();                              // 1.0
///
/// Tables are held in memory, or outside of it in a store that is named by handles. Indices of rows and
/// columns begin at 0. Nothing is converted: an operation with cells of another type than the column's fails
/// and leaves its arguments as they were. A table moved from has no storage, and every operation on it fails.
///
/// The number of rows is that of column 0. An operation may leave columns of different lengths behind where
/// it says so; each is then read as far as it goes.
class QZDESCRIPTOR_API Tabular {
public:
    static constexpr unsigned int s_notInserted = 0xFFFFFFFF;

    /// An empty table in memory.
    Tabular();
    /// An empty table in memory when the database handle is invalid, else a new table in the set, or in the
    /// database's set "values" when the set's handle is invalid. See ExternalTables.h.
    Tabular(QZDT_DBHandle const& database, QZDT_DTSHandle const& tableSet);
    Tabular(Tabular const& other);
    /// The given rows of the other table in rising order, each as often as it is given. Rows that do not
    /// exist are passed over.
    Tabular(Tabular const& other, qzStlVector<unsigned int> const& rows);
    Tabular(Tabular&& other) noexcept;
    Tabular& operator=(Tabular const& other);
    Tabular& operator=(Tabular&& other) noexcept;
    ~Tabular();

    /// Equal within 1e-08.
    QZDESCRIPTOR_API friend bool operator==(Tabular const& a, Tabular const& b);
    /// Columns of the same types in the same order, with the same identifiers where both have some, and equal
    /// cells; doubles may differ by the tolerance (1e-12 when it is not above 0). A NaN equals nothing.
    static bool AreEqualWithinTolerance(Tabular const& a, Tabular const& b, double tolerance);

    bool UsesExternalStorage() const;
    /// What a table outside memory was made with; else invalid handles.
    QZDT_DBHandle GetDBHandle() const;
    QZDT_DTSHandle GetDTSHandle() const;

    unsigned int GetColumnCount() const;
    unsigned int GetRowCount() const;

    // Columns of tables outside memory have identifiers; those in memory have none.
    bool GetColumnFromIdentifier(Identifier const& identifier, unsigned int& column) const;
    bool GetIdentifierFromColumn(unsigned int column, Identifier& identifier) const;

    // BT_NONE and CT_NONE for a column that does not exist.
    BasicType GetBasicType(unsigned int column) const;
    CompoundType GetCompoundType(unsigned int column) const;
    /// The type of the entities in a column; a default type when there are none.
    EntityFullType GetEntityListType(unsigned int column) const;
    /// Whether a column holds entities of the type.
    bool HasThisEntityListType(EntityFullType const& type) const;

    /// Makes the value one cell's.
    bool GetCellValue(unsigned int row, unsigned int column, Value& value) const;
    /// Stores the element of the column's own type that the value holds, the first one of a list. False for a
    /// value of another type and for an entity of another type than the column's. Never adds a row.
    bool SetCellValue(unsigned int row, unsigned int column, Value const& value);

    // Copies a column out: 0 when it did, 1 for a column of another type, -1 when there is no such column.
    int GetColumn(unsigned int column, qzStlVector<bool>& values) const;
    int GetColumn(unsigned int column, qzStlVector<int>& values) const;
    int GetColumn(unsigned int column, qzStlVector<unsigned int>& values) const;
    int GetColumn(unsigned int column, qzStlVector<double>& values) const;
    int GetColumn(unsigned int column, qzStlVector<qzString>& values) const;
    int GetColumn(unsigned int column, qzStlVector<qzTTriple<int>>& values) const;
    int GetColumn(unsigned int column, qzStlVector<qzTTriple<double>>& values) const;
    int GetColumn(unsigned int column, EntityList& values) const;

    // A column itself, valid until the table changes; null for a column of another type.
    qzStlVector<bool> const* GetColumnBoolList(unsigned int column) const;
    qzStlVector<int> const* GetColumnIntList(unsigned int column) const;
    qzStlVector<unsigned int> const* GetColumnUIntList(unsigned int column) const;
    qzStlVector<double> const* GetColumnDoubleList(unsigned int column) const;
    qzStlVector<qzString> const* GetColumnStringList(unsigned int column) const;
    qzStlVector<qzTTriple<int>> const* GetColumnTripleIList(unsigned int column) const;
    qzStlVector<qzTTriple<double>> const* GetColumnTripleList(unsigned int column) const;
    EntityList const* GetColumnEntityList(unsigned int column) const;

    // Replaces a column. More values than the table has rows lengthen the table, every other column by
    // default cells; fewer are filled up with default cells. The values may be a column of this table.
    bool SetColumn(unsigned int column, qzStlVector<bool> const& values);
    bool SetColumn(unsigned int column, qzStlVector<int> const& values);
    bool SetColumn(unsigned int column, qzStlVector<unsigned int> const& values);
    bool SetColumn(unsigned int column, qzStlVector<double> const& values);
    bool SetColumn(unsigned int column, qzStlVector<qzString> const& values);
    bool SetColumn(unsigned int column, qzStlVector<qzTTriple<int>> const& values);
    bool SetColumn(unsigned int column, qzStlVector<qzTTriple<double>> const& values);
    /// Entities set the number of rows of the table outright: other columns may lose rows. False for a list
    /// without a type.
    bool SetColumn(unsigned int column, EntityList const& values);

    // Inserts a column before the one at the position, or behind the last one, and sets it as SetColumn does;
    // always answers 0. A column that becomes the first one gives the table its length. Entities without a
    // type make an empty column, and leave the others as they are.
    unsigned int InsertColumn(EntityList const& values, unsigned int at);
    unsigned int InsertColumn(qzStlVector<bool> const& values, unsigned int at);
    unsigned int InsertColumn(qzStlVector<int> const& values, unsigned int at);
    unsigned int InsertColumn(qzStlVector<unsigned int> const& values, unsigned int at);
    unsigned int InsertColumn(qzStlVector<double> const& values, unsigned int at);
    unsigned int InsertColumn(qzStlVector<qzString> const& values, unsigned int at);
    unsigned int InsertColumn(qzStlVector<qzTTriple<int>> const& values, unsigned int at);
    unsigned int InsertColumn(qzStlVector<qzTTriple<double>> const& values, unsigned int at);
    /// Inserts a column of default cells. The new number of columns, or s_notInserted when tables have no
    /// columns of the type; entities need a valid type of their own.
    unsigned int InsertColumn(BasicType basic, CompoundType compound, EntityFullType const& entityType,
                              unsigned int at);

    bool RemoveColumn(unsigned int column);
    /// Removes every row; columns keep their types.
    bool ClearRows();
    /// Makes room for rows to come.
    bool ReserveRows(unsigned int rows);
    /// Removes the rows, in any order and however often each is given, from every column that has all of
    /// them. False when a column has not, and for an empty list.
    bool RemoveRows(qzStlVector<unsigned int> const& rows);

private:
    friend class TabularAccess;

    std::unique_ptr<TabularDataBase> m_data;
};

} // namespace qzDescriptor
