#pragma once

#include "text.h"

#include "descriptor/qzdescriptor.h"

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <memory>
#include <stdexcept>
#include <string>

/// What the sources of the extension have in common. One source per subject; each has a Bind function that
/// defines its classes in the module.

namespace pybind11::detail {
/// Lists of texts, identifiers and handles are Python lists.
template <class T>
struct type_caster<qzStlVector<T>> : list_caster<qzStlVector<T>, T> {};
} // namespace pybind11::detail

namespace qzPython {

namespace py = pybind11;
using namespace qzDescriptor;

void BindIdentities(py::module_& module);
void BindLists(py::module_& module);
void BindBags(py::module_& module);
void BindFormulas(py::module_& module);
void BindTypes(py::module_& module);
void BindValues(py::module_& module);
void BindAllowables(py::module_& module);
void BindDefinitions(py::module_& module);
void BindTables(py::module_& module);
void BindOperations(py::module_& module);
void BindHandles(py::module_& module);
void BindEvents(py::module_& module);
void BindObjects(py::module_& module);
void BindSession(py::module_& module);
void BindRegistry(py::module_& module);
void BindRegistryHooks(py::module_& module);
void BindDerivedSession(py::module_& module);
void BindDerivedObject(py::module_& module);
void BindCards(py::module_& module);
void BindUserParams(py::module_& module);
void BindAttributes(py::module_& module);
void BindContents(py::module_& module);
void BindCollections(py::module_& module);
void BindSerializers(py::module_& module);
void BindDatabases(py::module_& module);
void BindScripts(py::module_& module);

/// What the library did not accept, with its message: `Refused` in Python.
class Refused : public std::runtime_error {
    using std::runtime_error::runtime_error;
};
/// A session, object or registry that is no more: `Ended` in Python.
class Ended : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What is sought and not there: `KeyError` in Python.
class Missing : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Raises the failure that a status tells.
inline void Check(qzReturnStatus const& status) {
    if (status.status != 0)
        throw Refused(status.message);
}
inline void Check(bool succeeded, char const* message) {
    if (!succeeded)
        throw Refused(message);
}

/// Ends an exception of Python, if any, that says no more than that an object is none of the kind. Those that
/// are no `Exception`, as KeyboardInterrupt, are nobody's answer and go on.
void ClearRefusal();
/// Whether an object has an attribute; exceptions as above.
bool HasAttribute(py::handle object, char const* name);

/// Where exceptions go that nobody waits for: to sys.unraisablehook, where somebody has set it, else where
/// the failures of scripts go. Of the exception that is being handled.
void ReportFailure() noexcept;
/// Lets what scripts print, and their failures, go to sys.stdout and sys.stderr, as users of notebooks
/// expect, unless the application reads them.
void ReportWherePythonPrints();
/// Runs what calls into Python on behalf of C++: exceptions are reported, and false is answered.
template <class Work>
bool RunOrReport(Work&& work) noexcept;
/// Whether Python can still be called.
bool IsPythonAlive();

/// A Python object that C++ keeps: may be copied and ended on any thread, and when Python is gone.
class Kept {
public:
    explicit Kept(py::object object);
    py::object const& Get() const { return *m_object; }

private:
    std::shared_ptr<py::object> m_object;
};

/// Keeps a function; raises TypeError for what cannot be called.
Kept KeepFunction(py::object function);

template <class Work>
bool RunOrReport(Work&& work) noexcept {
    if (!IsPythonAlive())
        return false;
    py::gil_scoped_acquire const held;
    py::error_scope const pending; // an exception that is on its way is nobody's business here
    try {
        work();
        return true;
    } catch (...) {
        ReportFailure();
        return false;
    }
}

} // namespace qzPython
