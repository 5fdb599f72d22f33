#include "tables/typed_table.h"

#include "model/field_value.h"
#include "qzutl/qzStlVector.h"
#include "reader/latin1.h"

#include <optional>
#include <type_traits>

namespace qzDeck {

using qzDescriptor::Tabular;
using qzDescriptor::Value;

namespace {

template <class T>
std::optional<T> Content(Value const& value) {
    if constexpr (std::is_same_v<T, qzString>) {
        qzString const* const text = value.GetValuePointerString();
        return text != nullptr && KindOf(value) == FieldKind::Text ? std::optional<T>(Upper(*text))
                                                                   : std::nullopt;
    } else {
        if (T number{}; value.GetValue(number))
            return number;
        if (int integer = 0; std::is_same_v<T, double> && value.GetValue(integer))
            return static_cast<T>(integer);
        return std::nullopt;
    }
}

template <class T>
T BlankOf(Field const& field) {
    Value value;
    if (!HasFlag(field, FIELD_HAS_DEFAULT) || !field.definition.GetAllowables().GetDefault(value))
        return T{};
    return Content<T>(value).value_or(T{});
}

template <class T>
void AppendColumn(Tabular& table, Field const& field, TableRows const& rows) {
    unsigned int const column = table.GetColumnCount();
    T const blank = BlankOf<T>(field);
    qzStlVector<T> cells;
    cells.reserve(rows.size());
    for (TableRow const& row : rows) {
        Value const* const value = row[column];
        cells.push_back(value == nullptr ? blank : Content<T>(*value).value_or(blank));
    }
    table.InsertColumn(cells, column);
}

} // namespace

Value const* Fitting(Field const& column, Value const& value) {
    switch (column.definition.GetValueBasicType()) {
    case qzDescriptor::BT_INT:
        return Content<int>(value) ? &value : nullptr;
    case qzDescriptor::BT_DOUBLE:
        return Content<double>(value) ? &value : nullptr;
    default:
        return Content<qzString>(value) ? &value : nullptr;
    }
}

Tabular MakeTable(std::span<Field const> columns, TableRows const& rows) {
    Tabular table;
    for (Field const& column : columns) {
        if (column.definition.GetValueBasicType() == qzDescriptor::BT_INT)
            AppendColumn<int>(table, column, rows);
        else if (column.definition.GetValueBasicType() == qzDescriptor::BT_DOUBLE)
            AppendColumn<double>(table, column, rows);
        else
            AppendColumn<qzString>(table, column, rows);
    }
    return table;
}

} // namespace qzDeck
