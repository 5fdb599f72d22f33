#include "conversions.h"
#include "copies.h"
#include "handles.h"

#include "descriptor/TabularDefinition.h"

namespace qzPython {

namespace {

UnitsDimensionality ToUnits(py::object const& units) {
    if (units.is_none())
        return {};
    if (py::isinstance<UnitsDimensionality>(units))
        return units.cast<UnitsDimensionality>();
    if (py::isinstance<py::str>(units))
        return {units.cast<std::string>(), ""};
    return UnitsDimensionality(units.cast<UnitsDimensionality::Pair>());
}

/// A definition with all of its fields, most of them by name.
Definition MakeDefinition(std::string const& displayName, py::object const& type,
                          AllowablesParts const& parts, std::optional<Allowables> const& allowables) {
    TypeSpec const spec = ToTypeSpec(type);
    Definition definition(displayName, spec.basic, spec.compound, spec.dimension,
                          allowables ? *allowables : MakeAllowables(spec, parts), Definition::SOURCE_STORED,
                          Definition::SPECIFICATION_OPTIONAL, true, true, "", "", {},
                          Definition::DIFFERENTIATOR_NONE, {});
    return definition;
}

void BindEnums(py::class_<Definition>& bound) {
    py::enum_<Definition::ValueSource>(bound, "Source", "Where the value comes from.")
        .value("STORED", Definition::SOURCE_STORED)
        .value("COMPUTED", Definition::SOURCE_COMPUTED)
        .value("REFERENCED", Definition::SOURCE_REFERENCED)
        .value("EXTERNAL", Definition::SOURCE_EXTERNAL);
    py::enum_<Definition::ValueSpecification>(bound, "Specification", "Whether the value has to be given.")
        .value("OPTIONAL", Definition::SPECIFICATION_OPTIONAL)
        .value("REQUIRED", Definition::SPECIFICATION_REQUIRED)
        .value("CONDITIONAL", Definition::SPECIFICATION_CONDITIONAL);
    py::enum_<Definition::ValueDifferentiator>(bound, "Differentiator",
                                               "What values of one type have to be told apart for.")
        .value("NONE", Definition::DIFFERENTIATOR_NONE)
        .value("FILE", Definition::DIFFERENTIATOR_FILE)
        .value("FOLDER", Definition::DIFFERENTIATOR_FOLDER)
        .value("DIRECTION", Definition::DIFFERENTIATOR_DIRECTION)
        .value("ANGLE", Definition::DIFFERENTIATOR_ANGLE)
        .value("TIME", Definition::DIFFERENTIATOR_TIME);
}

void BindDefinition(py::module_& module) {
    py::class_<Definition> bound(
        module, "Definition",
        "What one attribute is: its texts, the type of its value, what the value may be, its "
        "units, and how user interfaces treat it. Definition('Thickness', float, "
        "default=1.0, above=0, units='LENGTH').");
    BindEnums(bound);
    bound.def(py::init<>(), "An unspecified definition.")
        .def(py::init([](std::string const& displayName, py::object const& type,
                         py::object const& defaultValue, py::object const& above, py::object const& atLeast,
                         py::object const& below, py::object const& atMost, py::object const& values,
                         py::object const& names, std::optional<Allowables> const& allowables,
                         py::object const& units, bool editable, bool visible, std::string const& description,
                         std::string const& helpPath, Definition::ValueSource source,
                         Definition::ValueSpecification specification,
                         Definition::ValueDifferentiator differentiator,
                         std::optional<DefinitionUserParams> const& userParams) {
                 Definition definition =
                     MakeDefinition(displayName, type,
                                    {defaultValue, above, atLeast, below, atMost, values, names}, allowables);
                 definition.SetUnitsDimensionality(ToUnits(units));
                 definition.SetEditable(editable);
                 definition.SetVisible(visible);
                 definition.SetDescription(description);
                 definition.SetHelpPath(helpPath);
                 definition.SetValueSource(source);
                 definition.SetValueSpecification(specification);
                 definition.SetValueDifferentiator(differentiator);
                 if (userParams)
                     definition.SetUserParams(*userParams);
                 return definition;
             }),
             py::arg("display_name"), py::arg("type"), py::kw_only(), py::arg("default") = py::none(),
             py::arg("above") = py::none(), py::arg("at_least") = py::none(), py::arg("below") = py::none(),
             py::arg("at_most") = py::none(), py::arg("values") = py::none(), py::arg("names") = py::none(),
             py::arg("allowables") = py::none(), py::arg("units") = py::none(), py::arg("editable") = true,
             py::arg("visible") = true, py::arg("description") = "", py::arg("help_path") = "",
             py::arg("source") = Definition::SOURCE_STORED,
             py::arg("specification") = Definition::SPECIFICATION_OPTIONAL,
             py::arg("differentiator") = Definition::DIFFERENTIATOR_NONE, py::arg("user_params") = py::none(),
             "The type is a Python type, list[...] of one, or a ValueType. What it may be is said by bounds, "
             "by a "
             "list of values with names, or by allowables.")
        .def_property_readonly("is_specified", &Definition::IsSpecified)
        .def_property("display_name", &Definition::GetDisplayName, &Definition::SetDisplayName)
        .def_property(
            "type", [](Definition const& self) { return TypeSpec::Of(self); },
            [](Definition& self, py::object const& type) {
                TypeSpec const spec = ToTypeSpec(type);
                self.SetValueBasicType(spec.basic);
                self.SetValueCompoundType(spec.compound);
                self.SetArrayDimension(spec.dimension);
            })
        .def_property("allowables", &Definition::GetAllowables, &Definition::SetAllowables)
        .def_property_readonly("default",
                               [](Definition const& self) { return GiveDefault(self.GetAllowables()); })
        .def_property(
            "units", &Definition::GetUnitsDimensionality,
            [](Definition& self, py::object const& units) { self.SetUnitsDimensionality(ToUnits(units)); })
        .def_property("editable", &Definition::GetEditable, &Definition::SetEditable)
        .def_property("visible", &Definition::GetVisible, &Definition::SetVisible)
        .def_property("description", &Definition::GetDescription, &Definition::SetDescription)
        .def_property("help_path", &Definition::GetHelpPath, &Definition::SetHelpPath)
        .def_property("source", &Definition::GetValueSource, &Definition::SetValueSource)
        .def_property("specification", &Definition::GetValueSpecification, &Definition::SetValueSpecification)
        .def_property("differentiator", &Definition::GetValueDifferentiator,
                      &Definition::SetValueDifferentiator)
        .def_property("user_params", &Definition::GetUserParams, &Definition::SetUserParams)
        .def(
            "__eq__", [](Definition const& a, Definition const& b) { return a == b; }, py::is_operator())
        .def("__repr__", [](Definition const& self) {
            return py::str("<Definition {!r}: {}>").format(self.GetDisplayName(), TypeSpec::Of(self));
        });
    BindCopy<Definition>(bound);
}

void BindUnits(py::module_& module) {
    py::class_<UnitsDimensionality> bound(module, "UnitsDimensionality",
                                          "What a value measures, in one or two pairs.");
    bound
        .def(py::init<qzString const&, qzString const&>(), py::arg("dimensionality") = "",
             py::arg("display_name") = "")
        .def(py::init<UnitsDimensionality::Pair, UnitsDimensionality::Pair>(), py::arg("first"),
             py::arg("second"))
        .def("dimensionality", &UnitsDimensionality::GetDimensionality, py::arg("pair") = 0)
        .def("display_name", &UnitsDimensionality::GetDimensionalityDisplayName, py::arg("pair") = 0)
        .def(
            "__eq__", [](UnitsDimensionality const& a, UnitsDimensionality const& b) { return a == b; },
            py::is_operator())
        .def("__repr__", [](UnitsDimensionality const& self) {
            return py::str("UnitsDimensionality({!r}, {!r})")
                .format(self.GetDimensionality(0), self.GetDimensionalityDisplayName(0));
        });
    BindCopy<UnitsDimensionality>(bound);
}

void BindTabularDefinition(py::module_& module) {
    py::class_<TabularDefinition> bound(module, "TabularDefinition",
                                        "The shape of a table: a definition for each column.");
    bound
        .def(py::init([](std::string const& displayName, qzStlVector<Definition> columns, bool editable,
                         bool visible, std::string const& description, std::string const& helpPath) {
                 return TabularDefinition(displayName, columns, editable, visible, description, helpPath);
             }),
             py::arg("display_name") = "", py::arg("columns") = qzStlVector<Definition>(),
             py::arg("editable") = true, py::arg("visible") = true, py::arg("description") = "",
             py::arg("help_path") = "")
        .def_property("display_name", &TabularDefinition::GetDisplayName, &TabularDefinition::SetDisplayName)
        .def_property("description", &TabularDefinition::GetDescription, &TabularDefinition::SetDescription)
        .def_property("help_path", &TabularDefinition::GetHelpPath, &TabularDefinition::SetHelpPath)
        .def_property("editable", &TabularDefinition::GetEditable, &TabularDefinition::SetEditable)
        .def_property("visible", &TabularDefinition::GetVisible, &TabularDefinition::SetVisible)
        .def_property_readonly("columns",
                               [](TabularDefinition const& self) {
                                   qzStlVector<Definition> columns;
                                   for (unsigned int i = 0; i < self.GetColumnCount(); ++i)
                                       columns.push_back(self.GetColumnDefinition(i));
                                   return columns;
                               })
        .def("__len__", &TabularDefinition::GetColumnCount)
        .def(
            "__getitem__",
            [](TabularDefinition const& self, unsigned int column) {
                if (column >= self.GetColumnCount())
                    throw py::index_error("there is no such column"); // which is how iteration ends
                return self.GetColumnDefinition(column);
            },
            py::arg("column"), "A copy of the definition of a column.")
        .def(
            "__setitem__",
            [](TabularDefinition& self, unsigned int column, Definition const& definition) {
                if (column >= self.GetColumnCount())
                    throw py::index_error("there is no such column");
                self.SetColumnDefinition(column, definition);
            },
            py::arg("column"), py::arg("definition"), "Replaces a column; there is no way to add one.")
        .def(
            "__eq__", [](TabularDefinition const& a, TabularDefinition const& b) { return a == b; },
            py::is_operator())
        .def("__repr__", [](TabularDefinition& self) {
            return py::str("<TabularDefinition {!r} of {} columns>")
                .format(self.GetDisplayName(), self.GetColumnCount());
        });
    BindCopy<TabularDefinition>(bound);
}

/// What a Python function gives as a status: nothing or a message is success, False a failure.
qzReturnStatus ToStatus(py::object const& given) {
    if (py::isinstance<py::str>(given))
        return {0, given.cast<std::string>()};
    if (py::isinstance<py::bool_>(given) && !given.cast<bool>())
        return {-1, ""};
    return {};
}

/// What a Python function is for an action: its callback, or its enabled test.
enum class Role { Callback, EnabledTest };

/// The function of C++ that calls a Python function with the object.
ActionDefinition::Function ToFunction(py::object const& function, Role role) {
    if (function.is_none())
        return nullptr;
    return [kept = KeepFunction(function), role](Metaobject const* object) {
        qzReturnStatus status{-1, "Python is gone"};
        RunOrReport([&] {
            status.message = "The function failed";
            LentObject const lent(object);
            try {
                status = ToStatus(kept.Get()(lent.Get()));
            } catch (py::error_already_set const& error) {
                status = {-1, ToText(error.value())};
                if (!error.matches(py::module_::import("qzdescriptor").attr("Refused")))
                    throw; // a refusal is an answer, anything else is reported
            }
            // Whoever asked goes on with the object only where it is enabled.
            if (role == Role::EnabledTest && lent.IsGone())
                status = {-1, "The object is gone"};
        });
        return status;
    };
}

void BindActionDefinition(py::module_& module) {
    py::class_<ActionDefinition> bound(
        module, "ActionDefinition",
        "An operation that a user starts on one object: a Python function called with the "
        "object, or a function of a script module.");
    bound
        .def(py::init([](std::string const& displayName, py::object const& callback, bool enabled,
                         py::object const& enabledTest, std::string const& description,
                         std::string const& helpPath) {
                 return ActionDefinition(displayName, ToFunction(callback, Role::Callback), enabled,
                                         ToFunction(enabledTest, Role::EnabledTest), description, helpPath);
             }),
             py::arg("display_name"), py::arg("callback"), py::arg("enabled") = true,
             py::arg("enabled_test") = py::none(), py::arg("description") = "", py::arg("help_path") = "",
             "The function may give a message. Raise Refused to fail; False of the enabled test disables the "
             "action for the object.")
        .def_static(
            "script",
            [](std::string const& displayName, std::string const& function, std::string const& functionModule,
               std::string const& functionClass, std::string const& language, bool enabled, bool visible,
               std::string const& description, std::string const& helpPath) {
                return ActionDefinition(displayName, function, functionClass, functionModule, language,
                                        enabled, visible, description, helpPath);
            },
            py::arg("display_name"), py::arg("function"), py::arg("module") = "",
            py::arg("function_class") = "", py::arg("language") = "python", py::arg("enabled") = true,
            py::arg("visible") = true, py::arg("description") = "", py::arg("help_path") = "",
            "An action that runs a function of a module in the interpreter of a language.")
        .def_property_readonly("is_script_action", &ActionDefinition::IsScriptAction)
        .def_property("display_name", &ActionDefinition::GetDisplayName, &ActionDefinition::SetDisplayName)
        .def_property("enabled", &ActionDefinition::GetEnabled, &ActionDefinition::SetEnabled)
        .def_property("visible", &ActionDefinition::GetVisible, &ActionDefinition::SetVisible)
        .def_property("description", &ActionDefinition::GetDescription, &ActionDefinition::SetDescription)
        .def_property("help_path", &ActionDefinition::GetHelpPath, &ActionDefinition::SetHelpPath)
        .def_property_readonly("function", &ActionDefinition::GetCallbackScriptFunction)
        .def_property_readonly("function_class", &ActionDefinition::GetCallbackScriptFunctionClass)
        .def_property_readonly("module", &ActionDefinition::GetCallbackScriptFunctionModule)
        .def_property_readonly("language", &ActionDefinition::GetLanguage)
        .def(
            "__eq__", [](ActionDefinition const& a, ActionDefinition const& b) { return a == b; },
            py::is_operator())
        .def("__repr__", [](ActionDefinition const& self) {
            return py::str("<ActionDefinition {!r}>").format(self.GetDisplayName());
        });
    BindCopy<ActionDefinition>(bound);
}

} // namespace

void BindDefinitions(py::module_& module) {
    BindAllowables(module);
    BindUnits(module);
    BindUserParams(module);
    BindCards(module);
    BindDefinition(module);
    BindTabularDefinition(module);
    BindActionDefinition(module);
}

} // namespace qzPython
