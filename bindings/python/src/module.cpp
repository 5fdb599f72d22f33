#include "bindings.h"

namespace qzPython {

namespace {

void* RefuseUninitialised(std::size_t) { throw py::type_error("__init__ was not called"); }

/// The bindings make room for an instance when it is first looked at, and hand a method memory that nothing
/// was made in when __init__ has not run. Constructors make their own room and do not ask here.
void RefuseUninitialisedInstances(py::module_ const& module) {
    for (auto const& [type, info] : py::detail::get_internals().registered_types_cpp) {
        auto const owner = py::getattr(reinterpret_cast<PyObject*>(info->type), "__module__", py::none());
        if (owner.equal(module.attr("__name__"))) // other modules have theirs in the same place
            info->operator_new = &RefuseUninitialised;
    }
}

/// Arguments that are looked at inside of a function are of a wrong type there as anywhere.
void TellWrongTypes() {
    py::register_local_exception_translator([](std::exception_ptr thrown) {
        try {
            std::rethrow_exception(thrown);
        } catch (py::cast_error const&) {
            PyErr_SetString(PyExc_TypeError, "an argument is of another type, or a number does not fit");
        }
    });
}

} // namespace

} // namespace qzPython

// Classes are defined before those whose operations mention them.
PYBIND11_MODULE(_core, module) {
    using namespace qzPython;
    module.doc() = "A self-describing object model for engineering applications.";
    BindHandles(module);
    BindTypes(module);
    BindIdentities(module);
    BindLists(module);
    BindFormulas(module);
    BindBags(module);
    BindTables(module);
    BindValues(module);
    BindDefinitions(module);
    BindOperations(module);
    BindSession(module);
    BindObjects(module);
    BindEvents(module);
    BindRegistry(module);
    BindAttributes(module);
    BindContents(module);
    BindCollections(module);
    BindDatabases(module);
    BindSerializers(module);
    BindRegistryHooks(module);
    BindDerivedSession(module);
    BindDerivedObject(module);
    BindScripts(module);
    ReportWherePythonPrints();
    TellWrongTypes();
    RefuseUninitialisedInstances(module);
}
