#include "derived_registry.h"
#include "derived_session.h"
#include "overrides.h"

#include <numeric>

namespace qzPython {

namespace {

using Handles = std::vector<unsigned int>;

qzStlVector<unsigned int> ToHandles(Handles const& handles) { return {handles.begin(), handles.end()}; }

unsigned int Made(unsigned int handle, char const* refusal) {
    if (handle == 0)
        throw Refused(refusal);
    return handle;
}

using Class = py::class_<RegistryHandle>;

void BindMetaclasses(Class& registry) {
    registry
        .def(
            "insert",
            [](RegistryHandle& self, std::string const& name, std::string const& parent,
               Version const& version, MetaclassMgr::ConfigUsage usage, std::string const& parentConfig) {
                return Made(self.Get().Insert(name, version, parent, usage, parentConfig),
                            "there is a metaclass of that name, or the name is empty");
            },
            py::arg("name"), py::arg("parent") = "", py::arg("version") = Version(),
            py::arg("config_usage") = MetaclassMgr::CONFIG_USAGE_NONE, py::arg("parent_config") = "",
            "Registers a metaclass, which inherits the members of its parent, and gives its handle.")
        .def(
            "find",
            [](RegistryHandle const& self, std::string const& name) { return self.Get().FindHandle(name); },
            py::arg("name"), "The handle of a metaclass; 0 when there is none.")
        .def(
            "name",
            [](RegistryHandle const& self, py::object const& metaclass) {
                qzString name, parent;
                if (!self.Get().GetNameAndOfParent(ToMetaclass(self.Get(), metaclass), name, parent))
                    throw Missing("no such metaclass");
                return name;
            },
            py::arg("metaclass"))
        .def(
            "parent",
            [](RegistryHandle const& self, py::object const& metaclass) {
                qzString name, parent;
                if (!self.Get().GetNameAndOfParent(ToMetaclass(self.Get(), metaclass), name, parent))
                    throw Missing("no such metaclass");
                return parent;
            },
            py::arg("metaclass"), "The name of the parent; empty for a root.")
        .def(
            "version",
            [](RegistryHandle const& self, py::object const& metaclass) {
                Version version;
                if (!self.Get().GetVersion(ToMetaclass(self.Get(), metaclass), version))
                    throw Missing("no such metaclass");
                return version;
            },
            py::arg("metaclass"))
        .def(
            "children",
            [](RegistryHandle const& self, py::object const& metaclass, bool recursive, bool includeSelf) {
                qzStlVector<unsigned int> children;
                self.Get().FindChildrenHandles(ToMetaclass(self.Get(), metaclass), children, recursive,
                                               includeSelf);
                return children;
            },
            py::arg("metaclass"), py::arg("recursive") = false, py::arg("include_self") = false)
        .def("__len__", [](RegistryHandle const& self) { return self.Get().GetHandlesCount(); })
        .def("__contains__", [](RegistryHandle const& self, std::string const& name) {
            return self.Get().FindHandle(name) != 0;
        });
}

void BindConfigurations(Class& registry) {
    registry
        .def(
            "insert_config",
            [](RegistryHandle& self, py::object const& metaclass, std::string const& name,
               std::string const& parent, unsigned int number) {
                return Made(self.Get().InsertConfig(ToMetaclass(self.Get(), metaclass), name, parent, number),
                            "the metaclass has no configurations, or the name or number is taken");
            },
            py::arg("metaclass"), py::arg("name"), py::arg("parent") = "", py::arg("number") = 0,
            "Adds a configuration; number 0 asks for the smallest that is free.")
        .def(
            "find_config",
            [](RegistryHandle const& self, py::object const& metaclass, py::object const& key) {
                unsigned int const handle = ToMetaclass(self.Get(), metaclass);
                return py::isinstance<py::str>(key)
                           ? self.Get().FindConfigHandle(handle, key.cast<qzString>())
                           : self.Get().FindConfigHandle(handle, key.cast<unsigned int>());
            },
            py::arg("metaclass"), py::arg("key"), "The handle of a configuration by its name or its number.")
        .def(
            "insert_attributes_into_config",
            [](RegistryHandle& self, py::object const& metaclass, unsigned int config,
               Handles const& attributes) {
                int const added = self.Get().InsertAttributesIntoConfig(ToMetaclass(self.Get(), metaclass),
                                                                        config, ToHandles(attributes));
                Check(added >= 0, "no such configuration or attribute");
                return added;
            },
            py::arg("metaclass"), py::arg("config"), py::arg("attributes"))
        .def(
            "insert_actions_into_config",
            [](RegistryHandle& self, py::object const& metaclass, unsigned int config,
               Handles const& actions) {
                int const added = self.Get().InsertActionsIntoConfig(ToMetaclass(self.Get(), metaclass),
                                                                     config, ToHandles(actions));
                Check(added >= 0, "no such configuration or action");
                return added;
            },
            py::arg("metaclass"), py::arg("config"), py::arg("actions"));
}

void CheckConfig(bool is) {
    if (!is)
        throw Missing("no such configuration");
}

void BindConfigurationQuestions(Class& registry) {
    registry
        .def(
            "config_usage",
            [](RegistryHandle const& self, py::object const& metaclass) {
                return self.Get().GetConfigUsage(ToMetaclass(self.Get(), metaclass));
            },
            py::arg("metaclass"))
        .def(
            "configs",
            [](RegistryHandle const& self, py::object const& metaclass) {
                unsigned int count = 0;
                self.Get().GetConfigHandlesCount(ToMetaclass(self.Get(), metaclass), count);
                Handles handles(count);
                std::iota(handles.begin(), handles.end(), 1u);
                return handles;
            },
            py::arg("metaclass"), "The handles of the configurations.")
        .def(
            "config_name",
            [](RegistryHandle const& self, py::object const& metaclass, unsigned int config) {
                qzString name, parent;
                CheckConfig(self.Get().GetConfigNameAndOfParent(ToMetaclass(self.Get(), metaclass), config,
                                                                name, parent));
                return name;
            },
            py::arg("metaclass"), py::arg("config"))
        .def(
            "config_parent",
            [](RegistryHandle const& self, py::object const& metaclass, unsigned int config) {
                qzString name, parent;
                CheckConfig(self.Get().GetConfigNameAndOfParent(ToMetaclass(self.Get(), metaclass), config,
                                                                name, parent));
                return parent;
            },
            py::arg("metaclass"), py::arg("config"), "The name of the parent; empty without one.")
        .def(
            "config_number",
            [](RegistryHandle const& self, py::object const& metaclass, unsigned int config) {
                unsigned int number = 0;
                CheckConfig(self.Get().GetConfigNumber(ToMetaclass(self.Get(), metaclass), config, number));
                return number;
            },
            py::arg("metaclass"), py::arg("config"));
}

void BindMembers(Class& registry) {
    registry
        .def(
            "insert_attribute",
            [](RegistryHandle& self, py::object const& metaclass, Identifier const& id,
               Definition const& definition, std::optional<Identifier> const& secondary,
               Handles const& configs) {
                return Made(self.Get().InsertAttribute(ToMetaclass(self.Get(), metaclass), id, definition,
                                                       secondary.value_or(Identifier()), ToHandles(configs)),
                            "the metaclass has an attribute of that identifier, or does not exist");
            },
            py::arg("metaclass"), py::arg("id"), py::arg("definition"), py::arg("secondary") = py::none(),
            py::arg("configs") = Handles(), "Inserts an attribute and gives its handle.")
        .def(
            "insert_action",
            [](RegistryHandle& self, py::object const& metaclass, Identifier const& id,
               ActionDefinition const& definition, Handles const& configs) {
                return Made(self.Get().InsertAction(ToMetaclass(self.Get(), metaclass), id, definition,
                                                    ToHandles(configs)),
                            "the metaclass has an action of that identifier, or does not exist");
            },
            py::arg("metaclass"), py::arg("id"), py::arg("definition"), py::arg("configs") = Handles())
        .def(
            "set_tabular_definition",
            [](RegistryHandle& self, py::object const& metaclass, py::object const& attribute,
               TabularDefinition const& definition, unsigned int config) {
                unsigned int const handle = ToMetaclass(self.Get(), metaclass);
                Check(self.Get().SetTabularDefinition(
                          handle, ToAttribute(self.Get(), handle, attribute, config), config,
                          std::make_shared<TabularDefinition const>(definition)),
                      "there is no such attribute");
            },
            py::arg("metaclass"), py::arg("attribute"), py::arg("definition"), py::arg("config") = 0,
            "Says what the columns of a table are.");
}

/// The identifiers of handles.
template <class Identify>
qzStlVector<Identifier> Identifiers(qzStlVector<unsigned int> const& handles, Identify&& identify) {
    qzStlVector<Identifier> identifiers;
    for (unsigned int const handle : handles)
        identifiers.push_back(identify(handle));
    return identifiers;
}

void BindMemberQuestions(Class& registry) {
    registry
        .def(
            "find_attribute",
            [](RegistryHandle const& self, py::object const& metaclass, Identifier const& id,
               unsigned int config) {
                return self.Get().FindAttributeHandle(ToMetaclass(self.Get(), metaclass), id, config, true);
            },
            py::arg("metaclass"), py::arg("id"), py::arg("config") = 0, "0 when there is none.")
        .def(
            "find_action",
            [](RegistryHandle const& self, py::object const& metaclass, std::string const& name,
               unsigned int config) {
                return self.Get().FindActionHandle(ToMetaclass(self.Get(), metaclass), name, config);
            },
            py::arg("metaclass"), py::arg("name"), py::arg("config") = 0, "0 when there is none.")
        .def(
            "attributes",
            [](RegistryHandle const& self, py::object const& metaclass, unsigned int config) {
                unsigned int const handle = ToMetaclass(self.Get(), metaclass);
                qzStlVector<unsigned int> attributes;
                self.Get().GetAttributeHandles(handle, attributes, config);
                return Identifiers(attributes, [&](unsigned int attribute) {
                    return self.Get().GetIdentifier(handle, attribute, config, false);
                });
            },
            py::arg("metaclass"), py::arg("config") = 0, "The identifiers of the attributes, in order.")
        .def(
            "owner_attributes",
            [](RegistryHandle const& self, py::object const& metaclass, unsigned int config) {
                unsigned int const handle = ToMetaclass(self.Get(), metaclass);
                qzStlVector<unsigned int> attributes;
                self.Get().GetOwnerAttributeHandles(handle, attributes, config);
                return Identifiers(attributes, [&](unsigned int attribute) {
                    return self.Get().GetIdentifier(handle, attribute, config, false);
                });
            },
            py::arg("metaclass"), py::arg("config") = 0,
            "The identifiers of the attributes through which its objects own others.")
        .def(
            "actions",
            [](RegistryHandle const& self, py::object const& metaclass, unsigned int config) {
                unsigned int const handle = ToMetaclass(self.Get(), metaclass);
                qzStlVector<unsigned int> actions;
                self.Get().GetActionHandles(handle, actions, config);
                return Identifiers(actions, [&](unsigned int action) {
                    Identifier id;
                    self.Get().GetActionDefinition(handle, action, id, config);
                    return id;
                });
            },
            py::arg("metaclass"), py::arg("config") = 0, "The identifiers of the actions, in order.")
        .def(
            "identifier",
            [](RegistryHandle const& self, py::object const& metaclass, unsigned int attribute,
               unsigned int config, bool secondary) {
                return self.Get().GetIdentifier(ToMetaclass(self.Get(), metaclass), attribute, config,
                                                secondary);
            },
            py::arg("metaclass"), py::arg("attribute"), py::arg("config") = 0, py::arg("secondary") = false,
            "The identifier of an attribute's handle; an empty one when there is no such attribute.")
        .def(
            "definition",
            [](RegistryHandle const& self, py::object const& metaclass, py::object const& attribute,
               unsigned int config) {
                unsigned int const handle = ToMetaclass(self.Get(), metaclass);
                Definition const* const definition = self.Get().GetDefinition(
                    handle, ToAttribute(self.Get(), handle, attribute, config), config);
                return definition != nullptr ? std::optional(*definition) : std::nullopt;
            },
            py::arg("metaclass"), py::arg("attribute"), py::arg("config") = 0,
            "A copy of the definition; None when there is no such attribute.")
        .def(
            "action_definition",
            [](RegistryHandle const& self, py::object const& metaclass, std::string const& name,
               unsigned int config) {
                unsigned int const handle = ToMetaclass(self.Get(), metaclass);
                Identifier id;
                ActionDefinition const* const definition = self.Get().GetActionDefinition(
                    handle, self.Get().FindActionHandle(handle, name, config), id, config);
                return definition != nullptr ? std::optional(*definition) : std::nullopt;
            },
            py::arg("metaclass"), py::arg("name"), py::arg("config") = 0);
}

void BindMenus(Class& registry) {
    registry.def(
        "set_data_operations",
        [](RegistryHandle& self, py::object const& metaclass, DataOperationList const& operations) {
            auto* const store = dynamic_cast<store::Registry*>(&self.Get());
            Check(store != nullptr &&
                      store->SetDataOperations(ToMetaclass(self.Get(), metaclass), operations),
                  "there is no such metaclass, or the registry keeps no menus");
        },
        py::arg("metaclass"), py::arg("operations"), "The menu of operations on objects of a metaclass.");
}

void BindSessions(Class& registry) {
    registry
        .def(
            "session",
            [](RegistryHandle& self, std::string const& name) {
                return GiveSession(self.Get().GetSession(name));
            },
            py::arg("name") = "",
            "The session of a name, made when there is none; the current one without a name.")
        .def(
            "create_session",
            [](RegistryHandle& self, std::string const& name) {
                if (self.GetOwn() == nullptr)
                    return GiveSession(self.Get().GetSession(name));
                return GiveSession(self.GetOwn()->Registry::CreateSession(name));
            },
            py::arg("name"),
            "Makes a session of a name. May be overridden: what it gives is the session of that name.")
        .def(
            "set_current_session",
            [](RegistryHandle& self, std::string const& name) {
                Check(self.Get().SetCurrentSession(name), "there is no session of that name");
            },
            py::arg("name"))
        .def(
            "remove_session",
            [](RegistryHandle& self, SessionHandle const& session) {
                Check(session.Get().GetMetaclassMgr() == &self.Get(),
                      "the session is one of another registry");
                auto const* const derived = dynamic_cast<DerivedSession const*>(&session.Get());
                Check(derived == nullptr || !derived->IsRead(),
                      "the session is being read: end it afterwards");
                CheckUnasked(&self.Get());
                self.Get().RemoveSession(&session.Get());
            },
            py::arg("session"), "Ends a session.");
}

} // namespace

void BindRegistry(py::module_& module) {
    Class registry(
        module, "Registry", py::dynamic_attr(),
        "The metaclasses, and the sessions over the objects that they describe. It ends its sessions "
        "when it ends itself. Derive from it to make sessions of your own (create_session).");
    py::enum_<MetaclassMgr::ConfigUsage>(module, "ConfigUsage", "Where the members of configurations are.")
        .value("NONE", MetaclassMgr::CONFIG_USAGE_NONE)
        .value("SUBMEMBER", MetaclassMgr::CONFIG_USAGE_SUBMEMBER)
        .value("OWN_MEMBERS", MetaclassMgr::CONFIG_USAGE_OWN_MEMBERS);
    registry.def(
        "__init__",
        [](py::detail::value_and_holder& instance) {
            bool const isDerived = !py::type::of(SelfOf(instance)).is(py::type::of<RegistryHandle>());
            instance.value_ptr() = new RegistryHandle(isDerived);
        },
        py::detail::is_new_style_constructor());
    BindMetaclasses(registry);
    BindConfigurations(registry);
    BindConfigurationQuestions(registry);
    BindMemberQuestions(registry);
    BindMembers(registry);
    BindMenus(registry);
    BindSessions(registry);
}

} // namespace qzPython
