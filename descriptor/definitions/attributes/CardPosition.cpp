#include "descriptor/CardPosition.h"

namespace qzDescriptor {

CardPosition::CardPosition(unsigned int cardRow, unsigned char rowPosition, unsigned char length,
                           qzString const& comment, ValueDecorator valueDecorator, qzString const& decorator)
    : m_cardRow(cardRow),
      m_rowPosition(rowPosition),
      m_length(length),
      m_comment(comment),
      m_valueDecorator(valueDecorator),
      m_decorator(decorator) {}

} // namespace qzDescriptor
