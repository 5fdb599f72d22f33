#pragma once

#include "qzutl/qzString.h"

#include <pybind11/pybind11.h>

/// While one lives, what this thread prints in Python, and reports as an error there, comes here; other
/// threads print where they did. Captures nest.
class OutputCapture {
public:
    OutputCapture();
    ~OutputCapture();
    OutputCapture(OutputCapture const&) = delete;
    OutputCapture& operator=(OutputCapture const&) = delete;

    qzString const& GetText() const { return m_text; }

    /// Defines the class of the streams that stand for the standard ones.
    static void DefineStream(pybind11::module_& module);

private:
    class Stream;

    static OutputCapture*& P_Innermost();

    qzString m_text;
    OutputCapture* m_outer;
};

/// The text of a Python string; what is no valid text in it is written as an escape.
qzString ToUtf8(pybind11::handle text);
