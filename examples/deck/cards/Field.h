#pragma once

#include "descriptor/CardPosition.h"
#include "descriptor/Definition.h"
#include "descriptor/Identifier.h"

namespace qzDeck {

/// One field of a card, as the model, the reader, the writer and the checks know it.
struct Field {
    qzDescriptor::Identifier identifier;
    qzDescriptor::Definition definition;
    /// On small lines. That of a repeated field is its first one; a field that stands behind as many others
    /// as a card happens to have is without position.
    qzDescriptor::CardPosition position;
};

/// The bits of a field's DefinitionUserParams::GetFlag.
enum FieldFlag : int {
    FIELD_IS_ID = 1,          ///< the id of its card, which no other card of the family has
    FIELD_IS_COMPONENTS = 2,  ///< an integer of digits 1 to 6, each at most once, or 0
    FIELD_HAS_DEFAULT = 4,    ///< a blank stands for the default; otherwise it stands for nothing
    FIELD_DEFAULTS_TO_ID = 8, ///< a blank stands for the id of the card
    FIELD_IS_RANGE = 16       ///< a word between two ids that stands for all others between them
};

inline bool HasFlag(Field const& field, FieldFlag flag) {
    return (field.definition.GetUserParams().GetFlag() & flag) != 0;
}

inline bool IsRequired(Field const& field) {
    return field.definition.GetValueSpecification() == qzDescriptor::Definition::SPECIFICATION_REQUIRED;
}

} // namespace qzDeck
