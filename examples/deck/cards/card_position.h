#pragma once

/// Where the fields of a card stand on its lines. The position of a field in its card's definition counts
/// small lines; the same field has another position on lines of another format.

#include "descriptor/CardPosition.h"
#include "reader/Source.h"

#include <cstddef>

namespace qzDeck {

/// Data fields of a card from the beginning of one small line to the next.
inline constexpr std::size_t s_fieldsPerRow = 8;

/// The place of a field among all data fields of its card, from 0. The length tells which lines the position
/// counts: large ones when it is 16.
std::size_t PlaceOf(qzDescriptor::CardPosition const& position);

/// The position of a place on lines of a format: the line of the card, the data field on that line, both
/// from 0, and its length in columns, which is 0 on free lines.
qzDescriptor::CardPosition PositionAt(std::size_t place, LineFormat format);

/// The same field on lines of another format.
qzDescriptor::CardPosition OnLines(qzDescriptor::CardPosition position, LineFormat format);

/// The column, from 0, in which a field of a fixed line begins.
std::size_t ColumnOf(qzDescriptor::CardPosition const& position);

} // namespace qzDeck
