#include "classes.h"

#include <algorithm>

namespace qzPython {

// --- the shared base ---------------------------------------------------------------------------------------

namespace {

newfunc s_makeInstance = nullptr;

/// The bindings let a C++ exception out into Python for classes that have nothing of C++. Old protocols of
/// pickle make instances of the base.
PyObject* MakeInstance(PyTypeObject* type, PyObject* arguments, PyObject* names) {
    if (!py::detail::all_type_info(type).empty())
        return s_makeInstance(type, arguments, names);
    PyErr_Format(PyExc_TypeError, "cannot create instances of %.200s", type->tp_name);
    return nullptr;
}

/// In a class and in those derived from it: Python makes no instance by a base that makes them otherwise.
void ReplaceNew(py::handle type) {
    auto& slot = reinterpret_cast<PyTypeObject*>(type.ptr())->tp_new;
    if (slot != s_makeInstance)
        return;
    slot = &MakeInstance;
    for (py::handle const derived : type.attr("__subclasses__")())
        ReplaceNew(derived);
}

} // namespace

void RefuseBareInstances() {
    py::handle const base = py::detail::get_internals().instance_base;
    newfunc const makeInstance = reinterpret_cast<PyTypeObject*>(base.ptr())->tp_new;
    if (makeInstance == &MakeInstance)
        return; // the module was made before
    s_makeInstance = makeInstance;
    ReplaceNew(base);
}

// --- classes of the module ---------------------------------------------------------------------------------

namespace {

void* RefuseUninitialised(std::size_t) { throw py::type_error("__init__ was not called"); }

/// The record of a function or a property's function; null for what is none of the bindings'.
py::detail::function_record* FindRecord(py::handle function) {
    if (PyInstanceMethod_Check(function.ptr()))
        function = PyInstanceMethod_GET_FUNCTION(function.ptr());
    PyObject* const self = PyCFunction_Check(function.ptr()) ? PyCFunction_GET_SELF(function.ptr()) : nullptr;
    return self != nullptr && PyCapsule_CheckExact(self)
               ? static_cast<py::detail::function_record*>(
                     PyCapsule_GetPointer(self, PyCapsule_GetName(self)))
               : nullptr;
}

/// A pointer to a member function takes None for an instance, and calls it on null, unless the first of its
/// arguments is said not to be None.
void RefuseNoInstance(py::handle function) {
    for (auto* record = FindRecord(function); record != nullptr; record = record->next) {
        if (record->is_method && record->args.empty() && record->nargs > 0)
            record->args.emplace_back(nullptr, nullptr, py::handle(), true, false);
    }
}

/// The protocols before 2 know nothing of classes of C++; what the later ones give serves as well.
py::object MakeReduce(py::handle type) {
    auto const reduce = [](py::object const& self, int protocol) {
        py::handle const base(reinterpret_cast<PyObject*>(&PyBaseObject_Type));
        return py::object(base.attr("__reduce_ex__")(self, std::max(protocol, 2)));
    };
    return py::cpp_function(reduce, py::name("__reduce_ex__"), py::is_method(type), py::arg("protocol"));
}

} // namespace

void FinishClasses(py::module_ const& module) {
    for (auto const& [key, info] : py::detail::get_internals().registered_types_cpp) {
        py::handle const type(reinterpret_cast<PyObject*>(info->type));
        if (!py::getattr(type, "__module__", py::none()).equal(module.attr("__name__")))
            continue; // other modules have theirs in the same place
        // The bindings make room for an instance when it is first looked at, and hand a method memory that
        // nothing was made in when __init__ has not run. Constructors make their own room and do not ask
        // here.
        info->operator_new = &RefuseUninitialised;
        for (py::handle const member : py::list(type.attr("__dict__").attr("values")())) {
            RefuseNoInstance(member);
            if (PyObject_TypeCheck(member.ptr(), &PyProperty_Type) != 0) {
                RefuseNoInstance(member.attr("fget"));
                RefuseNoInstance(member.attr("fset"));
            }
        }
        type.attr("__reduce_ex__") = MakeReduce(type);
    }
}

} // namespace qzPython
