#pragma once

#include "descriptor/Attribute.h"

namespace qzDescriptor {

/// A view of an attribute that is a table: its cells, checked against the definitions of the columns.
///
///     TabularAttribute loads(content, 3);
///     loads.InsertRows(0, 2);                              // two rows of the columns' defaults
///     loads.SetCellValue(0, 1, 12.5);                      // status 0
///     loads.SetCellValue(0, 1, -1.0).message;              // "Input of -1 violates: VALUE > 0"
///
/// The columns are those of a tabular definition, or the table's own where nothing defines them. A table that
/// has fewer columns than its definition gets the others when it is first changed through a view.
/// Not synchronised, as the content.
class QZDESCRIPTOR_API TabularAttribute : public Attribute {
public:
    TabularAttribute() = default;
    /// With the tabular definition that holds for the attribute, or with another one, which has to outlive
    /// the view. A view of nothing unless the attribute is a table.
    explicit TabularAttribute(Attribute const& attribute, TabularDefinition const* definition = nullptr);
    TabularAttribute(Content const* content, unsigned int index)
        : TabularAttribute(Attribute(content, index)) {}
    TabularAttribute(Content* content, unsigned int index) : TabularAttribute(Attribute(content, index)) {}

    /// Null where nothing defines the columns.
    TabularDefinition const* GetTabularDefinition() const { return m_definition; }
    /// The table; null for a view of nothing. Valid until the attribute changes.
    Tabular const* GetTable() const;
    unsigned int GetRowCount() const;
    unsigned int GetColumnCount() const;
    /// A default definition for a column that nothing defines.
    Definition const& GetColumnDefinition(unsigned int column) const;
    /// The first column of a display name; Members::s_none without one.
    unsigned int FindColumn(qzString const& displayName) const;

    /// Copies a cell out; false, leaving the argument as it was, when there is none.
    bool GetCellValue(unsigned int row, unsigned int column, Value& value) const;
    template <ValueElement T>
    bool GetCellValue(unsigned int row, unsigned int column, T& value) const {
        Value cell;
        return GetCellValue(row, column, cell) && cell.GetValue(value);
    }
    /// Refuses, changing nothing, cells that do not exist, values of another type and what the column's
    /// allowables refuse. The message says why.
    qzReturnStatus SetCellValue(unsigned int row, unsigned int column, Value const& value);
    template <ValueElement T>
    qzReturnStatus SetCellValue(unsigned int row, unsigned int column, T const& value) {
        return SetCellValue(row, column, Content::MakeValue(value));
    }
    /// What SetCellValue would answer.
    qzReturnStatus TestCellValue(unsigned int row, unsigned int column, Value const& value) const;

    /// Inserts rows of the columns' defaults before a row, or behind the last one. False for a place beyond
    /// that, for a table without columns, and for a view that does not write.
    bool InsertRows(unsigned int at, unsigned int count = 1);
    /// Removes rows, in any order and however often each is given; false when one does not exist, and for an
    /// empty list.
    bool RemoveRows(qzStlVector<unsigned int> const& rows);

private:
    /// The table to be changed, with the columns that its definition asks for; null when it cannot be.
    Tabular* P_Modify();

    TabularDefinition const* m_definition = nullptr;
};

} // namespace qzDescriptor
