#include "descriptor/ActionDefinition.h"

#include <tuple>
#include <utility>

namespace qzDescriptor {

namespace {

using Function = ActionDefinition::Function;

bool AgreeAsFarAsKnown(Function const& a, Function const& b) {
    if (a.target_type() != b.target_type())
        return false;
    using PlainFunction = qzReturnStatus (*)(Metaobject const*);
    auto const* const plain = a.target<PlainFunction>();
    return plain == nullptr || *plain == *b.target<PlainFunction>();
}

} // namespace

ActionDefinition::ActionDefinition(qzString const& displayName, qzString const& callbackScriptFunction,
                                   qzString const& callbackScriptFunctionClass,
                                   qzString const& callbackScriptFunctionModule, qzString const& language,
                                   bool enabled, bool visible, qzString const& description,
                                   qzString const& helpPath)
    : m_displayName(displayName),
      m_callbackScriptFunction(callbackScriptFunction),
      m_callbackScriptFunctionClass(callbackScriptFunctionClass),
      m_callbackScriptFunctionModule(callbackScriptFunctionModule),
      m_language(language),
      m_enabled(enabled),
      m_visible(visible),
      m_description(description),
      m_helpPath(helpPath) {}

ActionDefinition::ActionDefinition(qzString const& displayName, Function callback, bool enabled,
                                   Function enabledTest, qzString const& description,
                                   qzString const& helpPath)
    : m_displayName(displayName),
      m_callbackFunction(std::move(callback)),
      m_enabled(enabled),
      m_visible(true),
      m_description(description),
      m_helpPath(helpPath),
      m_enabledTest(std::move(enabledTest)) {}

ActionDefinition::~ActionDefinition() = default;

bool operator==(ActionDefinition const& a, ActionDefinition const& b) {
    auto const fields = [](ActionDefinition const& action) {
        return std::tie(action.m_displayName, action.m_callbackScriptFunction,
                        action.m_callbackScriptFunctionClass, action.m_callbackScriptFunctionModule,
                        action.m_language, action.m_enabled, action.m_visible, action.m_description,
                        action.m_helpPath);
    };
    return fields(a) == fields(b) && AgreeAsFarAsKnown(a.m_callbackFunction, b.m_callbackFunction) &&
           AgreeAsFarAsKnown(a.m_enabledTest, b.m_enabledTest);
}

} // namespace qzDescriptor
