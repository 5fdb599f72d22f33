#include "classes.h"

namespace qzPython {

namespace {

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
    RefuseBareInstances();
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
    FinishClasses(module);
}
