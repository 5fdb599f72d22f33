#include "conversions.h"
#include "derived_session.h"

namespace qzPython {

namespace {

using Class = py::class_<ObjectHandle>;

Definition const& FindDefinition(Metaobject const& object, Identifier const& attribute) {
    Definition const* const definition = object.GetDefinition(attribute);
    if (definition == nullptr)
        throw Missing("no attribute " + ToText(py::cast(attribute)));
    return *definition;
}

void BindValues(Class& object) {
    object
        .def(
            "__getitem__",
            [](ObjectHandle const& self, Identifier const& attribute) {
                Metaobject const& held = self.Get();
                ValuePtr const* value = nullptr;
                if (!held.GetValue(attribute, value)) {
                    FindDefinition(held, attribute);
                    return py::object(py::none()); // an attribute that has no value
                }
                return GiveData(value);
            },
            py::arg("attribute"), "The value of an attribute; its default when it was never set.")
        .def(
            "__setitem__",
            [](ObjectHandle const& self, Identifier const& attribute, py::object const& data) {
                TypeSpec const type = TypeSpec::Of(FindDefinition(self.Get(), attribute));
                Value const value = TakeValue(type, data); // may run code that deletes the object
                Check(self.Get().SetValue(attribute, value));
            },
            py::arg("attribute"), py::arg("data"),
            "Sets an attribute to data, or to a Value, of its declared type. Raises Refused, with the "
            "reason, for "
            "others.")
        .def(
            "__contains__",
            [](ObjectHandle const& self, Identifier const& attribute) {
                return self.Get().GetDefinition(attribute) != nullptr;
            },
            py::arg("attribute"))
        .def(
            "text",
            [](ObjectHandle const& self, Identifier const& attribute, std::optional<qzString> const& format) {
                qzString text;
                FindDefinition(self.Get(), attribute);
                Check(self.Get().GetValueAsString(attribute, text, format.value_or("")),
                      "the value has no text of that form");
                return text;
            },
            py::arg("attribute"), py::arg("format") = py::none(),
            "The value as text, in the type's own form or a given one.")
        .def(
            "set_text",
            [](ObjectHandle const& self, Identifier const& attribute, std::string const& text,
               std::optional<qzString> const& format) {
                FindDefinition(self.Get(), attribute);
                Check(self.Get().SetValueFromString(attribute, text, format.value_or("")));
            },
            py::arg("attribute"), py::arg("text"), py::arg("format") = py::none(), "Reads a value from text.")
        .def(
            "display_status",
            [](ObjectHandle const& self, Identifier const& attribute) {
                return static_cast<int>(self.Get().GetDisplayStatus(attribute));
            },
            py::arg("attribute"), "How an attribute is to be shown: 0 off, 1 on, 2 as its definition says.")
        .def(
            "set_display_status",
            [](ObjectHandle const& self, Identifier const& attribute, int status) {
                Check(self.Get().SetDisplayStatus(attribute, static_cast<DisplayStatus>(status)),
                      "the object has no such attribute");
            },
            py::arg("attribute"), py::arg("status"));
}

qzStlVector<Identifier> ListAttributes(ObjectHandle const& self) {
    qzStlVector<Identifier> identifiers;
    self.Get().GetAttributeIdentifiers(identifiers);
    return identifiers;
}

void BindMetadata(Class& object) {
    object
        .def_property_readonly("attributes", &ListAttributes, "The identifiers of the attributes, in order.")
        .def("__iter__", [](ObjectHandle const& self) { return py::iter(py::cast(ListAttributes(self))); })
        .def("__len__", [](ObjectHandle const& self) { return ListAttributes(self).size(); })
        .def_property_readonly(
            "actions",
            [](ObjectHandle const& self) {
                qzStlVector<Identifier> identifiers;
                self.Get().GetActionIdentifiers(identifiers);
                return identifiers;
            },
            "The identifiers of the actions, in order.")
        .def(
            "definition",
            [](ObjectHandle const& self, Identifier const& attribute) {
                return FindDefinition(self.Get(), attribute);
            },
            py::arg("attribute"), "A copy of what an attribute of this object is.")
        .def(
            "allowables",
            [](ObjectHandle const& self, Identifier const& attribute) {
                Allowables allowables;
                FindDefinition(self.Get(), attribute);
                self.Get().GetAllowables(attribute, allowables);
                return allowables;
            },
            py::arg("attribute"))
        .def(
            "set_allowables",
            [](ObjectHandle const& self, Identifier const& attribute, Allowables const& allowables) {
                // What changes is the application's object, which the session hands out as constant.
                Check(const_cast<Metaobject&>(self.Get()).SetAllowables(attribute, allowables),
                      "the object does not take these allowables");
            },
            py::arg("attribute"), py::arg("allowables"),
            "Replaces the allowed values of one attribute of this object; a value that they refuse gives way "
            "to "
            "their default.");
}

void BindActions(Class& object) {
    object
        .def(
            "invoke",
            [](ObjectHandle const& self, Identifier const& action) {
                qzReturnStatus const status = self.Get().InvokeAction(action);
                Check(status);
                return status.message;
            },
            py::arg("action"), "Starts an action and gives its message. Raises Refused when it fails.")
        .def(
            "is_action_enabled",
            [](ObjectHandle const& self, Identifier const& action) {
                return self.Get().IsActionEnabled(action);
            },
            py::arg("action"))
        .def(
            "is_action_visible",
            [](ObjectHandle const& self, Identifier const& action) {
                return self.Get().IsActionVisible(action);
            },
            py::arg("action"))
        .def_property_readonly(
            "data_operations",
            [](ObjectHandle const& self) {
                DataOperationList operations;
                self.Get().GetDataOperations(operations);
                return operations;
            },
            "The menu of operations on this object.");
}

py::object GiveOwner(ObjectHandle const& self) {
    ISession* const session = self.Get().GetSession();
    if (session == nullptr)
        return py::none();
    SessionHandle const handle(*session);
    SessionInUse const held(handle);
    Entity owner;
    Identifier attribute;
    return self.Get().GetOwner(owner, attribute) ? GiveObject(held->Get(owner), handle)
                                                 : py::object(py::none());
}

void BindPlace(Class& object) {
    object.def_property_readonly("entity", &ObjectHandle::GetEntity)
        .def_property_readonly("id", [](ObjectHandle const& self) { return self.GetEntity().GetId(); })
        .def_property_readonly("type",
                               [](ObjectHandle const& self) { return self.GetEntity().GetEntityFullType(); })
        .def_property_readonly("name", [](ObjectHandle const& self) { return self.Get().GetName(); })
        .def_property_readonly("session",
                               [](ObjectHandle const& self) { return GiveSession(self.Get().GetSession()); })
        .def_property_readonly("owner", &GiveOwner, "The object that owns this one; None when nothing does.")
        .def_property_readonly(
            "is_alive", [](ObjectHandle const& self) { return self.Find() != nullptr; },
            "Whether there is such an object. Nothing but its entity can be asked of one that is gone.")
        .def("__repr__",
             [](ObjectHandle const& self) {
                 return "<" + self.GetEntity().GetEntityFullType().GetTypeNamed() + " " +
                        std::to_string(self.GetEntity().GetId()) + (self.Find() != nullptr ? ">" : ", gone>");
             })
        .def(
            "__eq__", [](ObjectHandle const& self, ObjectHandle const& other) { return self == other; },
            py::is_operator())
        .def("__hash__", [](ObjectHandle const& self) { return EntityHash()(self.GetEntity()); });
}

} // namespace

void BindObjects(py::module_& module) {
    Class object(
        module, "Object",
        "One object of a session, by its entity: obj['T'] reads an attribute, obj['T'] = 2.5 sets it. A "
        "handle: the object belongs to its session and is looked up at every use; what is asked of one "
        "that is gone raises Ended.");
    BindPlace(object);
    BindValues(object);
    BindMetadata(object);
    BindActions(object);
}

} // namespace qzPython
