#include "cards/card_position.h"

namespace qzDeck {

using qzDescriptor::CardPosition;

namespace {

constexpr unsigned char s_smallLength = 8;
constexpr unsigned char s_largeLength = 16;
constexpr std::size_t s_nameColumns = 8;

unsigned char LengthOn(LineFormat format) {
    if (format == LineFormat::Free)
        return 0;
    return format == LineFormat::Large ? s_largeLength : s_smallLength;
}

std::size_t FieldsPerLine(unsigned char length) {
    return length == s_largeLength ? s_dataColumns / s_largeLength : s_fieldsPerRow;
}

} // namespace

std::size_t PlaceOf(CardPosition const& position) {
    return position.GetCardRow() * FieldsPerLine(position.GetLength()) + position.GetRowPosition();
}

CardPosition PositionAt(std::size_t place, LineFormat format) {
    unsigned char const length = LengthOn(format);
    std::size_t const perLine = FieldsPerLine(length);
    return CardPosition(static_cast<unsigned int>(place / perLine),
                        static_cast<unsigned char>(place % perLine), length, qzString(),
                        CardPosition::DECORATOR_NONE, qzString());
}

CardPosition OnLines(CardPosition position, LineFormat format) {
    CardPosition const moved = PositionAt(PlaceOf(position), format);
    position.SetCardRow(moved.GetCardRow());
    position.SetRowPosition(moved.GetRowPosition());
    position.SetLength(moved.GetLength());
    return position;
}

std::size_t ColumnOf(CardPosition const& position) {
    return s_nameColumns + std::size_t{position.GetRowPosition()} * position.GetLength();
}

} // namespace qzDeck
