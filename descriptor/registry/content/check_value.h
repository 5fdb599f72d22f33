#pragma once

#include "descriptor/Content.h"
#include "descriptor/Forward.h"
#include "descriptor/qzReturnStatus.h"

namespace qzDescriptor {

/// Status -1 with a sentence.
qzReturnStatus Refusal(qzString const& message);

/// Whether a value, or null, is of the type and array dimension that a definition asks for. All tables are of
/// one type.
bool IsOfType(Definition const& definition, ValuePtr const* value);

/// Whether a definition admits a value: it is of its type, and none of its elements is refused by its
/// allowables. The message says why not.
qzReturnStatus CheckValue(Definition const& definition, ValuePtr const* value);

/// What a definition, or null, makes of an attribute.
Content::AttributeType TypeOfAttribute(Definition const* definition);

/// CheckValue for an attribute that may not exist or may hold no value.
qzReturnStatus CheckAttributeValue(Definition const* definition, ValuePtr const* value);

/// Equal types and data, whatever the display statuses.
bool HaveEqualData(ValuePtr const* a, ValuePtr const* b);

} // namespace qzDescriptor
