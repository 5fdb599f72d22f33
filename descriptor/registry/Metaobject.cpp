#include "descriptor/Metaobject.h"

#include "definitions/allowables/TestElements.h"
#include "descriptor/ActionDefinition.h"
#include "descriptor/Allowables.h"
#include "descriptor/Identifier.h"
#include "descriptor/ScriptSession.h"
#include "descriptor/Value.h"
#include "qzinterp/qzInterp.h"
#include "registry/action_script.h"

namespace qzDescriptor {

Metaobject::~Metaobject() = default;

bool Metaobject::P_SetAllowables([[maybe_unused]] Identifier const& attribute,
                                 [[maybe_unused]] Allowables const& allowables) {
    return false;
}

bool Metaobject::P_GetActionData([[maybe_unused]] Identifier const& action,
                                 [[maybe_unused]] ActionDefinition& definition) const {
    return false;
}

bool Metaobject::SetAllowables(Identifier const& attribute, Allowables const& given) {
    Allowables const allowables = given; // those of the object itself end when they are replaced
    if (!P_SetAllowables(attribute, allowables))
        return false;
    ValuePtr const* holder = nullptr;
    if (!GetValue(attribute, holder) || holder == nullptr)
        return true;
    if (TestElements(allowables, *holder) != 1)
        return true;
    Value defaultValue; // of its own: what is written must not depend on the value that goes
    if (allowables.GetDefault(defaultValue))
        SetValue(attribute, defaultValue);
    return true;
}

qzReturnStatus Metaobject::InvokeAction(Identifier const& action) const {
    if (!IsActionEnabled(action))
        return {-1, "Action is not enabled"};
    ActionDefinition definition;
    P_GetActionData(action, definition);
    if (!definition.IsScriptAction())
        return definition.GetCallbackFunction()(this);
    qzInterp* const interpreter = qzInterp::Get(definition.GetLanguage());
    if (interpreter == nullptr)
        return {-1, "Interpretor not found"};
    ScriptSessionScope const scope(GetSession());
    qzString output;
    if (!interpreter->Execute(MakeActionScript(definition, GetEntityFullType(), GetEntity().GetId()),
                              output)) {
        qzInterp::ReportFailure(definition.GetLanguage(),
                                definition.GetCallbackScriptFunction() + ": " + output);
        return {-1, "Callback execution failed"};
    }
    qzInterp::ReportOutput(definition.GetLanguage(), output);
    return {0, "Callback execution succeeded"};
}

} // namespace qzDescriptor
