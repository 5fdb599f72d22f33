#include "copies.h"

namespace qzPython {

namespace {

using Params = DefinitionUserParams;

/// Kinds of menus: one, or several that are combined by |.
ContextMenuType ToKinds(int kinds) { return static_cast<ContextMenuType>(kinds); }

void BindContextMenu(py::module_& module) {
    py::enum_<ContextMenuType>(module, "ContextMenuType", py::arithmetic(),
                               "Kinds of context menus, combined by |.")
        .value("NONE", CONTEXT_MENU_NONE)
        .value("CREATE", CONTEXT_MENU_CREATE)
        .value("EDIT", CONTEXT_MENU_EDIT)
        .value("SELECT", CONTEXT_MENU_SELECT)
        .value("REVIEW", CONTEXT_MENU_REVIEW)
        .value("CLEAR", CONTEXT_MENU_CLEAR);

    py::class_<ContextMenuData> data(
        module, "ContextMenuData",
        "The kinds of menus that one record switches, and whether it speaks only of valid entity types.");
    data.def(py::init([](int kinds, bool valid) { return ContextMenuData(ToKinds(kinds), valid); }),
             py::arg("kinds"), py::arg("valid_entity_type") = false)
        .def_property_readonly(
            "kinds", [](ContextMenuData const& self) { return static_cast<int>(self.GetContextMenuType()); })
        .def_property_readonly("valid_entity_type", &ContextMenuData::GetValidEntityType)
        .def(
            "__eq__", [](ContextMenuData const& a, ContextMenuData const& b) { return a == b; },
            py::is_operator())
        .def("__hash__",
             [](ContextMenuData const& self) {
                 return self.GetContextMenuType() * 2 + (self.GetValidEntityType() ? 1 : 0);
             })
        .def("__repr__", [](ContextMenuData const& self) {
            return py::str("ContextMenuData({}, {})")
                .format(static_cast<int>(self.GetContextMenuType()), self.GetValidEntityType());
        });
    BindCopy<ContextMenuData>(data);

    py::class_<DefinitionContextMenu> menu(
        module, "DefinitionContextMenu",
        "Which context menus an attribute shows, by the number of an entity type.");
    menu.def(py::init<>())
        .def(py::init<DefinitionContextMenu::Entry const&, DefinitionContextMenu::Entry const&>(),
             py::arg("on"), py::arg("off"),
             "A type with a record of kinds switched on, and one of kinds off.")
        .def(
            "set_status",
            [](DefinitionContextMenu& self, unsigned int type, int kinds, bool status, bool valid) {
                self.SetEntityTypeContextMenuStatus(type, ToKinds(kinds), status, valid);
            },
            py::arg("entity_type"), py::arg("kinds"), py::arg("status"), py::arg("valid_entity_type") = false,
            "Replaces what is said of the kinds switched on, or of those off.")
        .def(
            "status",
            [](DefinitionContextMenu const& self, unsigned int type, int kinds,
               bool valid) -> std::optional<bool> {
                bool status = false;
                bool const is = self.HasContextMenuStatusDefined(ToKinds(kinds), type, valid, status);
                return is ? std::optional(status) : std::nullopt;
            },
            py::arg("entity_type"), py::arg("kinds"), py::arg("valid_entity_type") = false,
            "Whether the menus are on; None where nothing is said.")
        .def("clear", &DefinitionContextMenu::Clear)
        .def(
            "__eq__", [](DefinitionContextMenu const& a, DefinitionContextMenu const& b) { return a == b; },
            py::is_operator());
    BindCopy<DefinitionContextMenu>(menu);
}

void BindConfirmation(py::class_<Params>& bound) {
    py::enum_<Params::ConfirmMessageType>(bound, "Confirm", "How a change of the value is to be confirmed.")
        .value("NONE", Params::CONFIRM_NONE)
        .value("INFORMATION", Params::CONFIRM_INFORMATION)
        .value("WARNING", Params::CONFIRM_WARNING)
        .value("QUESTION", Params::CONFIRM_QUESTION);
    bound
        .def_property_readonly(
            "confirm_type", [](Params const& self) { return static_cast<int>(self.GetConfirmMessageType()); },
            "One of Confirm, or a code of the application's own.")
        .def_property_readonly("confirm_message", &Params::GetConfirmMessage)
        .def(
            "set_confirm_message",
            [](Params& self, int type, std::string const& message) {
                self.SetConfirmMessage(static_cast<Params::ConfirmMessageType>(type), message);
            },
            py::arg("type"), py::arg("message"));
}

} // namespace

void BindUserParams(py::module_& module) {
    BindContextMenu(module);
    py::class_<Params> bound(module, "DefinitionUserParams",
                             "What user interfaces want to know beyond a definition.");
    BindConfirmation(bound);
    bound.def(py::init<>())
        .def_property("flag", &Params::GetFlag, &Params::SetFlag)
        .def_property("can_be_parameterized", &Params::GetCanBeParameterized, &Params::SetCanBeParameterized)
        .def_property("common_to_multiple_types", &Params::GetCommonToMultipleTypes,
                      &Params::SetCommonToMultipleTypes)
        .def_property("foreign_reference", &Params::GetForeignReference, &Params::SetForeignReference)
        .def_property("comment", &Params::GetComment, &Params::SetComment)
        .def_property("status_off_value", &Params::GetStatusOffValue, &Params::SetStatusOffValue)
        .def_property("ignore_status", &Params::GetIgnoreStatus, &Params::SetIgnoreStatus)
        .def_property("unstructured_table", &Params::GetUnstructuredTable, &Params::SetUnstructuredTable)
        .def_property("used_for_table_column_with_status", &Params::GetUsedForTableColumnWithStatus,
                      &Params::SetUsedForTableColumnWithStatus)
        .def_property("image_path", &Params::GetImagePath, &Params::SetImagePath)
        .def_property("image_title", &Params::GetImageTitle, &Params::SetImageTitle)
        .def_property("private_variable", &Params::GetPrivateVariable, &Params::SetPrivateVariable)
        .def_property(
            "default_display_status",
            [](Params const& self) { return static_cast<int>(self.GetDefaultDisplayStatus()); },
            [](Params& self, int status) {
                self.SetDefaultDisplayStatus(static_cast<DisplayStatus>(status));
            },
            "How an attribute is to be shown: 0 off, 1 on, 2 by default.")
        .def_property(
            "context_menu", [](Params const& self) { return self.GetContextMenuDefinition(); },
            &Params::SetContextMenuDefinition,
            "Which context menus the attribute shows. Reading gives a copy.")
        .def(
            "__eq__", [](Params const& a, Params const& b) { return a == b; }, py::is_operator());
    BindCopy<Params>(bound);
}

} // namespace qzPython
