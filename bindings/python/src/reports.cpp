#include "bindings.h"
#include "qzinterp/qzInterp.h"

#include <iostream>

namespace qzPython {

namespace {

/// Writes as print() does; to the stream of C++ where Python has none, or none that takes the text.
void Write(qzString const& text, char const* stream, std::ostream& other) {
    if (IsPythonAlive()) {
        py::gil_scoped_acquire const held;
        py::error_scope const pending;
        PyObject* const target = PySys_GetObject(stream); // borrowed
        if (target != nullptr && PyFile_WriteObject(GiveText(text).ptr(), target, Py_PRINT_RAW) == 0)
            return;
        PyErr_Clear();
    }
    other << text << std::flush;
}

void SetUnlessSet(qzInterp::Report (*set)(qzInterp::Report), qzInterp::Report report) {
    if (qzInterp::Report before = set(std::move(report)))
        set(std::move(before));
}

} // namespace

void ReportWherePythonPrints() {
    SetUnlessSet(qzInterp::SetOutputReport,
                 [](qzString const&, qzString const& output) { Write(output, "stdout", std::cout); });
    SetUnlessSet(qzInterp::SetFailureReport, [](qzString const& language, qzString const& message) {
        Write("script (" + language + "): " + message + '\n', "stderr", std::cerr);
    });
}

} // namespace qzPython
