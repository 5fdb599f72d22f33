#include "derived.h"
#include "handles.h"

namespace qzPython {

// Unless a derived class overrides it, the method is the one of Registry below.
ISession* PythonRegistry::CreateSession(qzString const& name) {
    ISession* session = nullptr;
    RunOrReport([&] {
        py::object const self = py::cast(&m_handle, py::return_value_policy::reference);
        py::object const made = self.attr("create_session")(GiveText(name));
        if (made.is_none())
            return;
        ISession& given = made.cast<SessionHandle const&>().Get();
        if (given.GetMetaclassMgr() != this)
            throw std::runtime_error("create_session gave a session of another registry");
        session = &given;
    });
    return session;
}

namespace {

using Handles = std::vector<unsigned int>;

qzStlVector<unsigned int> ToHandles(Handles const& handles) { return {handles.begin(), handles.end()}; }

/// A metaclass by its handle or its name.
unsigned int ToMetaclass(MetaclassMgr const& registry, py::handle metaclass) {
    if (py::isinstance<py::str>(metaclass)) {
        unsigned int const handle = registry.FindHandle(metaclass.cast<std::string>());
        if (handle == 0)
            throw py::key_error("no metaclass " + metaclass.cast<std::string>());
        return handle;
    }
    return metaclass.cast<unsigned int>();
}

/// An attribute by its handle or its identifier.
unsigned int ToAttribute(MetaclassMgr const& registry, unsigned int metaclass, py::handle attribute,
                         unsigned int config) {
    if (py::isinstance<py::int_>(attribute))
        return attribute.cast<unsigned int>();
    return registry.FindAttributeHandle(metaclass, attribute.cast<Identifier>(), config, true);
}

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
                    throw py::key_error("no such metaclass");
                return name;
            },
            py::arg("metaclass"))
        .def(
            "parent",
            [](RegistryHandle const& self, py::object const& metaclass) {
                qzString name, parent;
                if (!self.Get().GetNameAndOfParent(ToMetaclass(self.Get(), metaclass), name, parent))
                    throw py::key_error("no such metaclass");
                return parent;
            },
            py::arg("metaclass"), "The name of the parent; empty for a root.")
        .def(
            "version",
            [](RegistryHandle const& self, py::object const& metaclass) {
                Version version;
                if (!self.Get().GetVersion(ToMetaclass(self.Get(), metaclass), version))
                    throw py::key_error("no such metaclass");
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
        .def(
            "check_parent",
            [](RegistryHandle const& self, py::object const& metaclass, py::object const& ancestor) {
                return self.Get().CheckParent(ToMetaclass(self.Get(), metaclass),
                                              ToMetaclass(self.Get(), ancestor));
            },
            py::arg("metaclass"), py::arg("ancestor"),
            "Whether a metaclass is another one or descends from it.")
        .def(
            "types",
            [](RegistryHandle const& self) {
                qzStlVector<EntityFullType> types;
                self.Get().GetRegisteredEntityFullTypes(types);
                return types;
            },
            "The entity type of every metaclass.")
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
            [](RegistryHandle const& self, py::object const& metaclass, std::string const& name) {
                return self.Get().FindConfigHandle(ToMetaclass(self.Get(), metaclass), name);
            },
            py::arg("metaclass"), py::arg("name"))
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
            "Says what the columns of a table are.")
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
                py::list identifiers;
                for (unsigned int const attribute : attributes)
                    identifiers.append(self.Get().GetIdentifier(handle, attribute, config, false));
                return identifiers;
            },
            py::arg("metaclass"), py::arg("config") = 0, "The identifiers of the attributes, in order.")
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

void BindOwnership(Class& registry) {
    registry
        .def(
            "set_ownership",
            [](RegistryHandle& self, py::object const& child, py::object const& owner,
               py::object const& attribute) {
                unsigned int const ownerHandle = ToMetaclass(self.Get(), owner);
                self.Get().SetOwnership(ToMetaclass(self.Get(), child), ownerHandle,
                                        Made(ToAttribute(self.Get(), ownerHandle, attribute, 0),
                                             "the owner has no such attribute"));
            },
            py::arg("child"), py::arg("owner"), py::arg("attribute"),
            "Objects of the child metaclass may be owned through that attribute of an owner.")
        .def(
            "ownership",
            [](RegistryHandle const& self, py::object const& child, py::object const& owner) {
                qzStlVector<unsigned int> attributes;
                self.Get().GetOwnership(ToMetaclass(self.Get(), child), ToMetaclass(self.Get(), owner),
                                        attributes);
                return attributes;
            },
            py::arg("child"), py::arg("owner"), "The handles of the owner's attributes under which.")
        .def(
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
                return GiveSession(self.GetOwn()->store::Registry::CreateSession(name));
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
    registry.def(py::init<>());
    BindMetaclasses(registry);
    BindConfigurations(registry);
    BindMembers(registry);
    BindOwnership(registry);
    BindSessions(registry);
}

} // namespace qzPython
