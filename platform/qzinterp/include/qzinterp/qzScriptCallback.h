#pragma once

#include "qzinterp/qzInterp.h"

/// A function of a script, by the name of its language and its own. Nothing is looked up before it is
/// invoked: the interpreter may come later, and may be gone by then.
class QZINTERP_API qzScriptCallback {
public:
    qzScriptCallback() = default;
    qzScriptCallback(qzString const& language, qzString const& function)
        : m_language(language), m_function(function) {}

    qzString const& GetLanguage() const { return m_language; }
    qzString const& GetFunction() const { return m_function; }

    /// False when there is no interpreter, or the call failed; then the output says why.
    bool Invoke(qzStlVector<qzVariant> const& arguments, qzString& output) const;
    /// The same for callers that cannot wait: what goes wrong, exceptions too, is reported.
    void InvokeOrReport(qzStlVector<qzVariant> const& arguments) const noexcept;

    friend bool operator==(qzScriptCallback const&, qzScriptCallback const&) = default;

private:
    qzString m_language;
    qzString m_function;
};
