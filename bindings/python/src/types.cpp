#include "conversions.h"
#include "copies.h"

#include "descriptor/DataTypeUtils.h"

namespace qzPython {

namespace {

constexpr unsigned int s_maxDimension = 4;

/// The Python classes that stand for types of values.
struct ClassRow {
    py::handle type;
    TypeSpec spec;
};

template <class T>
ClassRow RowOf(BasicType basic, CompoundType compound, unsigned int dimension = 0) {
    return {py::type::of<T>(), {basic, compound, dimension}};
}

std::vector<ClassRow> ListClasses() {
    auto const builtin = [](PyTypeObject& type, BasicType basic) {
        return ClassRow{reinterpret_cast<PyObject*>(&type), {basic, CT_SCALAR, 0}};
    };
    return {builtin(PyFloat_Type, BT_DOUBLE),
            builtin(PyLong_Type, BT_INT),
            builtin(PyBool_Type, BT_BOOL),
            builtin(PyUnicode_Type, BT_STRING),
            RowOf<Entity>(BT_UINT, CT_ENTITY),
            RowOf<EntityFullType>(BT_UINT, CT_ENTITY),
            RowOf<Color>(BT_UINT, CT_COLOR),
            RowOf<Qualifier>(BT_OBJECT, CT_QUALIFIER),
            RowOf<Formula>(BT_OBJECT, CT_FORMULA),
            RowOf<Function>(BT_POINTER, CT_FUNCTION),
            RowOf<Tabular>(BT_OBJECT, CT_TABULAR),
            RowOf<EntityList>(BT_UINT, CT_ENTITY, 1),
            RowOf<EntityList2>(BT_UINT, CT_ENTITY, 2),
            RowOf<EntityListBag>(BT_UINT, CT_ENTITY, 3),
            RowOf<EntityListBagList>(BT_UINT, CT_ENTITY, 4),
            RowOf<FormulaBag>(BT_OBJECT, CT_FORMULA, 3)};
}

TypeSpec CheckDimension(TypeSpec const& type) {
    if (type.dimension > s_maxDimension)
        throw py::type_error("a type of values has at most 4 dimensions");
    return type;
}

TypeSpec ToTypeSpec(py::handle type, unsigned int depth);

/// `list[X]`, and `tuple[X, X]` or `tuple[X, X, X]` with one X throughout.
TypeSpec ToGenericSpec(py::handle type, unsigned int depth) {
    CheckDimension({BT_NONE, CT_NONE, depth});
    py::module_ const typing = py::module_::import("typing");
    py::object const origin = typing.attr("get_origin")(type);
    py::tuple const arguments = typing.attr("get_args")(type);
    if (origin.is(py::handle(reinterpret_cast<PyObject*>(&PyList_Type))) && arguments.size() == 1) {
        TypeSpec spec = ToTypeSpec(arguments[0], depth + 1);
        ++spec.dimension;
        return CheckDimension(spec);
    }
    bool const isTuple = origin.is(py::handle(reinterpret_cast<PyObject*>(&PyTuple_Type)));
    if (isTuple && (arguments.size() == 2 || arguments.size() == 3)) {
        TypeSpec spec = ToTypeSpec(arguments[0], depth + 1);
        for (py::handle const argument : arguments) {
            if (!(ToTypeSpec(argument, depth + 1) == spec))
                throw py::type_error("a tuple has components of one type");
        }
        spec.compound = arguments.size() == 2 ? CT_COUPLE : CT_TRIPLE;
        return spec;
    }
    throw py::type_error(ToText(py::repr(type)) + " is no type of values");
}

TypeSpec ToTypeSpec(py::handle type, unsigned int depth) {
    if (py::isinstance<TypeSpec>(type))
        return type.cast<TypeSpec>();
    if (py::isinstance<BasicType>(type))
        return {type.cast<BasicType>(), CT_SCALAR, 0};
    for (ClassRow const& row : ListClasses()) {
        if (type.is(row.type))
            return row.spec;
    }
    return ToGenericSpec(type, depth);
}

} // namespace

TypeSpec ToTypeSpec(py::handle type) { return ToTypeSpec(type, 0); }

TypeSpec GuessType(py::handle data) {
    if (PyBool_Check(data.ptr()))
        return {BT_BOOL, CT_SCALAR, 0};
    for (ClassRow const& row : ListClasses()) {
        if (py::isinstance(data, row.type))
            return row.spec;
    }
    throw py::type_error("say of which type the value is to be");
}

std::string Describe(TypeSpec const& type) {
    std::string const name = py::str(py::cast(type));
    return name;
}

namespace {

std::string NameOf(TypeSpec const& type) {
    for (ClassRow const& row : ListClasses()) {
        if (row.spec == type)
            return py::str(row.type.attr("__name__"));
    }
    if (type.dimension > 0)
        return "list[" + NameOf({type.basic, type.compound, type.dimension - 1}) + "]";
    std::string const basic = py::str(py::cast(type.basic).attr("name"));
    if (type.compound == CT_SCALAR)
        return basic;
    return std::string(py::str(py::cast(type.compound).attr("name"))) + " of " + basic;
}

void BindDataType(py::module_& module) {
    static constexpr std::pair<char const*, DATA_TYPE> s_codes[] = {{"BOOL", DT_BOOL},
                                                                    {"CHAR", DT_CHAR},
                                                                    {"CHAR_LIST", DT_CHAR_LIST},
                                                                    {"COLOR", DT_COLOR},
                                                                    {"COUPLE", DT_COUPLE},
                                                                    {"COUPLE_LIST", DT_COUPLE_LIST},
                                                                    {"COUPLE_F", DT_COUPLE_F},
                                                                    {"COUPLE_I", DT_COUPLE_I},
                                                                    {"DOUBLE", DT_DOUBLE},
                                                                    {"DOUBLE_LIST", DT_DOUBLE_LIST},
                                                                    {"DOUBLE_LIST2", DT_DOUBLE_LIST2},
                                                                    {"ENTITY", DT_ENTITY},
                                                                    {"ENTITY_BAG", DT_ENTITY_BAG},
                                                                    {"ENTITY_LIST", DT_ENTITY_LIST},
                                                                    {"FLOAT", DT_FLOAT},
                                                                    {"FLOAT_LIST", DT_FLOAT_LIST},
                                                                    {"FLOAT_LIST2", DT_FLOAT_LIST2},
                                                                    {"FORMULA", DT_FORMULA},
                                                                    {"FORMULA_BAG", DT_FORMULA_BAG},
                                                                    {"FORMULA_LIST", DT_FORMULA_LIST},
                                                                    {"INT", DT_INT},
                                                                    {"INT_LIST", DT_INT_LIST},
                                                                    {"INT_LIST2", DT_INT_LIST2},
                                                                    {"MATRIX33", DT_MATRIX33},
                                                                    {"MATRIX44", DT_MATRIX44},
                                                                    {"QUALIFIER", DT_QUALIFIER},
                                                                    {"QUALIFIER_LIST", DT_QUALIFIER_LIST},
                                                                    {"STRING", DT_STRING},
                                                                    {"STRING_LIST", DT_STRING_LIST},
                                                                    {"TRIPLE", DT_TRIPLE},
                                                                    {"TRIPLE_LIST", DT_TRIPLE_LIST},
                                                                    {"TRIPLE_F", DT_TRIPLE_F},
                                                                    {"TRIPLE_I", DT_TRIPLE_I},
                                                                    {"UCHAR", DT_UCHAR},
                                                                    {"UINT", DT_UINT},
                                                                    {"UINT_LIST", DT_UINT_LIST},
                                                                    {"UINT_LIST2", DT_UINT_LIST2},
                                                                    {"UNKNOWN", DT_UNKNOWN}};
    py::enum_<DATA_TYPE> bound(module, "DataType", "The flat codes of the types of values.");
    for (auto const& [name, code] : s_codes)
        bound.value(name, code);
}

} // namespace

void BindTypes(py::module_& module) {
    py::enum_<BasicType>(module, "BasicType", "The type of a value's elements.")
        .value("NONE", BT_NONE)
        .value("BOOL", BT_BOOL)
        .value("CHAR", BT_CHAR)
        .value("UCHAR", BT_UCHAR)
        .value("INT", BT_INT)
        .value("UINT", BT_UINT)
        .value("SHORT", BT_SHORT)
        .value("USHORT", BT_USHORT)
        .value("LONG", BT_LONG)
        .value("ULONG", BT_ULONG)
        .value("FLOAT", BT_FLOAT)
        .value("DOUBLE", BT_DOUBLE)
        .value("STRING", BT_STRING)
        .value("OBJECT", BT_OBJECT)
        .value("POINTER", BT_POINTER);
    py::enum_<CompoundType>(module, "CompoundType", "The shape of a value's elements.")
        .value("NONE", CT_NONE)
        .value("SCALAR", CT_SCALAR)
        .value("COUPLE", CT_COUPLE)
        .value("TRIPLE", CT_TRIPLE)
        .value("MATRIX33", CT_MATRIX33)
        .value("MATRIX44", CT_MATRIX44)
        .value("COLOR", CT_COLOR)
        .value("ENTITY", CT_ENTITY)
        .value("QUALIFIER", CT_QUALIFIER)
        .value("FORMULA", CT_FORMULA)
        .value("FUNCTION", CT_FUNCTION)
        .value("TABULAR", CT_TABULAR);
    BindDataType(module);
    py::class_<TypeSpec> bound(
        module, "ValueType",
        "The type of a value: that of its elements, their shape, and the dimension (0 one element, "
        "1 a list, 2 a two-level list, 3 a bag, 4 a register of bags). Made of a Python type, too: "
        "ValueType(list[float]).");
    bound.def(py::init(py::overload_cast<py::handle>(&ToTypeSpec)), py::arg("type"))
        .def(py::init([](BasicType basic, CompoundType compound, unsigned int dimension) {
                 return CheckDimension({basic, compound, dimension});
             }),
             py::arg("basic"), py::arg("compound"), py::arg("dimension") = 0)
        .def_readonly("basic", &TypeSpec::basic)
        .def_readonly("compound", &TypeSpec::compound)
        .def_readonly("dimension", &TypeSpec::dimension)
        .def_property_readonly(
            "data_type",
            [](TypeSpec const& self) {
                return DataTypeUtils::GetValueDataType(self.basic, self.compound, self.dimension);
            },
            "The flat code of the type. Several types have none.")
        .def(
            "__eq__", [](TypeSpec const& a, TypeSpec const& b) { return a == b; }, py::is_operator())
        .def("__hash__",
             [](TypeSpec const& self) {
                 return (self.basic * 32 + self.compound) * 8 + static_cast<int>(self.dimension);
             })
        .def("__str__", &NameOf)
        .def("__repr__", [](TypeSpec const& self) { return "<ValueType " + NameOf(self) + ">"; });
    using State = std::tuple<int, int, unsigned int>;
    BindPickle(
        bound, +[](TypeSpec const& self) { return State(self.basic, self.compound, self.dimension); },
        +[](int basic, int compound, unsigned int dimension) {
            return CheckDimension(
                {static_cast<BasicType>(basic), static_cast<CompoundType>(compound), dimension});
        });
}

} // namespace qzPython
