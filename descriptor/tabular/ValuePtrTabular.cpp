#include "tabular/ValuePtrTabular.h"

#include "tabular/column_types.h"
#include "values/formulas/TextTokens.h"
#include "values/storage/CreateTable.h"
#include "values/storage/list_text.h"

namespace qzDescriptor {

std::size_t ByteSize(Tabular const& table) {
    std::size_t bytes = sizeof(Tabular);
    if (table.UsesExternalStorage())
        return bytes;
    for (unsigned int column = 0; column < table.GetColumnCount(); ++column) {
        VisitColumn(table.GetBasicType(column), table.GetCompoundType(column),
                    [&]<class List>(std::type_identity<List>) {
                        List scratch;
                        bytes += ByteSize(ReadColumn(table, column, scratch));
                    });
    }
    return bytes;
}

namespace {

/// Texts in quotes and tuples and entities in braces, so that the cells of a row can be told apart; empty
/// braces where a column ends before the table.
bool AppendCell(qzString& out, Tabular const& table, unsigned int row, unsigned int column,
                char const* format) {
    Value cell;
    if (!table.GetCellValue(row, column, cell)) {
        out += "{}";
        return true;
    }
    qzString text;
    if (!cell.GetValueAsString(text, format))
        return false;
    if (cell.GetBasicType() == BT_STRING)
        AppendQuoted(out, text);
    else
        out += cell.GetCompoundType() == CT_SCALAR ? text : '{' + text + '}';
    return true;
}

bool AppendTableRow(qzString& out, Tabular const& table, unsigned int row, char const* format) {
    return AppendBraced(out, table.GetColumnCount(),
                        [&](unsigned int column) { return AppendCell(out, table, row, column, format); });
}

} // namespace

ValuePtr* ValuePtrTabular::Clone() const { return new ValuePtrTabular(m_data, ValuePtr::GetDisplayStatus()); }

unsigned int ValuePtrTabular::GetArrayDimensionExtent(unsigned int dimension) const {
    if (dimension == 0)
        return m_data.GetRowCount();
    return dimension == 1 ? m_data.GetColumnCount() : 0;
}

bool ValuePtrTabular::GetValueAsString(qzString& out, char const* format, unsigned int i,
                                       unsigned int j) const {
    return WriteOrEmpty(out, [&](qzString& text) {
        if (i == s_wholeValue)
            return AppendBraced(text, m_data.GetRowCount(),
                                [&](unsigned int row) { return AppendTableRow(text, m_data, row, format); });
        if (j == s_wholeValue)
            return i < m_data.GetRowCount() && AppendTableRow(text, m_data, i, format);
        Value cell;
        return m_data.GetCellValue(i, j, cell) && cell.GetValueAsString(text, format);
    });
}

ValuePtr* CreateTable(QZDT_DBHandle const& database, DisplayStatus status) {
    return new ValuePtrTabular(Tabular(database, QZDT_DTSHandle()), status);
}

} // namespace qzDescriptor
