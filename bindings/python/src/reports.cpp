#include "bindings.h"
#include "qzinterp/qzInterp.h"

#include <iostream>

namespace qzPython {

namespace {

/// Drops what a stream has raised, for which nobody waits. An interrupt is for whoever runs next.
void DropException() {
    if (PyErr_Occurred() != nullptr && PyErr_ExceptionMatches(PyExc_KeyboardInterrupt) != 0)
        PyErr_SetInterrupt();
    PyErr_Clear();
}

/// Writes at once, as others write to the same place, and a program may never end its Python. False where
/// there is no such stream, or none that takes the text.
bool WriteInPython(qzString const& text, char const* stream) {
    if (!IsPythonAlive())
        return false;
    py::gil_scoped_acquire const held;
    py::error_scope const pending;
    auto const target = py::reinterpret_borrow<py::object>(PySys_GetObject(stream));
    bool const isWritten =
        target && PyFile_WriteObject(GiveText(text).ptr(), target.ptr(), Py_PRINT_RAW) == 0;
    if (isWritten)
        Py_XDECREF(PyObject_CallMethod(target.ptr(), "flush", nullptr));
    DropException();
    return isWritten;
}

/// Writes as print() does, else to the stream of C++.
void Write(qzString const& text, char const* stream, std::ostream& other) {
    if (!WriteInPython(text, stream))
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
        char const* const end = message.ends_with('\n') ? "" : "\n";
        Write("script (" + language + "): " + message + end, "stderr", std::cerr);
    });
}

} // namespace qzPython
