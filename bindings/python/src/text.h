#pragma once

#include "qzutl/qzString.h"

#include <pybind11/cast.h>

/// The texts of the library are any bytes, UTF-8 as a rule. Those that are no UTF-8 are lone surrogates in
/// Python (`surrogateescape`), on every road between the two.

namespace qzPython {

pybind11::object GiveText(qzString const& text);
/// False for what is no text.
bool TakeText(pybind11::handle object, qzString& text);
/// What str() says of an object.
qzString ToText(pybind11::handle object);

} // namespace qzPython

namespace pybind11::detail {

// Before pybind11.h: nothing may have asked for the usual caster, which knows of UTF-8 only.
template <>
struct type_caster<std::string> {
    PYBIND11_TYPE_CASTER(std::string, const_name("str"));

    bool load(handle source, bool) { return qzPython::TakeText(source, value); }
    static handle cast(std::string const& text, return_value_policy, handle) {
        return qzPython::GiveText(text).release();
    }
};

} // namespace pybind11::detail
