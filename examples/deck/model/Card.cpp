#include "model/Card.h"

#include <algorithm>

namespace qzDeck {

qzDescriptor::Value const* Card::Find(qzDescriptor::Identifier const& field) const {
    auto const end = m_kind->fields.begin() + static_cast<std::ptrdiff_t>(m_values.size());
    auto const found = std::find(m_kind->fields.begin(), end, field);
    return found == end ? nullptr : &m_values[static_cast<std::size_t>(found - m_kind->fields.begin())];
}

} // namespace qzDeck
