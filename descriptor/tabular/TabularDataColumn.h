#pragma once

#include "tabular/RowSet.h"
#include "tabular/column_types.h"

#include <memory>

namespace qzDescriptor {

/// One column of a table. The operations of each cell type answer here that the column is of another type; a
/// column overrides those of its own, so that a call with another type fails on its own.
class TabularDataColumn {
public:
    virtual ~TabularDataColumn() = default;

    /// A column of the given rows, which rise; those that do not exist are passed over.
    virtual std::unique_ptr<TabularDataColumn> Clone(qzStlVector<unsigned int> const& rows) const = 0;
    virtual std::unique_ptr<TabularDataColumn> Clone() const = 0;
    virtual unsigned int GetRowCount() const = 0;
    /// Drops rows from the end, or adds rows of default cells.
    virtual void Resize(unsigned int rows) = 0;
    virtual BasicType GetBasicType() const = 0;
    virtual CompoundType GetCompoundType() const = 0;
    virtual EntityFullType GetEntityListType() const { return EntityFullType(); }
    virtual bool HasThisEntityListType(EntityFullType const&) const { return false; }
    virtual bool GetCellValue(unsigned int row, Value& value) const = 0;

#define QZ_SHOW(C, ...)                                                                                      \
    virtual C const* GetList(std::type_identity<C>) const { return nullptr; }
    QZ_COLUMN_TYPES(QZ_SHOW)
#undef QZ_SHOW
#define QZ_COPY_OUT(C, ...)                                                                                  \
    virtual bool GetColumn(C&) const { return false; }
    QZ_COLUMN_TYPES(QZ_COPY_OUT)
#undef QZ_COPY_OUT
    virtual bool SetCellValue(unsigned int row, Value const& value) = 0;
#define QZ_REPLACE(C, ...)                                                                                   \
    virtual bool SetColumn(C const&) { return false; }
    QZ_COLUMN_TYPES(QZ_REPLACE)
#undef QZ_REPLACE

    virtual bool Clear() = 0;
    virtual bool Reserve(unsigned int rows) = 0;
    /// False, removing nothing, when the column has not all of the rows.
    virtual bool RemoveRows(RowSet const& rows) = 0;

    // What only columns outside memory have: an identifier, and something to give up when their table
    // removes them.
    virtual bool GetIdentifier(Identifier&) const { return false; }
    virtual bool HasIdentifier(Identifier const&) const { return false; }
    virtual void Drop() {}
};

} // namespace qzDescriptor
