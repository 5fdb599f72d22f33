#include "qzinterp/qzScriptCallback.h"

#include <exception>

bool qzScriptCallback::Invoke(qzStlVector<qzVariant> const& arguments, qzString& output) const {
    qzInterp* const interpreter = qzInterp::Get(m_language);
    if (interpreter == nullptr) {
        output = "no interpreter for '" + m_language + "' to call '" + m_function + "' in";
        return false;
    }
    return interpreter->Call(m_function, arguments, output);
}

void qzScriptCallback::InvokeOrReport(qzStlVector<qzVariant> const& arguments) const noexcept {
    try {
        qzString output;
        bool isDone = false;
        try {
            isDone = Invoke(arguments, output);
        } catch (std::exception const& error) {
            output = error.what();
        }
        if (isDone)
            qzInterp::ReportOutput(m_language, output);
        else
            qzInterp::ReportFailure(m_language, m_function + ": " + output);
    } catch (...) {
        // Neither the call nor its report: there is nobody left to tell.
    }
}
