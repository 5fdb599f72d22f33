#pragma once

#include "support/samples.h"

#include <set>
#include <string>
#include <vector>

namespace qzDescriptor::test {

/// A cell as a text: the id of an entity, the value's own text of everything else.
inline std::string CellText(Value const& cell) {
    Entity entity;
    if (cell.GetValue(entity, 0, 0))
        return std::to_string(entity.GetId());
    qzString text;
    EXPECT_TRUE(cell.GetValueAsString(text));
    return text;
}

/// A table written down anew, over texts, with the operations of a Tabular.
class TableModel {
public:
    struct Column {
        BasicType basic = BT_NONE;
        CompoundType compound = CT_NONE;
        EntityFullType entityType;
        std::string defaultText;
        std::vector<std::string> cells;

        bool IsLike(Column const& other) const { return basic == other.basic && compound == other.compound; }
        friend bool operator==(Column const&, Column const&) = default;
    };

    TableModel() = default;
    TableModel(TableModel const& other, qzStlVector<unsigned int> const& rows) : columns(other.columns) {
        std::multiset<unsigned int> const rising(rows.begin(), rows.end());
        for (Column& column : columns) {
            auto const cells = std::exchange(column.cells, {});
            for (unsigned int const row : rising) {
                if (row < cells.size())
                    column.cells.push_back(cells[row]);
            }
        }
    }

    std::size_t RowCount() const { return columns.empty() ? 0 : columns.front().cells.size(); }
    bool IsRagged() const {
        return std::ranges::any_of(columns, [&](auto const& c) { return c.cells.size() != RowCount(); });
    }

    template <class List>
    static Column MakeColumn(List const& list) {
        Value const values(ValuePtr::Create(List(list), DS_DEFAULT));
        Column column{CellTraits<List>::s_basic,
                      CellTraits<List>::s_compound,
                      values.GetEntityFullType(),
                      CellText(DataTypeUtils::GetValueConstruct(CellTraits<List>::s_basic,
                                                                CellTraits<List>::s_compound, 0)),
                      {}};
        for (unsigned int i = 0; i < values.GetArrayDimensionExtent(0u); ++i) {
            CellOf<List> cell{};
            EXPECT_TRUE(values.GetValue(cell, i, 0));
            column.cells.push_back(CellText(Value(ValuePtr::Create(cell, DS_DEFAULT))));
        }
        return column;
    }

    template <class List>
    unsigned int InsertColumn(List const& list, unsigned int at) {
        std::size_t const place = std::min<std::size_t>(at, columns.size());
        Column column = MakeColumn(List());
        columns.insert(columns.begin() + static_cast<std::ptrdiff_t>(place), column);
        SetColumn(static_cast<unsigned int>(place), list);
        return 0;
    }

    unsigned int InsertColumn(BasicType basic, CompoundType compound, EntityFullType const& entityType,
                              unsigned int at) {
        std::size_t const rows = RowCount();
        std::size_t const before = columns.size();
        TypesOf<ColumnTypes>::ForEach([&]<class List>(std::type_identity<List>) {
            Column column = MakeColumn(List());
            bool const entities = compound == CT_ENTITY && column.compound == CT_ENTITY;
            if (entities ? !entityType.IsValid() : basic != column.basic || compound != column.compound)
                return;
            column.entityType = entities ? entityType : EntityFullType();
            columns.insert(columns.begin() +
                               static_cast<std::ptrdiff_t>(std::min<std::size_t>(at, columns.size())),
                           column);
        });
        if (columns.size() == before)
            return 0xFFFFFFFF;
        Resize(rows);
        return static_cast<unsigned int>(columns.size());
    }

    template <class List>
    bool SetColumn(unsigned int at, List const& list) {
        Column const column = MakeColumn(list);
        bool const entities = std::is_same_v<List, EntityList>;
        if (at >= columns.size() || !columns[at].IsLike(column) || (entities && !column.entityType.IsValid()))
            return false;
        std::size_t const rows = RowCount(), length = column.cells.size();
        columns[at] = column;
        if (length != rows)
            Resize(entities ? length : std::max(length, rows));
        return true;
    }

    bool SetCellValue(unsigned int row, unsigned int at, Value const& value) {
        if (at >= columns.size() || row >= columns[at].cells.size())
            return false;
        Column& column = columns[at];
        if (column.basic != value.GetBasicType() || column.compound != value.GetCompoundType() ||
            (column.entityType.IsValid() && !(column.entityType == value.GetEntityFullType())))
            return false;
        column.entityType = value.GetEntityFullType();
        column.cells[row] = CellText(value);
        return true;
    }

    bool RemoveColumn(unsigned int at) {
        if (at >= columns.size())
            return false;
        columns.erase(columns.begin() + at);
        return true;
    }
    bool ClearRows() {
        Resize(0);
        return true;
    }
    bool ReserveRows(unsigned int) { return true; }
    bool RemoveRows(qzStlVector<unsigned int> const& rows) {
        std::set<unsigned int> const removed(rows.begin(), rows.end());
        bool all = true;
        for (Column& column : columns) {
            if (removed.empty() || *removed.rbegin() >= column.cells.size()) {
                all = false;
                continue;
            }
            for (auto row = removed.rbegin(); row != removed.rend(); ++row)
                column.cells.erase(column.cells.begin() + *row);
        }
        return all;
    }

    /// Cells behind the last row of a table are none of its own.
    friend bool operator==(TableModel const& a, TableModel const& b) {
        return a.RowCount() == b.RowCount() && a.WithinRows() == b.WithinRows();
    }

    std::vector<Column> columns;

private:
    std::vector<Column> WithinRows() const {
        auto cut = columns;
        for (Column& column : cut)
            column.cells.resize(std::min(column.cells.size(), RowCount()));
        return cut;
    }
    void Resize(std::size_t rows) {
        for (Column& column : columns)
            column.cells.resize(rows, column.defaultText);
    }
};

} // namespace qzDescriptor::test
