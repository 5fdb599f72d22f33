#include "descriptor/ScriptFunction.h"

#include "descriptor/Function.h"
#include "qzinterp/qzInterp.h"

namespace qzDescriptor {

qzReturnStatus CallScriptFunction(Function const& function, qzStlVector<qzVariant> const& arguments,
                                  qzString& output) {
    if (function.GetFunctionNameTCL().empty())
        return {-1, "The function has no name in Tcl."};
    qzInterp* const interpreter = qzInterp::Get("tcl");
    if (interpreter == nullptr)
        return {-1, "Interpretor not found"};
    if (!interpreter->Call(function.GetFunctionNameTCL(), arguments, output))
        return {-1, "Callback execution failed"};
    return {};
}

} // namespace qzDescriptor
