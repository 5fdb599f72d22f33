#include "bindings.h"

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
}
