#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "descriptor/qzReturnStatus.h"

#include <functional>

namespace qzDescriptor {

/// An operation that a user starts on one object: a native function called with the object, or a function of
/// a script module.
///
///     ActionDefinition review("Review", ReviewPart, true, nullptr, "Shows the part alone", "");
///     ActionDefinition mesh("Mesh", "Mesher.run", "Mesher", "plant.meshing", "python", true, true, "", "");
///     review.IsScriptAction();        // false
class QZDESCRIPTOR_API ActionDefinition {
public:
    using Function = std::function<qzReturnStatus(Metaobject const*)>;

    /// A script action without a script: texts empty, neither enabled nor visible.
    ActionDefinition() = default;
    /// A script action, in the interpreter of a language.
    ActionDefinition(qzString const& displayName, qzString const& callbackScriptFunction,
                     qzString const& callbackScriptFunctionClass,
                     qzString const& callbackScriptFunctionModule, qzString const& language, bool enabled,
                     bool visible, qzString const& description, qzString const& helpPath);
    /// A native action, which is visible. `enabledTest` may be empty.
    ActionDefinition(qzString const& displayName, Function callback, bool enabled, Function enabledTest,
                     qzString const& description, qzString const& helpPath);
    ActionDefinition(ActionDefinition const&) = default;
    ActionDefinition(ActionDefinition&&) noexcept = default;
    ActionDefinition& operator=(ActionDefinition const&) = default;
    ActionDefinition& operator=(ActionDefinition&&) noexcept = default;
    virtual ~ActionDefinition();

    bool IsScriptAction() const { return !m_callbackFunction; }

    qzString GetDisplayName() const { return m_displayName; }
    void SetDisplayName(qzString const& displayName) { m_displayName = displayName; }
    Function const& GetCallbackFunction() const { return m_callbackFunction; }
    /// As it is called: a function of a class with the class before it. The class is what is imported then.
    qzString GetCallbackScriptFunction() const { return m_callbackScriptFunction; }
    qzString GetCallbackScriptFunctionClass() const { return m_callbackScriptFunctionClass; }
    qzString GetCallbackScriptFunctionModule() const { return m_callbackScriptFunctionModule; }
    qzString GetLanguage() const { return m_language; }
    /// Whether the action can be started at all; the enabled test tells for one object.
    bool GetEnabled() const { return m_enabled; }
    void SetEnabled(bool enabled) { m_enabled = enabled; }
    bool GetVisible() const { return m_visible; }
    void SetVisible(bool visible) { m_visible = visible; }
    qzString GetDescription() const { return m_description; }
    void SetDescription(qzString const& description) { m_description = description; }
    qzString GetHelpPath() const { return m_helpPath; }
    void SetHelpPath(qzString const& helpPath) { m_helpPath = helpPath; }
    /// Status 0 says that a native action can be started on the object; the message of another says why not.
    /// Empty when every object will do.
    Function const& GetEnabledTest() const { return m_enabledTest; }

    /// Every field. Functions agree when both are empty, or are of one type and, where that is a plain
    /// function, the same one: what a function object has captured cannot be compared.
    QZDESCRIPTOR_API friend bool operator==(ActionDefinition const& a, ActionDefinition const& b);

private:
    qzString m_displayName;
    Function m_callbackFunction;
    qzString m_callbackScriptFunction;
    qzString m_callbackScriptFunctionClass;
    qzString m_callbackScriptFunctionModule;
    qzString m_language;
    bool m_enabled = false;
    bool m_visible = false;
    qzString m_description;
    qzString m_helpPath;
    Function m_enabledTest;
};

} // namespace qzDescriptor
