#include "copies.h"
#include "handles.h"

#include "descriptor/FormulaText.h"
#include "descriptor/ScriptFunction.h"
#include "qzutl/qzVariant.h"

#include <pybind11/operators.h>

namespace qzPython {

namespace {

/// Python's text of what is put together from parts.
template <class... Part>
std::string Format(char const* format, Part const&... parts) {
    return py::str(format).format(parts...);
}

/// `==` and `hash`. Nothing is converted to be compared: a text is no identifier, although it can become one.
template <class T, class Class>
void BindEquality(Class& bound) {
    bound.def(
        "__eq__", [](T const& a, T const& b) { return a == b; }, py::is_operator(),
        py::arg("other").noconvert());
    if constexpr (requires { typename T::hash; })
        bound.def("__hash__", [](T const& self) { return typename T::hash()(self); });
}

py::object KeyOf(Identifier const& identifier) {
    if (identifier.UsesNameKey())
        return GiveText(identifier.GetNameKey());
    return py::int_(identifier.GetNumericKey());
}

py::object TypeOf(EntityFullType const& type) {
    if (!type.GetTypeNamed().empty())
        return GiveText(type.GetTypeNamed());
    return py::int_(type.GetTypeNumeric());
}

py::object SubtypeOf(EntityFullType const& type) {
    if (!type.GetSubtypeNamed().empty())
        return GiveText(type.GetSubtypeNamed());
    return type.GetSubtypeNumeric() != 0 ? py::object(py::int_(type.GetSubtypeNumeric())) : py::none();
}

/// None stands for a row or column that matches every other.
unsigned int ToPlace(std::optional<unsigned int> place) { return place.value_or(Identifier::s_unset); }
std::optional<unsigned int> FromPlace(unsigned int place) {
    return place != Identifier::s_unset ? std::optional(place) : std::nullopt;
}

/// What identifiers are pickled as: number, name, solver index, row and column.
using Key = std::tuple<int, qzString, int, unsigned int, unsigned int>;

Key ToKey(Identifier const& identifier) {
    return {identifier.GetNumericKey(), identifier.GetNameKey(), identifier.GetSolverIdx(),
            identifier.GetRow(), identifier.GetColumn()};
}

/// What types are pickled as: topology, type by number and name, subtype by number and name.
using TypeKey = std::tuple<int, unsigned int, qzString, unsigned int, qzString>;

TypeKey ToTypeKey(EntityFullType const& type) {
    return {type.GetTopologyType(), type.GetTypeNumeric(), type.GetTypeNamed(), type.GetSubtypeNumeric(),
            type.GetSubtypeNamed()};
}

EntityFullType MakeType(int topology, unsigned int type, qzString const& typeName, unsigned int subtype,
                        qzString const& subtypeName) {
    auto const kind = static_cast<EntityFullType::TopologyType>(topology);
    if (typeName.empty())
        return subtypeName.empty() ? EntityFullType(kind, type, subtype)
                                   : EntityFullType(kind, type, subtypeName);
    return subtypeName.empty() ? EntityFullType(kind, typeName, subtype)
                               : EntityFullType(kind, typeName, subtypeName);
}

void BindIdentifier(py::module_& module) {
    py::class_<Identifier> bound(
        module, "Identifier",
        "The key of a metaclass member: a name or a number, with an optional solver index, row and column. "
        "What is "
        "unset matches anything. Wherever one is expected, a text or a number will do.");
    bound.def(py::init<>())
        .def(py::init([](int key, unsigned int solver, std::optional<unsigned int> row,
                         std::optional<unsigned int> column) {
                 return Identifier(key, solver, ToPlace(row), ToPlace(column));
             }),
             py::arg("key").noconvert(), py::arg("solver_index") = 0, py::arg("row") = py::none(),
             py::arg("column") = py::none())
        .def(py::init([](std::string const& key, unsigned int solver, std::optional<unsigned int> row,
                         std::optional<unsigned int> column) {
                 return Identifier(key, solver, ToPlace(row), ToPlace(column));
             }),
             py::arg("key"), py::arg("solver_index") = 0, py::arg("row") = py::none(),
             py::arg("column") = py::none())
        .def_property_readonly("key", &KeyOf, "The name, else the number.")
        .def_property_readonly("name", [](Identifier const& self) { return self.GetNameKey(); })
        .def_property_readonly("number", &Identifier::GetNumericKey)
        .def_property_readonly("solver_index", &Identifier::GetSolverIdx)
        .def_property_readonly("row", [](Identifier const& self) { return FromPlace(self.GetRow()); })
        .def_property_readonly("column", [](Identifier const& self) { return FromPlace(self.GetColumn()); })
        .def_property_readonly("is_valid", &Identifier::IsValid)
        .def("__str__", [](Identifier const& self) { return py::str(KeyOf(self)); })
        .def("__repr__", [](Identifier const& self) {
            bool const isPlain = self.GetSolverIdx() == 0 && self.GetRow() == Identifier::s_unset &&
                                 self.GetColumn() == Identifier::s_unset;
            return isPlain ? Format("Identifier({!r})", KeyOf(self))
                           : Format("Identifier({!r}, {}, {}, {})", KeyOf(self), self.GetSolverIdx(),
                                    FromPlace(self.GetRow()), FromPlace(self.GetColumn()));
        });
    bound.def(
        "__lt__", [](Identifier const& a, Identifier const& b) { return a < b; }, py::is_operator(),
        "By number where both have one, else by name; two without a common kind of key are unordered.");
    BindEquality<Identifier>(bound);
    BindPickle(
        bound, +[](Identifier const& self) { return ToKey(self); },
        +[](int number, qzString name, int solver, unsigned int row, unsigned int column) {
            Identifier made(number, 0, row, column);
            made.SetNameKey(name);
            made.SetSolverIdx(solver);
            return made;
        });
    py::implicitly_convertible<py::str, Identifier>();
    py::implicitly_convertible<py::int_, Identifier>();
}

void BindEntityFullType(py::module_& module) {
    py::class_<EntityFullType> bound(
        module, "EntityFullType",
        "The type of an entity by name or number, with an optional subtype. Wherever "
        "one is expected, a text will do.");
    bound.def(py::init<>())
        .def(py::init<unsigned int, unsigned int>(), py::arg("type").noconvert(), py::arg("subtype") = 0)
        .def(py::init<unsigned int, qzString const&>(), py::arg("type").noconvert(), py::arg("subtype"))
        .def(py::init<qzString const&, unsigned int>(), py::arg("type"), py::arg("subtype") = 0)
        .def(py::init<qzString const&, qzString const&>(), py::arg("type"), py::arg("subtype"))
        .def_property_readonly("type", &TypeOf, "The name, else the number.")
        .def_property_readonly("subtype", &SubtypeOf, "The name, else the number; None without a subtype.")
        .def_property_readonly(
            "topology", [](EntityFullType const& self) { return static_cast<int>(self.GetTopologyType()); })
        .def_property_readonly("is_valid", &EntityFullType::IsValid)
        .def(
            "with_topology",
            [](EntityFullType const& self, int topology) {
                return MakeType(topology, self.GetTypeNumeric(), self.GetTypeNamed(),
                                self.GetSubtypeNumeric(), self.GetSubtypeNamed());
            },
            py::arg("topology"), "The same type with a topology kind, which takes no part in equality.")
        .def("__str__", [](EntityFullType const& self) { return py::str(TypeOf(self)); })
        .def("__repr__", [](EntityFullType const& self) {
            py::object const subtype = SubtypeOf(self);
            return subtype.is_none() ? Format("EntityFullType({!r})", TypeOf(self))
                                     : Format("EntityFullType({!r}, {!r})", TypeOf(self), subtype);
        });
    BindEquality<EntityFullType>(bound);
    BindPickle(
        bound, &ToTypeKey,
        +[](int topology, unsigned int type, qzString typeName, unsigned int subtype, qzString subtypeName) {
            return MakeType(topology, type, typeName, subtype, subtypeName);
        });
    py::implicitly_convertible<py::str, EntityFullType>();
}

void BindEntity(py::module_& module) {
    py::class_<Entity> bound(module, "Entity", "A reference to one object: its type and its number.");
    bound.def(py::init<>())
        .def(py::init([](EntityFullType const& type, unsigned int id, int topologyIndex) {
                 if (topologyIndex < -128 || topologyIndex > 127)
                     throw py::value_error("a topology index has 8 bits");
                 return Entity(type, id, static_cast<char>(topologyIndex));
             }),
             py::arg("type"), py::arg("id") = 0, py::arg("topology_index") = 0)
        .def_property_readonly("type", &Entity::GetEntityFullType)
        .def_property_readonly("id", &Entity::GetId)
        .def_property_readonly("topology_index",
                               [](Entity const& self) { return static_cast<int>(self.GetTopologyIndex()); })
        .def("__hash__", [](Entity const& self) { return EntityHash()(self); })
        .def(
            "__lt__", [](Entity const& a, Entity const& b) { return a < b; }, py::is_operator(),
            "By id alone.")
        .def("__repr__", [](Entity const& self) {
            return Format("Entity({!r}, {})", TypeOf(self.GetEntityFullType()), self.GetId());
        });
    BindEquality<Entity>(bound);
    using State = std::tuple<EntityFullType, unsigned int, int>;
    BindPickle(
        bound,
        +[](Entity const& self) {
            return State(self.GetEntityFullType(), self.GetId(), self.GetTopologyIndex());
        },
        +[](EntityFullType type, unsigned int id, int topologyIndex) {
            return Entity(type, id, static_cast<char>(topologyIndex));
        });
}

void BindQualifier(py::module_& module) {
    py::class_<Qualifier, Identifier> bound(
        module, "Qualifier", "A key scoped to an entity type: it names one attribute of its entities.");
    auto const make = [](auto const& key, EntityFullType const& type, unsigned int solver,
                         std::optional<unsigned int> row, std::optional<unsigned int> column,
                         unsigned int pool) {
        return Qualifier(key, type, solver, ToPlace(row), ToPlace(column), pool);
    };
    bound.def(py::init<>())
        .def(py::init([make](int key, EntityFullType const& type, unsigned int solver,
                             std::optional<unsigned int> row, std::optional<unsigned int> column,
                             unsigned int pool) { return make(key, type, solver, row, column, pool); }),
             py::arg("key").noconvert(), py::arg("type"), py::arg("solver_index") = 0,
             py::arg("row") = py::none(), py::arg("column") = py::none(), py::arg("solver_id_pool") = 0)
        .def(py::init([make](std::string const& key, EntityFullType const& type, unsigned int solver,
                             std::optional<unsigned int> row, std::optional<unsigned int> column,
                             unsigned int pool) { return make(key, type, solver, row, column, pool); }),
             py::arg("key"), py::arg("type"), py::arg("solver_index") = 0, py::arg("row") = py::none(),
             py::arg("column") = py::none(), py::arg("solver_id_pool") = 0)
        .def_property_readonly("type", &Qualifier::GetEntityFullType)
        .def_property_readonly("solver_id_pool", &Qualifier::GetSolverIdPool)
        .def_property_readonly("is_valid", &Qualifier::IsValid)
        .def("__repr__", [](Qualifier const& self) {
            return Format("Qualifier({!r}, {!r})", KeyOf(self), TypeOf(self.GetEntityFullType()));
        });
    BindEquality<Qualifier>(bound);
    using State = std::tuple<Key, EntityFullType, unsigned int>;
    BindPickle(
        bound,
        +[](Qualifier const& self) {
            return State(ToKey(self), self.GetEntityFullType(), self.GetSolverIdPool());
        },
        +[](Key key, EntityFullType type, unsigned int pool) {
            auto const& [number, name, solver, row, column] = key;
            Qualifier made = name.empty() ? Qualifier(number, type, 0, row, column, pool)
                                          : Qualifier(name, type, 0, row, column, pool);
            made.SetSolverIdx(solver);
            return made;
        });
}

void BindColor(py::module_& module) {
    py::class_<Color> bound(module, "Color",
                            "An index into the application's palette, or red, green and blue.");
    bound.def(py::init<unsigned int>(), py::arg("index") = 0)
        .def(py::init<unsigned char, unsigned char, unsigned char>(), py::arg("red"), py::arg("green"),
             py::arg("blue"))
        .def_property_readonly(
            "index",
            [](Color const& self) {
                unsigned int index = 0;
                return self.GetIndex(index) ? std::optional(index) : std::nullopt;
            },
            "None for a color that has components.")
        .def_property_readonly(
            "rgb",
            [](Color const& self) -> py::object {
                unsigned char red = 0, green = 0, blue = 0;
                if (!self.GetRGB(red, green, blue))
                    return py::none();
                return py::make_tuple(red, green, blue);
            },
            "None for an index.")
        .def("__hash__",
             [](py::object const& self) {
                 return py::hash(py::make_tuple(self.attr("index"), self.attr("rgb")));
             })
        .def("__repr__", [](Color const& self) {
            unsigned int index = 0;
            unsigned char red = 0, green = 0, blue = 0;
            self.GetRGB(red, green, blue);
            return self.GetIndex(index) ? Format("Color({})", index)
                                        : Format("Color({}, {}, {})", red, green, blue);
        });
    BindEquality<Color>(bound);
    using State = std::tuple<std::optional<unsigned int>, unsigned char, unsigned char, unsigned char>;
    BindPickle(
        bound,
        +[](Color const& self) {
            unsigned int index = 0;
            unsigned char red = 0, green = 0, blue = 0;
            self.GetRGB(red, green, blue);
            return State(self.GetIndex(index) ? std::optional(index) : std::nullopt, red, green, blue);
        },
        +[](std::optional<unsigned int> index, unsigned char red, unsigned char green, unsigned char blue) {
            return index ? Color(*index) : Color(red, green, blue);
        });
}

void BindVersion(py::module_& module) {
    py::class_<Version> bound(module, "Version",
                              "A semantic version. Wherever one is expected, a text will do.");
    bound.def(py::init<>())
        .def(py::init([](std::string const& text) {
                 try {
                     if (Version::IsValid(text))
                         return Version(text);
                 } catch (std::out_of_range const&) { // a number that is too large
                 }
                 throw Refused("'" + text + "' is no version");
             }),
             py::arg("text"))
        .def_property_readonly("major", &Version::GetMajor)
        .def_property_readonly("minor", &Version::GetMinor)
        .def_property_readonly("patch", &Version::GetPatch)
        .def_property_readonly("pre_release", &Version::GetPreRelease)
        .def_property_readonly("build", &Version::GetBuild)
        .def(py::self < py::self)
        .def(py::self <= py::self)
        .def(py::self > py::self)
        .def(py::self >= py::self)
        .def("__str__", &Version::GetString)
        .def("__hash__", [](Version const& self) { return py::hash(py::cast(self.GetString())); })
        .def("__repr__", [](Version const& self) { return Format("Version({!r})", self.GetString()); });
    BindEquality<Version>(bound);
    BindPickle(
        bound, +[](Version const& self) { return std::tuple(self.GetString()); },
        +[](qzString text) { return Version(text); });
    py::implicitly_convertible<py::str, Version>();
}

qzStlVector<qzVariant> ToVariants(py::args const& arguments) {
    qzStlVector<qzVariant> variants;
    for (py::handle const argument : arguments) {
        qzVariant variant;
        if (py::isinstance<py::bool_>(argument))
            variant.SetBoolean(argument.cast<bool>());
        else if (py::isinstance<py::int_>(argument))
            variant.SetLong64(argument.cast<long long>());
        else if (py::isinstance<py::float_>(argument))
            variant.SetDouble(argument.cast<double>());
        else
            variant.SetString(argument.cast<qzString>());
        variants.push_back(variant);
    }
    return variants;
}

void BindIdentifierPair(py::module_& module) {
    py::class_<IdentifierPair> bound(module, "IdentifierPair", "The number and the name of one thing.");
    bound.def(py::init<int, qzString const&>(), py::arg("number") = 0, py::arg("name") = "")
        .def_property_readonly("numeric", &IdentifierPair::GetNumeric)
        .def_property_readonly("named", &IdentifierPair::GetNamed)
        .def_property_readonly("is_valid", &IdentifierPair::IsValid)
        .def("__repr__", [](IdentifierPair const& self) {
            return Format("IdentifierPair({}, {!r})", self.GetNumeric().GetNumericKey(),
                          self.GetNamed().GetNameKey());
        });
    BindEquality<IdentifierPair>(bound);
    BindPickle(
        bound,
        +[](IdentifierPair const& self) {
            return std::tuple(self.GetNumeric().GetNumericKey(), self.GetNamed().GetNameKey());
        },
        +[](int number, qzString name) { return IdentifierPair(number, name); });
}

void BindFunction(py::module_& module) {
    py::class_<Function> bound(
        module, "Function", "A reference to something callable, by its names. The library never calls it.");
    bound
        .def(py::init([](std::string const& tclName, std::string const& nativeName, int usage) {
                 return Function(static_cast<Function::Usage>(usage), tclName, nullptr, nativeName);
             }),
             py::arg("tcl_name") = "", py::arg("native_name") = "", py::arg("usage") = 0)
        .def_property_readonly("tcl_name", &Function::GetFunctionNameTCL)
        .def_property_readonly("native_name", &Function::GetFunctionNameCPP)
        .def_property_readonly("usage",
                               [](Function const& self) { return static_cast<int>(self.GetUsage()); })
        .def_property_readonly(
            "has_callback", [](Function const& self) { return self.GetCallBackCPP() != nullptr; },
            "Whether there is a native function behind it, which only C++ can call.")
        .def(
            "call_script",
            [](Function const& self, py::args const& arguments) {
                qzString output;
                qzReturnStatus const status = CallScriptFunction(self, ToVariants(arguments), output);
                if (status.status != 0)
                    throw Refused(output.empty() ? status.message : output);
                return output;
            },
            "Calls the function of that name in Tcl with numbers and texts, and gives what it printed.")
        .def("__str__", [](Function const& self) { return GetAsString(self); })
        .def("__repr__", [](Function const& self) {
            return Format("Function({!r}, {!r})", self.GetFunctionNameTCL(), self.GetFunctionNameCPP());
        });
    BindEquality<Function>(bound);
    using State = std::tuple<int, qzString, qzString>;
    BindPickle(
        bound,
        +[](Function const& self) {
            if (self.GetCallBackCPP() != nullptr)
                throw py::type_error("a function that calls into this process cannot be pickled");
            return State(self.GetUsage(), self.GetFunctionNameTCL(), self.GetFunctionNameCPP());
        },
        +[](int usage, qzString tclName, qzString nativeName) {
            return Function(static_cast<Function::Usage>(usage), tclName, nullptr, nativeName);
        });
}

} // namespace

void BindIdentities(py::module_& module) {
    BindIdentifier(module);
    BindIdentifierPair(module);
    BindEntityFullType(module);
    BindEntity(module);
    BindQualifier(module);
    BindColor(module);
    BindVersion(module);
    BindFunction(module);
}

} // namespace qzPython
