#pragma once

#include "cards/card_position.h"
#include "reader/Source.h"

#include <cstddef>
#include <vector>

namespace qzDeck {

/// The texts of one card's data fields, gathered from its lines, by their place.
class LocatedFields {
public:
    /// Adds the fields of the card's next line. Large lines go on where the last one ended; all others begin
    /// a row of eight fields. False when a free line of large fields, too, had to begin a new one.
    bool Add(Source const& source, Line const& line);
    void Clear() { m_fields.clear(); }

    /// Up to the last that is not blank.
    std::size_t Count() const;
    LocatedField const& operator[](std::size_t place) const { return m_fields[place]; }

private:
    std::vector<LocatedField> m_fields;
};

} // namespace qzDeck
