#pragma once

#include "descriptor/Forward.h"
#include "selexpr/Condition.h"
#include "selexpr/Scalar.h"

namespace qzDescriptor {

// How a number of each type stands in a condition. Unsigned ones are taken as signed ones.
inline void PutNumber(ui::selexpr::Scalar& out, bool value) { out.SetBoolean(value); }
inline void PutNumber(ui::selexpr::Scalar& out, int value) { out.SetInteger(value); }
inline void PutNumber(ui::selexpr::Scalar& out, unsigned int value) {
    out.SetInteger(static_cast<int>(value));
}
inline void PutNumber(ui::selexpr::Scalar& out, float value) { out.SetFloat(value); }
inline void PutNumber(ui::selexpr::Scalar& out, double value) { out.SetDouble(value); }

/// What attributes of one type are to queries.
struct QueryType {
    /// What may be written in a condition on them.
    ui::selexpr::ValueType valueType = ui::selexpr::VALUE_ANY;
    /// Whether their type is known at all.
    bool isKnown = true;
    /// Read the element (0, 0) of a value; null for types that have no value in queries. A text is a view
    /// into the value, or into `scratch`.
    bool (*read)(ValuePtr const& value, ui::selexpr::Scalar& out, qzString& scratch) = nullptr;
    bool (*readVariant)(ValuePtr const& value, qzVariant& out) = nullptr;
};

/// By the flat type of an attribute's definition, which may be null.
QueryType const& GetQueryType(Definition const* definition);

/// Whether a property is the number of the entity.
bool IsIdProperty(qzString const& property);

} // namespace qzDescriptor
