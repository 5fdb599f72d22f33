#include "model/LocatedFields.h"

namespace qzDeck {

bool LocatedFields::Add(Source const& source, Line const& line) {
    DataFields const data = source.Data(line);
    auto const width = static_cast<std::uint8_t>(data.Width());
    qzDescriptor::CardPosition first = PositionAt(m_fields.size(), line.format);
    bool const beginsRow = first.GetRowPosition() != 0;
    if (beginsRow) {
        first.SetCardRow(first.GetCardRow() + 1);
        first.SetRowPosition(0);
        m_fields.resize(PlaceOf(first), {{}, &line, 0, width});
    }
    for (std::uint8_t i = 0; i < data.count; ++i)
        m_fields.push_back({data.texts[i], &line, i, width});
    return !beginsRow || data.count == s_fieldsPerRow;
}

std::size_t LocatedFields::Count() const {
    std::size_t count = m_fields.size();
    while (count > 0 && m_fields[count - 1].text.empty())
        --count;
    return count;
}

} // namespace qzDeck
