#include "PythonInterp.h"

#include "../src/SharedLibrary.h"
#include "OutputCapture.h"

#include <cstdint>
#include <exception>
#include <filesystem>

namespace py = pybind11;

namespace {

// --- starting ------------------------------------------------------------------------------------------

bool Start(qzString& failure) {
    PyConfig config;
    PyConfig_InitIsolatedConfig(&config);
    // From here the standard modules are found, whatever Python stands first in PATH.
    PyStatus status = PyConfig_SetBytesString(&config, &config.program_name, QZ_PYTHON_PROGRAM);
    if (!PyStatus_Exception(status))
        status = Py_InitializeFromConfig(&config);
    PyConfig_Clear(&config);
    if (PyStatus_Exception(status))
        failure = status.err_msg != nullptr ? status.err_msg : "Python does not start";
    return !PyStatus_Exception(status);
}

/// Where the modules of this project are: beside the libraries, in the folder where they were built or
/// installed.
void AddModuleFolders() {
    std::filesystem::path const libraries = SharedLibrary::GetFolderOf(&PythonInterp::Open);
    py::list path = py::module_::import("sys").attr("path");
    for (char const* const folder : {"python", "python3/dist-packages", "../python3/dist-packages"}) {
        std::error_code ignored;
        std::filesystem::path const candidate = libraries / folder;
        if (std::filesystem::exists(candidate / "qzdescriptor", ignored))
            path.append(candidate.lexically_normal().string());
    }
}

// --- running -------------------------------------------------------------------------------------------

/// Python for this thread, whoever has it now.
class Hold {
public:
    Hold() : m_state(PyGILState_Ensure()) {}
    ~Hold() { PyGILState_Release(m_state); }
    Hold(Hold const&) = delete;
    Hold& operator=(Hold const&) = delete;

private:
    PyGILState_STATE m_state;
};

/// Whether Python still runs: the program that had it running may have ended it.
bool IsAlive() { return Py_IsInitialized() != 0 && _Py_IsFinalizing() == 0; }

py::dict MainNamespace() { return py::module_::import("__main__").attr("__dict__"); }

/// The traceback as Python prints it, or the class alone where that fails: the text of an exception is a
/// script's, too. Syntax errors have no trace.
qzString Describe(py::error_already_set const& error) {
    try {
        py::object const trace = error.trace() ? error.trace() : py::none();
        py::object const lines =
            py::module_::import("traceback").attr("format_exception")(error.type(), error.value(), trace);
        return ToUtf8(py::str("").attr("join")(lines));
    } catch (py::error_already_set const&) {
        return Py_TYPE(error.value().ptr())->tp_name;
    }
}

/// A script that ends itself has succeeded unless it says otherwise.
bool IsSuccessfulExit(py::error_already_set const& error) {
    if (!error.matches(PyExc_SystemExit))
        return false;
    py::object const code = error.value().attr("code");
    return code.is_none() || (py::isinstance<py::int_>(code) && code.cast<long long>() == 0);
}

py::object FindFunction(qzString const& name) {
    auto const dot = name.rfind('.');
    if (dot != qzString::npos)
        return py::module_::import(name.substr(0, dot).c_str()).attr(name.substr(dot + 1).c_str());
    py::dict const main = MainNamespace();
    return main.contains(name) ? py::object(main[name.c_str()])
                               : py::object(py::module_::import("builtins").attr(name.c_str()));
}

struct ToPython {
    py::object operator()(std::monostate) const { return py::none(); }
    py::object operator()(int value) const { return py::int_(value); }
    py::object operator()(long long value) const { return py::int_(value); }
    py::object operator()(bool value) const { return py::bool_(value); }
    py::object operator()(float value) const { return py::float_(value); }
    py::object operator()(double value) const { return py::float_(value); }
    py::object operator()(void* value) const { return py::int_(reinterpret_cast<std::uintptr_t>(value)); }
    py::object operator()(qzString const& value) const {
        return py::reinterpret_steal<py::object>(
            PyUnicode_DecodeUTF8(value.data(), static_cast<Py_ssize_t>(value.size()), "replace"));
    }
};

} // namespace

// What the work prints becomes the output, with the reason behind it when the work fails.
template <class Work>
bool PythonInterp::P_Run(qzString& output, Work&& work) {
    if (!IsAlive()) {
        output = "Python has ended";
        return false;
    }
    Hold const held;
    try {
        OutputCapture const capture;
        qzString failure;
        bool succeeded = true;
        try {
            work();
        } catch (py::error_already_set const& error) {
            succeeded = IsSuccessfulExit(error);
            if (!succeeded)
                failure = Describe(error);
        }
        output = capture.GetText() + failure;
        return succeeded;
    } catch (py::error_already_set const& error) {
        output = Describe(error);
        return false;
    } catch (std::exception const& error) {
        output = error.what();
        return false;
    }
}

bool PythonInterp::Execute(qzString const& script, qzString& output) {
    return P_Run(output, [&] {
        py::dict const main = MainNamespace();
        py::object const code =
            py::module_::import("builtins").attr("compile")(ToPython()(script), "<script>", "exec");
        auto const result =
            py::reinterpret_steal<py::object>(PyEval_EvalCode(code.ptr(), main.ptr(), main.ptr()));
        if (!result)
            throw py::error_already_set();
    });
}

bool PythonInterp::Call(qzString const& function, qzStlVector<qzVariant> const& arguments, qzString& output) {
    return P_Run(output, [&] {
        py::tuple values(arguments.size());
        for (std::size_t i = 0; i < arguments.size(); ++i)
            values[i] = arguments[i].Visit(ToPython());
        FindFunction(function)(*values);
    });
}

PythonInterp* PythonInterp::Open(qzString& failure) {
    bool const isOurs = Py_IsInitialized() == 0;
    if (isOurs && !Start(failure))
        return nullptr;
    {
        Hold const held;
        static py::module_::module_def definition; // modules refer to theirs for good
        py::module_ module = py::module_::create_extension_module("qzinterp_output", nullptr, &definition);
        OutputCapture::DefineStream(module);
        if (isOurs)
            AddModuleFolders();
    }
    if (isOurs)
        PyEval_SaveThread(); // nobody holds Python now: every call takes it for itself
    return new PythonInterp; // for good, as Python itself
}

#ifdef _WIN32
#    define QZ_SIDE_API __declspec(dllexport)
#else
#    define QZ_SIDE_API __attribute__((visibility("default")))
#endif

extern "C" QZ_SIDE_API qzInterp* qzinterp_open_python(qzString& failure) {
    try {
        return PythonInterp::Open(failure);
    } catch (std::exception const& error) {
        failure = error.what();
        return nullptr;
    }
}
