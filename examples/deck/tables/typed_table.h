#pragma once

/// Tables of the values of cards: a column for a field, with cells of the field's type.

#include "cards/Field.h"
#include "descriptor/Tabular.h"
#include "descriptor/Value.h"

#include <span>
#include <vector>

namespace qzDeck {

/// The values in a row, by column; null where there is none that the column takes.
using TableRow = std::vector<qzDescriptor::Value const*>;
using TableRows = std::vector<TableRow>;

/// The value itself when a column of the field takes it, else null. It takes values of the field's type, and
/// integers as real numbers.
qzDescriptor::Value const* Fitting(Field const& column, qzDescriptor::Value const& value);

/// A cell without a value holds what a blank of the field stands for, else 0 or an empty text. Words are in
/// capitals.
qzDescriptor::Tabular MakeTable(std::span<Field const> columns, TableRows const& rows);

} // namespace qzDeck
