#pragma once

#include "qzinterp/Export.h"
#include "qzutl/qzStlVector.h"
#include "qzutl/qzString.h"
#include "qzutl/qzVariant.h"

#include <functional>

/// The interpreter of one scripting language. Interpreters are registered under the name of their language by
/// whoever brings them; those of "python" and "tcl" come with libraries that are opened, and started, when
/// somebody first asks for them. This library needs none.
///
///     if (qzInterp* const python = qzInterp::Get("python")) {
///         qzString output;
///         if (!python->Execute("print(6 * 7)", output))
///             std::cerr << output;                        // says why
///     }
class QZINTERP_API qzInterp {
public:
    virtual ~qzInterp();

    /// Runs a script text. The output becomes what the script printed and, when it failed, why.
    virtual bool Execute(qzString const& script, qzString& output) = 0;
    /// Calls a function of the language's main namespace by its name, likewise.
    virtual bool Call(qzString const& function, qzStlVector<qzVariant> const& arguments,
                      qzString& output) = 0;

    /// The interpreter that is registered for a language, or that a library beside this one brings for it;
    /// null when there is none. It stays with whoever registered it.
    static qzInterp* Get(qzString const& language);
    /// False when the language has an interpreter already.
    static bool Register(qzString const& language, qzInterp& interpreter);
    /// To be called before the interpreter ends. False when the language has none. A library beside this one
    /// is not asked again.
    static bool Unregister(qzString const& language);

    using Report = std::function<void(qzString const& language, qzString const& text)>;

    // Actions and callbacks of signals run scripts whose output nobody waits for. These are told of it, and
    // may be called by any thread that runs scripts; what they throw is dropped. Setting one gives the one
    // before; an empty one restores the first.

    /// Why such a script failed, with what it had printed. At first this goes to standard error.
    static Report SetFailureReport(Report report);
    static void ReportFailure(qzString const& language, qzString const& message);
    /// What such a script printed. At first this goes to standard output.
    static Report SetOutputReport(Report report);
    static void ReportOutput(qzString const& language, qzString const& output);

protected:
    qzInterp() = default;
    qzInterp(qzInterp const&) = default;
    qzInterp& operator=(qzInterp const&) = default;
};
