#include "tables/table_text.h"

#include <algorithm>

namespace qzDeck {

using qzDescriptor::Tabular;
using qzDescriptor::Value;

namespace {

std::string CellText(Tabular const& table, unsigned int row, unsigned int column) {
    Value value;
    qzString text;
    table.GetCellValue(row, column, value);
    value.GetValueAsString(text);
    return text;
}

std::string CsvField(std::string const& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (char const character : text)
        quoted.append(character == '"' ? 2 : 1, character);
    return quoted + '"';
}

} // namespace

TextRows TextsOf(std::span<Field const> columns, TableRows const& rows) {
    TextRows texts(1);
    for (Field const& column : columns)
        texts.front().push_back(column.identifier.GetNameKey());
    Tabular const table = MakeTable(columns, rows);
    for (unsigned int row = 0; row < table.GetRowCount(); ++row) {
        std::vector<std::string>& cells = texts.emplace_back();
        for (unsigned int column = 0; column < columns.size(); ++column) {
            bool const isEmpty = rows[row][column] == nullptr && !HasFlag(columns[column], FIELD_HAS_DEFAULT);
            cells.push_back(isEmpty ? std::string() : CellText(table, row, column));
        }
    }
    return texts;
}

void WriteAligned(std::ostream& out, TextRows const& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (std::vector<std::string> const& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    for (std::vector<std::string> const& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line.append(widths[i] + (i == 0 ? 0 : 2) - row[i].size(), ' ').append(row[i]);
        out << line.erase(line.find_last_not_of(' ') + 1) << '\n';
    }
}

void WriteCsv(std::ostream& out, TextRows const& rows) {
    for (std::vector<std::string> const& row : rows) {
        char const* separator = "";
        for (std::string const& text : row) {
            out << separator << CsvField(text);
            separator = ",";
        }
        out << '\n';
    }
}

} // namespace qzDeck
