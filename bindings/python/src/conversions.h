#pragma once

#include "bindings.h"

namespace qzPython {

/// The type of a value as definitions state it.
struct TypeSpec {
    BasicType basic = BT_NONE;
    CompoundType compound = CT_NONE;
    unsigned int dimension = 0;

    static TypeSpec Of(Definition const& definition) {
        return {definition.GetValueBasicType(), definition.GetValueCompoundType(),
                definition.GetArrayDimension()};
    }
    friend bool operator==(TypeSpec const&, TypeSpec const&) = default;
};

/// `float`, `list[int]`, `tuple[float, float, float]`, `Entity`, `EntityListBag`, a `BasicType`, a
/// `ValueType`.
TypeSpec ToTypeSpec(py::handle type);
/// The type that fits an object best.
TypeSpec GuessType(py::handle data);
/// "list[float]".
std::string Describe(TypeSpec const& type);

/// The data of a value as a Python object: numbers, texts, tuples, arrays, or a class of this module. None
/// without a value.
py::object GiveData(ValuePtr const* holder);
/// A value of the type that holds the data; refuses data of another kind. Numbers may be of classes whose
/// conversion runs Python code: what was looked up before may be gone after.
Value TakeData(TypeSpec const& type, py::handle data);
/// The same of data that may be a `Value`, which is taken as it is.
Value TakeValue(TypeSpec const& type, py::handle data);

/// The default, bounds and list of allowables.
py::object GiveDefault(Allowables const& allowables);
py::list GiveAllowed(Allowables const& allowables);
py::list GiveBounds(Allowables const& allowables);
/// What a constraint is made of; objects that are None take no part.
struct AllowablesParts {
    py::object defaultValue, above, atLeast, below, atMost, values, names;
};
Allowables MakeAllowables(TypeSpec const& type, AllowablesParts const& parts);

/// A table from a mapping of names to columns, or from a pandas table.
bool TakeTable(py::handle data, Tabular& table);

} // namespace qzPython
