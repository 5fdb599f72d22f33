#include "attributes.h"

#include "conversions.h"
#include "derived_object.h"

#include "descriptor/DataOperationList.h"

namespace qzPython {

// --- looking ---------------------------------------------------------------------------------------------

AttributeSource ToSource(py::handle source) {
    if (py::isinstance<ObjectHandle>(source))
        return source.cast<ObjectHandle const&>();
    if (py::isinstance<ContentRef>(source))
        return source.cast<ContentRef const&>();
    if (py::isinstance<MembersRef>(source))
        return source.cast<MembersRef const&>();
    throw py::type_error("an Object, a Content or Members are expected");
}

namespace {

/// What keeps an object's values; that of its type where the object keeps them elsewhere.
AttributeHelper LookAt(Metaobject const& object) {
    if (auto const* const written = dynamic_cast<MemberObject const*>(&object))
        return AttributeHelper(&written->GetKept());
    if (Content const* const content = object.GetContent())
        return AttributeHelper(content);
    ISession const* const session = object.GetSession();
    MetaclassMgr const* const registry = session != nullptr ? session->GetMetaclassMgr() : nullptr;
    return AttributeHelper(
        registry != nullptr
            ? registry->GetMembers(registry->GetMetaclassHandle(object.GetEntityFullType()), 0)
            : nullptr);
}

} // namespace

AttributeHelper Look(AttributeSource const& source) {
    if (auto const* const object = std::get_if<ObjectHandle>(&source))
        return LookAt(object->Get());
    if (auto const* const content = std::get_if<ContentRef>(&source))
        return AttributeHelper(&content->Get());
    return AttributeHelper(&std::get<MembersRef>(source).Get());
}

AttributeView FindAttribute(AttributeSource const& source, Identifier const& identifier) {
    Attribute const found = Look(source).Find(identifier, true);
    if (!found.IsValid())
        throw Missing("no attribute " + ToText(py::cast(identifier)));
    return AttributeView(source, found.GetIndex());
}

Attribute AttributeView::Look() const { return qzPython::Look(m_source).Get(m_index); }

Attribute AttributeView::Refresh() const {
    if (GetObject() != nullptr) {
        if (auto const* const written = dynamic_cast<MemberObject const*>(&GetObject()->Get()))
            return Attribute(&written->Refresh(m_index), m_index);
    }
    return Look();
}

Content& AttributeView::GetContent() const {
    auto const* const content = std::get_if<ContentRef>(&m_source);
    if (content == nullptr)
        throw Refused("only the attributes of a Content can be given this");
    return content->Get();
}

Definition const& AttributeView::GetDefinition() const {
    Attribute const view = Look();
    Definition const* const definition = GetObject() != nullptr
                                             ? GetObject()->Get().GetDefinition(view.GetIdentifier())
                                             : view.GetDefinition();
    if (definition == nullptr)
        throw Ended("there is no such attribute any more");
    return *definition;
}

Value AttributeView::GetValue() const {
    Value value;
    if (GetObject() == nullptr) {
        Look().GetValue(value);
        return value;
    }
    ValuePtr const* held = nullptr;
    if (GetObject()->Get().GetValue(m_index + 1, held))
        value = *held;
    return value;
}

void AttributeView::SetValue(Value const& value) const {
    Attribute view = Look();
    Check(GetObject() != nullptr ? GetObject()->Get().SetValue(view.GetIdentifier(), value)
                                 : view.SetValue(value));
}

// --- the module ------------------------------------------------------------------------------------------

namespace {

using Class = py::class_<AttributeView>;

TypeSpec TypeOf(AttributeView const& self) { return TypeSpec::Of(self.GetDefinition()); }

void BindDescription(Class& attribute) {
    attribute.def_property_readonly("index", &AttributeView::GetIndex)
        .def_property_readonly(
            "handle", [](AttributeView const& self) { return self.GetIndex() + 1; },
            "The handle of the attribute in its metaclass.")
        .def_property_readonly("is_read_only", &AttributeView::IsReadOnly)
        .def_property_readonly("identifier",
                               [](AttributeView const& self) { return self.Look().GetIdentifier(); })
        .def_property_readonly("secondary_identifier",
                               [](AttributeView const& self) { return self.Look().GetSecondaryIdentifier(); })
        .def_property_readonly(
            "name", [](AttributeView const& self) { return self.Look().GetName(); },
            "The identifier's name, else its number.")
        .def_property_readonly(
            "display_name",
            [](AttributeView const& self) {
                qzString const text = self.GetDefinition().GetDisplayName();
                return text.empty() ? self.Look().GetName() : text;
            },
            "The definition's display name, else the name.")
        .def_property_readonly("kind", [](AttributeView const& self) { return self.Look().GetType(); })
        .def_property_readonly("type", &TypeOf)
        .def_property_readonly("is_visible",
                               [](AttributeView const& self) { return self.GetDefinition().GetVisible(); })
        .def_property_readonly("is_editable",
                               [](AttributeView const& self) { return self.GetDefinition().GetEditable(); })
        .def(
            "dimensionality",
            [](AttributeView const& self, unsigned int pair) { return self.Look().GetDimensionality(pair); },
            py::arg("pair") = 0, "What the value measures, for a unit system.")
        .def(
            "dimensionality_display_name",
            [](AttributeView const& self, unsigned int pair) {
                return self.Look().GetDimensionalityDisplayName(pair);
            },
            py::arg("pair") = 0);
}

void SetAllowables(AttributeView const& self, Allowables const& allowables) {
    if (self.GetObject() == nullptr) {
        self.GetContent().SetAllowables(self.GetIndex(), allowables);
        return;
    }
    // What changes is the application's object, which the session hands out as constant.
    auto& object = const_cast<Metaobject&>(self.GetObject()->Get());
    Check(object.SetAllowables(self.Look().GetIdentifier(), allowables),
          "the object does not take these allowables");
}

void BindDefinitions(Class& attribute) {
    attribute
        .def_property(
            "definition", [](AttributeView const& self) { return self.GetDefinition(); },
            [](AttributeView const& self, Definition const& definition) {
                self.GetContent().ReplaceDefinition(self.GetIndex(),
                                                    std::make_shared<Definition const>(definition));
            },
            "A copy of what the attribute is. Set, it holds for this Content alone; a value that it refuses "
            "is reset.")
        .def(
            "restore_definition",
            [](AttributeView const& self) { self.GetContent().RestoreDefinition(self.GetIndex()); },
            "Makes the definition of the member set hold again.")
        .def_property(
            "allowables",
            [](AttributeView const& self) {
                Allowables allowables = self.GetDefinition().GetAllowables();
                if (self.GetObject() != nullptr)
                    self.GetObject()->Get().GetAllowables(self.Look().GetIdentifier(), allowables);
                return allowables;
            },
            &SetAllowables,
            "A copy of what the value may be. Set, they hold for this object or Content alone.")
        .def_property(
            "data_operations", [](AttributeView const& self) { return self.Look().GetDataOperationList(); },
            [](AttributeView const& self, DataOperationList const& operations) {
                self.GetContent().SetDataOperationList(self.GetIndex(), operations);
            },
            "The menu of operations on the attribute's data.")
        .def_property(
            "display_status",
            [](AttributeView const& self) {
                Attribute const view = self.Look();
                ObjectHandle const* const object = self.GetObject();
                return static_cast<int>(object != nullptr
                                            ? object->Get().GetDisplayStatus(view.GetIdentifier())
                                            : view.GetDisplayStatus());
            },
            [](AttributeView const& self, int status) {
                Attribute view = self.Look();
                auto const code = static_cast<DisplayStatus>(status);
                ObjectHandle const* const object = self.GetObject();
                Check(object != nullptr ? object->Get().SetDisplayStatus(view.GetIdentifier(), code)
                                        : view.SetDisplayStatus(code),
                      "the attribute can only be read");
            },
            "How the attribute is to be shown: 0 off, 1 on, 2 as its definition says.");
}

qzString WriteText(AttributeView const& self, std::optional<qzString> const& format) {
    qzString text;
    ObjectHandle const* const object = self.GetObject();
    Attribute const view = self.Look();
    Check(object != nullptr ? object->Get().GetValueAsString(view.GetIdentifier(), text, format.value_or(""))
                            : view.GetValueAsString(text, format ? format->c_str() : nullptr),
          "the value has no text of that form");
    return text;
}

void ReadText(AttributeView const& self, qzString const& text, std::optional<qzString> const& format) {
    ObjectHandle const* const object = self.GetObject();
    Attribute view = self.Look();
    Check(object != nullptr
              ? object->Get().SetValueFromString(view.GetIdentifier(), text, format.value_or(""))
              : view.SetValueFromString(text, format ? format->c_str() : nullptr));
}

void Reset(AttributeView const& self) {
    Attribute view = self.Look();
    if (self.GetObject() == nullptr) {
        Check(view.Reset(), "the attribute can only be read");
        return;
    }
    ValuePtr const* const value = view.GetDefaultValue();
    Check(value != nullptr, "the attribute has no value");
    self.SetValue(Value(value->Clone()));
}

/// Why a value would be refused.
qzString Test(AttributeView const& self, py::object const& data) {
    try {
        Value const value = TakeValue(TypeOf(self), data); // may run code that ends what the view looks at
        return self.Look().TestValue(value).message;
    } catch (Refused const& refused) {
        return refused.what();
    }
}

void BindData(Class& attribute) {
    attribute
        .def_property(
            "value", [](AttributeView const& self) { return GiveData(self.GetValue().GetValuePtr()); },
            [](AttributeView const& self, py::object const& data) {
                self.SetValue(TakeValue(TypeOf(self), data));
            },
            "The data of the attribute; its default when it was never set. It takes a Value, too.")
        .def_property_readonly(
            "default", [](AttributeView const& self) { return GiveData(self.Look().GetDefaultValue()); },
            "None where there is no value.")
        .def_property_readonly("is_set", [](AttributeView const& self) { return self.Refresh().IsSet(); })
        .def_property_readonly(
            "is_at_default", [](AttributeView const& self) { return self.Refresh().IsAtDefault(); },
            "Not set, or set to what equals the default.")
        .def("text", &WriteText, py::arg("format") = py::none(),
             "The value as text, in the type's own form or a given one.")
        .def("set_text", &ReadText, py::arg("text"), py::arg("format") = py::none(),
             "Reads the value from text.")
        .def("test", &Test, py::arg("data"),
             "Why a value would be refused; an empty text for one that would not.")
        .def("reset", &Reset, "Back to the default.");
}

} // namespace

void BindAttributes(py::module_& module) {
    py::enum_<Content::AttributeType>(module, "AttributeKind", "What an attribute is to those who show it.")
        .value("NONE", Content::ATTRIBUTE_NONE)
        .value("VALUE", Content::ATTRIBUTE_VALUE)
        .value("ENTITY", Content::ATTRIBUTE_ENTITY)
        .value("TABULAR", Content::ATTRIBUTE_TABULAR)
        .value("OPERATIONS", Content::ATTRIBUTE_OPERATIONS);
    Class attribute(
        module, "Attribute",
        "One attribute of an Object, of a Content, or of Members, which show its default and cannot "
        "be written to. A handle: what it shows is looked up at every use.");
    attribute
        .def(py::init([](py::object const& source, Identifier const& identifier) {
                 return FindAttribute(ToSource(source), identifier);
             }),
             py::arg("source"), py::arg("identifier"), "Raises KeyError when there is no such attribute.")
        .def(
            "__eq__", [](AttributeView const& a, AttributeView const& b) { return a == b; },
            py::is_operator())
        .def("__repr__", [](AttributeView const& self) {
            return py::str("<Attribute {!r} of type {}>").format(self.Look().GetName(), TypeOf(self));
        });
    BindDescription(attribute);
    BindDefinitions(attribute);
    BindData(attribute);
    BindTabularAttribute(module);
    BindAttributeGroups(module);
}

} // namespace qzPython
