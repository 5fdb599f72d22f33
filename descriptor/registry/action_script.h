#pragma once

#include "descriptor/Forward.h"
#include "qzutl/qzString.h"

namespace qzDescriptor {

/// The script text that calls an action's function with an object, which the script side knows as its
/// controller. Quotes, backslashes and line ends in the name of the metaclass stay inside their
/// literal.
qzString MakeActionScript(ActionDefinition const& definition, EntityFullType const& type, unsigned int id);

} // namespace qzDescriptor
