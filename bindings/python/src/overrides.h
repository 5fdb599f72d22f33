#pragma once

#include "bindings.h"

#include <utility>

/// How C++ asks methods that a Python class puts in the place of its base's. What fails there is reported.

namespace qzPython {

/// The method of that name that an object has in the place of the one of `base`; null without another one.
inline py::object FindOverride(py::handle self, py::handle base, char const* name) {
    py::object method = self.attr(name);
    py::object const native = base.attr(name); // as it stands in the class, and not bound
    bool const isNative = PyMethod_Check(method.ptr()) != 0 && PyInstanceMethod_Check(native.ptr()) != 0 &&
                          PyMethod_GET_FUNCTION(method.ptr()) == PyInstanceMethod_GET_FUNCTION(native.ptr());
    return isNative ? py::object() : std::move(method);
}

/// Hands what such a method answers to `take`. False without one, and when it fails.
template <class Self, class Take, class... Argument>
bool AskOverride(Self&& getSelf, py::handle base, char const* name, Take&& take,
                 Argument const&... arguments) {
    bool isAnswered = false;
    RunOrReport([&] {
        py::object const self = getSelf();
        if (py::object const method = FindOverride(self, base, name)) {
            take(method(arguments...));
            isAnswered = true;
        }
    });
    return isAnswered;
}

/// Calls a method that refuses by raising Refused, which is an answer; other exceptions are reported.
template <class Work>
qzReturnStatus RunOrRefuse(char const* failure, Work&& work) {
    qzReturnStatus status{-1, failure};
    RunOrReport([&] {
        try {
            work();
            status = qzReturnStatus();
        } catch (py::error_already_set const& error) {
            if (!error.matches(py::module_::import("qzdescriptor").attr("Refused")))
                throw;
            status.message = ToText(error.value());
        } catch (Refused const& refused) {
            status.message = refused.what();
        }
    });
    return status;
}

[[noreturn]] inline void RaiseToBeWritten(char const* method) {
    PyErr_SetString(PyExc_NotImplementedError, (std::string("a derived class has to say ") + method).c_str());
    throw py::error_already_set();
}

/// The instance that is being made: what C++ calls is a method of it.
inline py::object SelfOf(py::detail::value_and_holder const& instance) {
    return py::reinterpret_borrow<py::object>(reinterpret_cast<PyObject*>(instance.inst));
}

} // namespace qzPython
