#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "descriptor/qzReturnStatus.h"

namespace qzDescriptor {

/// Calls a function by its name in Tcl. The output becomes what it printed and, when it failed, why. The
/// status is not 0 when the function has no such name, when there is no Tcl, and when the call failed. On
/// the thread that asked for Tcl first; calls from others fail.
QZDESCRIPTOR_API qzReturnStatus CallScriptFunction(Function const& function,
                                                   qzStlVector<qzVariant> const& arguments, qzString& output);

} // namespace qzDescriptor
