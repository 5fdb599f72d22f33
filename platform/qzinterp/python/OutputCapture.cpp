#include "OutputCapture.h"

namespace py = pybind11;

// Stands for a standard stream of Python while somebody captures, and passes on what others print. All of it
// happens while Python is held.
class OutputCapture::Stream {
public:
    explicit Stream(char const* name) : m_name(name) {
        if (PyObject* const original = PySys_GetObject(name))
            m_original = py::reinterpret_borrow<py::object>(original);
    }

    std::size_t Write(py::str const& text) const {
        if (OutputCapture* const innermost = P_Innermost())
            innermost->m_text += ToUtf8(text);
        else if (!m_original.is_none())
            m_original.attr("write")(text);
        return py::len(text);
    }
    void Flush() const {
        if (!m_original.is_none())
            m_original.attr("flush")();
    }
    void Restore() const { PySys_SetObject(m_name, m_original.ptr()); }

private:
    char const* m_name;
    py::object m_original = py::none(); // which it is in a program without a console
};

namespace {

/// How many captures there are on all threads, and the streams that stand for the standard ones meanwhile.
int s_captures = 0;
PyObject* s_streams[2] = {};

} // namespace

OutputCapture*& OutputCapture::P_Innermost() {
    thread_local OutputCapture* innermost = nullptr;
    return innermost;
}

void OutputCapture::DefineStream(py::module_& module) {
    // Not by pointers to members, which take None for a stream.
    py::class_<Stream>(module, "Stream", py::module_local())
        .def("write", [](Stream const& self, py::str const& text) { return self.Write(text); })
        .def("flush", [](Stream const& self) { self.Flush(); })
        .def("isatty", [](Stream const&) { return false; })
        .def_property_readonly("encoding", [](Stream const&) { return "utf-8"; })
        .def_property_readonly("errors", [](Stream const&) { return "backslashreplace"; });
}

OutputCapture::OutputCapture() : m_outer(P_Innermost()) {
    if (s_captures == 0) {
        s_streams[0] = py::cast(Stream("stdout")).release().ptr();
        s_streams[1] = py::cast(Stream("stderr")).release().ptr();
        PySys_SetObject("stdout", s_streams[0]);
        PySys_SetObject("stderr", s_streams[1]);
    }
    ++s_captures;
    P_Innermost() = this;
}

// What scripts have put in the place of the streams goes with the last capture.
OutputCapture::~OutputCapture() {
    P_Innermost() = m_outer;
    if (--s_captures != 0)
        return;
    for (PyObject* const stream : s_streams)
        py::reinterpret_steal<py::object>(stream).cast<Stream&>().Restore();
}

qzString ToUtf8(py::handle text) {
    auto const bytes =
        py::reinterpret_steal<py::bytes>(PyUnicode_AsEncodedString(text.ptr(), "utf-8", "backslashreplace"));
    if (!bytes)
        throw py::error_already_set();
    return qzString(std::string_view(bytes));
}
