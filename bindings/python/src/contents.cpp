#include "contents.h"

#include "attributes.h"
#include "conversions.h"
#include "copies.h"
#include "derived_registry.h"

#include "descriptor/TabularDefinition.h"

namespace qzPython {

namespace {

unsigned int FindIndex(Members const& members, Identifier const& attribute) {
    unsigned int const index = members.FindVariableIndexFromIdentifier(attribute, 0, true);
    if (index == Members::s_none)
        throw Missing("no attribute " + ToText(py::cast(attribute)));
    return index;
}

std::vector<Identifier> ListIdentifiers(Members const& members, bool ownOnly, bool visibleOnly) {
    std::vector<Identifier> identifiers;
    members.GetVariableIdentifiers(identifiers, ownOnly, visibleOnly);
    return identifiers;
}

void BindMembers(py::module_& module) {
    py::class_<MembersRef> members(module, "Members",
                                   "The attributes of a metaclass, or of one of its configurations: "
                                   "members['T'] is an Attribute. Members are inserted by the registry.");
    members.def_property_readonly("name", [](MembersRef const& self) { return self.Get().GetName(); })
        .def_property_readonly(
            "parent_name",
            [](MembersRef const& self) {
                Members const* const parent = self.Get().GetParent();
                return parent != nullptr ? std::optional(parent->GetName()) : std::nullopt;
            },
            "None without a parent.")
        .def("__len__", [](MembersRef const& self) { return self.Get().GetVariableCount(); })
        .def("__iter__",
             [](MembersRef const& self) {
                 return py::iter(py::cast(ListIdentifiers(self.Get(), false, false)));
             })
        .def(
            "__getitem__",
            [](MembersRef const& self, Identifier const& attribute) {
                return FindAttribute(self, attribute);
            },
            py::arg("attribute"))
        .def(
            "__contains__",
            [](MembersRef const& self, Identifier const& attribute) {
                return self.Get().FindVariableIndexFromIdentifier(attribute, 0, true) != Members::s_none;
            },
            py::arg("attribute"))
        .def(
            "identifiers",
            [](MembersRef const& self, bool ownOnly, bool visibleOnly) {
                return ListIdentifiers(self.Get(), ownOnly, visibleOnly);
            },
            py::arg("own_only") = false, py::arg("visible_only") = false,
            "The identifiers of the attributes, without what is inherited or hidden.")
        .def(
            "is_inherited",
            [](MembersRef const& self, Identifier const& attribute) {
                return self.Get().IsVariableInherited(FindIndex(self.Get(), attribute));
            },
            py::arg("attribute"))
        .def(
            "config_names",
            [](MembersRef const& self, Identifier const& attribute) {
                qzStlVector<qzString> names;
                self.Get().GetConfigNames(FindIndex(self.Get(), attribute), names);
                return names;
            },
            py::arg("attribute"), "The sub-member sets that show an attribute.")
        .def_property_readonly("sub_member_names",
                               [](MembersRef const& self) {
                                   qzStlVector<qzString> names;
                                   self.Get().GetSubMemberNames(names);
                                   return names;
                               })
        .def(
            "tabular_definition",
            [](MembersRef const& self, Identifier const& attribute) -> std::optional<TabularDefinition> {
                auto const held = self.Get().GetTabularDefinition(FindIndex(self.Get(), attribute));
                return held ? std::optional(*held) : std::nullopt;
            },
            py::arg("attribute"), "None where nothing says what the columns are.")
        .def(
            "__eq__", [](MembersRef const& a, MembersRef const& b) { return a == b; }, py::is_operator())
        .def("__repr__", [](MembersRef const& self) {
            return py::str("<Members {!r} of {} attributes>")
                .format(self.Get().GetName(), self.Get().GetVariableCount());
        });
}

void BindValues(py::class_<ContentRef>& content) {
    content.def("__len__", [](ContentRef const& self) { return self.Get().GetCount(); })
        .def("__iter__",
             [](ContentRef const& self) {
                 return py::iter(py::cast(ListIdentifiers(self.GetMembers().Get(), false, false)));
             })
        .def(
            "__contains__",
            [](ContentRef const& self, Identifier const& attribute) {
                return Look(self).Find(attribute, true).IsValid();
            },
            py::arg("attribute"))
        .def(
            "__getitem__",
            [](ContentRef const& self, Identifier const& attribute) {
                return GiveData(FindAttribute(self, attribute).GetValue().GetValuePtr());
            },
            py::arg("attribute"), "The value of an attribute; its default when it was never set.")
        .def(
            "__setitem__",
            [](ContentRef const& self, Identifier const& attribute, py::object const& data) {
                AttributeView const view = FindAttribute(self, attribute);
                view.SetValue(TakeValue(TypeSpec::Of(view.GetDefinition()), data));
            },
            py::arg("attribute"), py::arg("data"),
            "Raises Refused, with the reason, for what is not allowed.")
        .def(
            "__delitem__",
            [](ContentRef const& self, Identifier const& attribute) {
                self.Get().Reset(FindAttribute(self, attribute).GetIndex());
            },
            py::arg("attribute"), "Back to the default.")
        .def(
            "set_unchecked",
            [](ContentRef const& self, Identifier const& attribute, py::object const& data) {
                AttributeView const view = FindAttribute(self, attribute);
                // Of a Value, too, the data: nothing tests its type afterwards.
                py::object const plain =
                    py::isinstance<Value>(data) ? GiveData(data.cast<Value const&>().GetValuePtr()) : data;
                Value value = TakeData(TypeSpec::Of(view.GetDefinition()), plain);
                self.Get().SetValueUnchecked(view.GetIndex(), std::move(value));
            },
            py::arg("attribute"), py::arg("data"),
            "Sets data of the attribute's type that need not be allowed, such as data that are read back.")
        .def(
            "clear", [](ContentRef const& self) { self.Get().ClearAll(); },
            "Every attribute back to its default.")
        .def(
            "append",
            [](ContentRef const& self, ContentRef const& other, Content::AppendRule rule) {
                Check(self.Get().Append(other.Get(), rule));
            },
            py::arg("other"), py::arg("rule") = Content::APPEND_KEEP,
            "Merges the values that are set in another one: all of them, or none where one is refused.");
}

} // namespace

void BindContents(py::module_& module) {
    BindMembers(module);
    py::class_<ContentRef> content(
        module, "Content",
        "Values of the attributes of one metaclass without an object: a draft to be tested, compared and "
        "merged. content['T'] reads and sets; Attribute(content, 'T') does the rest.");
    py::enum_<Content::AppendRule>(content, "AppendRule", "Who wins where both have an attribute set.")
        .value("KEEP", Content::APPEND_KEEP)
        .value("REPLACE", Content::APPEND_REPLACE)
        .value("EXTEND", Content::APPEND_EXTEND)
        .value("FAIL", Content::APPEND_FAIL);
    content.def(py::init<MembersRef>(), py::arg("members"), "Every attribute at its default.")
        .def_property_readonly("members", [](ContentRef const& self) { return self.GetMembers(); })
        .def_property_readonly("memory_usage",
                               [](ContentRef const& self) { return self.Get().GetMemoryUsage(); })
        .def("__copy__", &ContentRef::Clone)
        .def(
            "__deepcopy__", [](ContentRef const& self, py::handle) { return self.Clone(); }, py::arg("memo"))
        .def(
            "__eq__", [](ContentRef const& a, ContentRef const& b) { return a.Get() == b.Get(); },
            py::is_operator())
        .def("__repr__", [](ContentRef const& self) {
            return py::str("<Content of {!r}>").format(self.GetMembers().Get().GetName());
        });
    BindValues(content);

    auto registry = py::reinterpret_borrow<py::class_<RegistryHandle>>(module.attr("Registry"));
    registry.def(
        "members",
        [](py::object const& self, py::object const& metaclass, unsigned int config) {
            MetaclassMgr const& held = self.cast<RegistryHandle const&>().Get();
            Members const* const members = held.GetMembers(ToMetaclass(held, metaclass), config);
            if (members == nullptr)
                throw Missing("no such metaclass or configuration");
            return MembersRef(self, *members);
        },
        py::arg("metaclass"), py::arg("config") = 0, "The attributes of a metaclass or of a configuration.");

    auto object = py::reinterpret_borrow<py::class_<ObjectHandle>>(module.attr("Object"));
    object.def(
        "copy_content",
        [](py::object const& self) -> std::optional<ContentRef> {
            Content const* const held = self.cast<ObjectHandle const&>().Get().GetContent();
            if (held == nullptr)
                return std::nullopt;
            py::object const owner = self.attr("session").attr("registry");
            return ContentRef(MembersRef(owner, *held->GetMembers()), held->Clone());
        },
        "A copy of the object's values, as a Content; None for an object that keeps them elsewhere.");
}

} // namespace qzPython
