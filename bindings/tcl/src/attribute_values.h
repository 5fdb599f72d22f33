#pragma once

/// Values of attributes in Tcl: numbers and texts, lists of them, lists of lists; tuples are lists of
/// numbers, entities lists of type and id. What is none of these has its text form.

#include "descriptor/Forward.h"
#include "descriptor/Value.h"

#include <tcl.h>

namespace qzTcl {

using namespace qzDescriptor;

Tcl_Obj* GiveValue(ValuePtr const& value);
/// One element of a list; throws when there is none.
Tcl_Obj* GiveElement(ValuePtr const& value, unsigned int place);

/// Sets an attribute to what a word says. Throws with the reason for what is refused.
void SetAttribute(Metaobject const& object, Identifier const& attribute, Tcl_Obj* word);

} // namespace qzTcl
