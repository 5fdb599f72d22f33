#pragma once

#include "bindings.h"

#include <tuple>

/// How values are copied and pickled.

namespace qzPython {

/// copy.copy and copy.deepcopy: the copy that C++ makes.
template <class T, class Class>
void BindCopy(Class& bound) {
    bound.def("__copy__", [](T const& self) { return T(self); });
    bound.def(
        "__deepcopy__", [](T const& self, py::handle) { return T(self); }, py::arg("memo"));
}

/// The same and pickle, where a tuple of parts stands for the value.
template <class T, class Class, class... Part>
void BindPickle(Class& bound, std::tuple<Part...> (*give)(T const&), T (*take)(Part...)) {
    BindCopy<T>(bound);
    bound.def(py::pickle([give](T const& self) { return give(self); },
                         [take](std::tuple<Part...> state) { return std::apply(take, std::move(state)); }));
}

} // namespace qzPython
