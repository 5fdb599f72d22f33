// Opens the Python side in whatever process this is: in one that runs Python already, which may hold the
// interpreter in the program itself, or in one that gets its interpreter here. The side itself is a library
// that takes Python from the process and is therefore opened last.

#include "../src/SharedLibrary.h"
#include "qzinterp/qzInterp.h"

#include <cstring>

#ifdef _WIN32
#    define QZ_BACKEND_API __declspec(dllexport)
#else
#    define QZ_BACKEND_API __attribute__((visibility("default")))
#endif

namespace {

using GetVersion = char const*();

/// Null in a process without Python.
GetVersion* FindRunningPython() {
#ifdef _WIN32
    HMODULE const python = GetModuleHandleA(QZ_PYTHON_LIBRARY);
    return python ? reinterpret_cast<GetVersion*>(GetProcAddress(python, "Py_GetVersion")) : nullptr;
#else
    return reinterpret_cast<GetVersion*>(dlsym(RTLD_DEFAULT, "Py_GetVersion"));
#endif
}

} // namespace

extern "C" QZ_BACKEND_API qzInterp* qzinterp_open(qzString& failure) {
    GetVersion* getVersion = FindRunningPython();
    if (getVersion == nullptr) {
        SharedLibrary const python(QZ_PYTHON_LIBRARY, true);
        if (!python.IsOpen()) {
            failure = python.GetFailure();
            return nullptr;
        }
        getVersion = python.Find<GetVersion>("Py_GetVersion");
    }
    constexpr char const wanted[] = QZ_PYTHON_VERSION ".";
    if (getVersion == nullptr || std::strncmp(getVersion(), wanted, sizeof wanted - 1) != 0) {
        failure = "this is made for Python " QZ_PYTHON_VERSION;
        return nullptr;
    }
    SharedLibrary const side(SharedLibrary::GetFolderOf(&qzinterp_open) /
                             SharedLibrary::GetFileName("qzinterp_python_side"));
    auto* const open = side.IsOpen() ? side.Find<qzInterp*(qzString&)>("qzinterp_open_python") : nullptr;
    if (open == nullptr) {
        failure = side.GetFailure();
        return nullptr;
    }
    return open(failure);
}
