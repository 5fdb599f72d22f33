#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <cstdint>

namespace qzDescriptor {

/// Where a value stands in a card-oriented text format of fixed columns: the row of the card, the place in
/// the row and the length of the field.
///
///     CardPosition thickness(0, 24, 8, "shell thickness", CardPosition::DECORATOR_NONE, "");
class QZDESCRIPTOR_API CardPosition {
public:
    /// Where the decorator text stands. Codes other than these are carried unchanged.
    enum ValueDecorator : std::int32_t {
        DECORATOR_NONE = 0,
        DECORATOR_BEFORE = 1,
        DECORATOR_AFTER = 2,
        DECORATOR_AROUND = 3
    };

    static constexpr unsigned int s_noRow = 0xFFFFFFFF; ///< no position

    CardPosition() = default;
    /// A position without a length, for free-format input.
    CardPosition(unsigned int cardRow, unsigned char rowPosition, qzString const& comment,
                 ValueDecorator valueDecorator, qzString const& decorator)
        : CardPosition(cardRow, rowPosition, 0, comment, valueDecorator, decorator) {}
    CardPosition(unsigned int cardRow, unsigned char rowPosition, unsigned char length,
                 qzString const& comment, ValueDecorator valueDecorator, qzString const& decorator);

    bool IsValid() const { return m_cardRow != s_noRow; }
    /// Without a length, a position addresses free-format (unstructured) input.
    bool ForUnstructured() const { return m_length == 0; }

    unsigned int GetCardRow() const { return m_cardRow; }
    void SetCardRow(unsigned int cardRow) { m_cardRow = cardRow; }
    unsigned char GetRowPosition() const { return m_rowPosition; }
    void SetRowPosition(unsigned char rowPosition) { m_rowPosition = rowPosition; }
    unsigned char GetLength() const { return m_length; }
    void SetLength(unsigned char length) { m_length = length; }
    qzString GetComment() const { return m_comment; }
    void SetComment(qzString const& comment) { m_comment = comment; }
    ValueDecorator GetValueDecorator() const { return m_valueDecorator; }
    void SetValueDecorator(ValueDecorator valueDecorator) { m_valueDecorator = valueDecorator; }
    qzString GetDecorator() const { return m_decorator; }
    void SetDecorator(qzString const& decorator) { m_decorator = decorator; }

    friend bool operator==(CardPosition const&, CardPosition const&) = default;

private:
    unsigned int m_cardRow = s_noRow;
    unsigned char m_rowPosition = 255;
    unsigned char m_length = 0;
    qzString m_comment;
    ValueDecorator m_valueDecorator = DECORATOR_NONE;
    qzString m_decorator;
};

} // namespace qzDescriptor
