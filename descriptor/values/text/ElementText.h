#pragma once

#include "descriptor/qzdescriptor.h"
#include "values/storage/type_table.h"

namespace qzDescriptor {

// The text of one element of every value type. A null format means the type's own form.
//
// AppendText appends nothing and is false when the format does not fit. ReadText changes nothing and is false
// when the text or the format does not fit.
#define QZ_DECLARE_ELEMENT_TEXT(T, ...)                                                                      \
    bool AppendText(qzString& out, T const& value, char const* format);                                      \
    bool ReadText(qzString const& text, char const* format, T& value);
QZ_ELEMENT_TYPES(QZ_DECLARE_ELEMENT_TEXT)
#undef QZ_DECLARE_ELEMENT_TEXT

// Entity types are written as in the text of their entities: the type, and the subtype where there is one.
bool AppendText(qzString& out, EntityFullType const& value, char const* format);
bool ReadText(qzString const& text, char const* format, EntityFullType& value);

} // namespace qzDescriptor
