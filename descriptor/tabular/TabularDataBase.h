#pragma once

#include "tabular/TabularDataColumn.h"

#include <memory>
#include <vector>

namespace qzDescriptor {

/// What a table consists of: its columns in order. The rules of tables are here, once for all stores; a store
/// adds how columns are made and copied, and may do its own part around any operation.
class TabularDataBase {
public:
    virtual ~TabularDataBase() = default;

    virtual std::unique_ptr<TabularDataBase> Clone(qzStlVector<unsigned int> const& rows) const = 0;
    virtual std::unique_ptr<TabularDataBase> Clone() const = 0;
    virtual bool UsesExternalStorage() const = 0;
    virtual QZDT_DBHandle GetDBHandle() const = 0;
    virtual QZDT_DTSHandle GetDTSHandle() const = 0;

    virtual unsigned int GetColumnCount() const { return static_cast<unsigned int>(m_columns.size()); }
    virtual unsigned int GetRowCount() const;
    virtual bool GetColumnFromIdentifier(Identifier const& identifier, unsigned int& column) const;
    virtual bool GetIdentifierFromColumn(unsigned int column, Identifier& identifier) const;
    virtual BasicType GetBasicType(unsigned int column) const;
    virtual CompoundType GetCompoundType(unsigned int column) const;
    virtual EntityFullType GetEntityListType(unsigned int column) const;
    virtual bool HasThisEntityListType(EntityFullType const& type) const;
    virtual bool GetCellValue(unsigned int row, unsigned int column, Value& value) const;

#define QZ_COPY_OUT(C, ...) virtual int GetColumn(unsigned int column, C& values) const;
    QZ_COLUMN_TYPES(QZ_COPY_OUT)
#undef QZ_COPY_OUT
#define QZ_SHOW(C, Name) virtual C const* GetColumn##Name(unsigned int column) const;
    QZ_COLUMN_TYPES(QZ_SHOW)
#undef QZ_SHOW

#define QZ_INSERT(C, ...) virtual unsigned int InsertColumn(C const& values, unsigned int at);
    QZ_INSERT(EntityList)
    QZ_COLUMN_VECTORS(QZ_INSERT)
#undef QZ_INSERT
    virtual unsigned int InsertColumn(BasicType basic, CompoundType compound,
                                      EntityFullType const& entityType, unsigned int at);
    virtual bool RemoveColumn(unsigned int column);

    virtual bool SetCellValue(unsigned int row, unsigned int column, Value const& value);
    virtual bool SetColumn(unsigned int column, EntityList const& values);
#define QZ_REPLACE(C, ...) virtual bool SetColumn(unsigned int column, C const& values);
    QZ_COLUMN_VECTORS(QZ_REPLACE)
#undef QZ_REPLACE

    virtual bool ClearRows();
    virtual bool ReserveRows(unsigned int rows);
    virtual bool RemoveRows(qzStlVector<unsigned int> const& rows);

    /// Adds copies of another table's columns, each as long as it is there.
    bool CopyColumnsOf(Tabular const& other);

protected:
    TabularDataBase() = default;

    /// A new column without rows, which is going to stand at the position; null for a type that the store
    /// does not keep. An entity column may be without an entity type.
    virtual std::unique_ptr<TabularDataColumn> P_MakeColumn(BasicType basic, CompoundType compound,
                                                            EntityFullType const& entityType,
                                                            unsigned int at) = 0;

    /// Null when there is no such column.
    TabularDataColumn* P_FindColumn(unsigned int column) const {
        return column < m_columns.size() ? m_columns[column].get() : nullptr;
    }

    std::vector<std::unique_ptr<TabularDataColumn>> m_columns;

private:
    TabularDataBase(TabularDataBase const&) = delete;
    TabularDataBase& operator=(TabularDataBase const&) = delete;

    template <class List>
    int P_GetColumn(unsigned int column, List& values) const;
    template <class List>
    List const* P_GetList(unsigned int column) const;
    template <class List>
    unsigned int P_InsertColumn(List const& values, unsigned int at);
    template <class Vector>
    bool P_SetColumn(unsigned int column, Vector const& values);

    bool P_Insert(BasicType basic, CompoundType compound, EntityFullType const& entityType, unsigned int at);
    void P_ResizeColumns(unsigned int rows);
    bool P_OnEveryColumn(auto&& operation);
};

} // namespace qzDescriptor
