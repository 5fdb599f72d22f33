#include "derived_registry.h"
#include "derived_session.h"

#include "descriptor/QueryCheck.h"
#include "descriptor/ScriptSession.h"
#include "qzinterp/qzInterp.h"

namespace qzPython {

namespace {

using Class = py::class_<SessionHandle>;

/// The owner that is asked for; an empty entity for None.
Entity ToOwner(py::object const& owner) { return owner.is_none() ? Entity() : ToEntity(owner); }

void BindEntities(Class& session) {
    session
        .def(
            "create",
            [](SessionHandle& self, EntityFullType const& type, std::optional<unsigned int> id,
               py::object const& owner, std::optional<Identifier> const& attribute) {
                Entity created;
                Identifier const under = attribute.value_or(Identifier());
                SessionInUse const held(self);
                Check(id ? self.GetStore().CreateWithId(type, *id, created, ToOwner(owner), under)
                         : held->Create(type, created, ToOwner(owner), under));
                return GiveObject(held->Get(created), self);
            },
            py::arg("type"), py::arg("id") = py::none(), py::arg("owner") = py::none(),
            py::arg("attribute") = py::none(),
            "Creates an object, of the next free id unless one is given, and under an owner if one is.")
        .def(
            "delete",
            [](SessionHandle& self, py::object const& entity) {
                Entity const doomed = ToEntity(entity);
                SessionInUse const held(self);
                CheckUnasked(held->GetMetaclassMgr());
                Check(held->Delete(doomed));
            },
            py::arg("entity"), "Ends an object and all that it owns.")
        .def(
            "get",
            [](SessionHandle const& self, py::object const& entity) {
                return GiveObject(SessionInUse(self)->Get(ToEntity(entity)), self);
            },
            py::arg("entity"), "The object of an entity; None when there is none.")
        .def(
            "find",
            [](SessionHandle const& self, EntityFullType const& type, std::string const& name) -> py::object {
                SessionInUse const held(self);
                Entity entity;
                if (!held->Find(type, name, entity))
                    return py::none();
                return GiveObject(held->Get(entity), self);
            },
            py::arg("type"), py::arg("name"), "The first object of that name; None when there is none.")
        .def(
            "owner",
            [](SessionHandle const& self, py::object const& entity) -> py::object {
                Entity owner;
                Identifier attribute;
                if (!SessionInUse(self)->GetOwner(ToEntity(entity), owner, attribute))
                    return py::none();
                return py::make_tuple(owner, attribute);
            },
            py::arg("entity"), "The owner and the owner's attribute; None when nothing owns it.")
        .def(
            "owned",
            [](SessionHandle const& self, py::object const& owner, Identifier const& attribute) {
                EntityListBag owned;
                SessionInUse(self)->GetOwnedEntities(owned, ToEntity(owner), attribute);
                return owned;
            },
            py::arg("owner"), py::arg("attribute"), "What an entity owns under one of its attributes.")
        .def(
            "owned_list",
            [](SessionHandle const& self, py::object const& owner, EntityFullType const& type,
               Identifier const& attribute) {
                EntityList owned;
                SessionInUse(self)->GetOwnedList(ToEntity(owner), type, attribute, owned);
                return owned;
            },
            py::arg("owner"), py::arg("type"), py::arg("attribute"),
            "The entities of a type that an entity owns under one of its attributes.")
        .def(
            "referred",
            [](SessionHandle const& self, py::object const& entity) {
                EntityListBag referred;
                SessionInUse(self)->GetReferred(referred, ToEntity(entity));
                return referred;
            },
            py::arg("entity"), "What an entity refers to by its attributes.")
        .def(
            "all",
            [](SessionHandle const& self) {
                EntityListBag all;
                SessionInUse(self)->GetAllEntities(all);
                return all;
            },
            "All entities, by type.");
}

/// The entities that a query finds; a query that cannot be read is refused.
EntityList Collect(SessionHandle const& self, EntityFullType const& type, std::string const& query) {
    SessionInUse const held(self);
    Check(CheckQuery(*held, type, query));
    EntityList found;
    held->Collect(found, type, query);
    return found;
}

void BindQueries(Class& session) {
    session
        .def("entities", &Collect, py::arg("type"), py::arg("query") = "",
             "The entities of a type that a query finds, all of them without one. Raises Refused for a query "
             "that "
             "cannot be read.")
        .def(
            "objects",
            [](SessionHandle const& self, EntityFullType const& type, std::string const& query) {
                SessionInUse const held(self);
                EntityList const found = Collect(self, type, query);
                py::list objects;
                Entity entity;
                for (unsigned int i = 0; found.GetEntity(entity, i); ++i)
                    objects.append(GiveObject(held->Get(entity), self));
                return objects;
            },
            py::arg("type"), py::arg("query") = "", "The objects of the same entities, as a list.")
        .def(
            "collect_instances",
            [](SessionHandle const& self, EntityFullType const& type, std::string const& query) {
                SessionInUse const held(self);
                Check(CheckQuery(*held, type, query));
                EntityListBag found;
                self.GetStore().CollectInstances(found, type, query);
                return found;
            },
            py::arg("type"), py::arg("query") = "", "The same for a type and all that descend from it.")
        .def(
            "count",
            [](SessionHandle const& self, EntityFullType const& type) {
                if (auto const* const store = dynamic_cast<store::Session const*>(&self.Get()))
                    return store->GetCount(type);
                EntityList all;
                SessionInUse(self)->Collect(all, type, "");
                return all.GetIdListCount();
            },
            py::arg("type"), "How many entities of exactly this type there are.")
        .def(
            "check_query",
            [](SessionHandle const& self, EntityFullType const& type, std::string const& query) {
                return CheckQuery(*SessionInUse(self), type, query).message;
            },
            py::arg("type"), py::arg("query"), "Why a query cannot be read; an empty text for one that can.")
        .def(
            "explain",
            [](SessionHandle const& self, py::object const& entity, std::string const& query) {
                SessionInUse const held(self);
                Metaobject const* const object = held->Get(ToEntity(entity));
                if (object == nullptr)
                    throw Ended("the object is gone");
                return ExplainQuery(*held, *object, query);
            },
            py::arg("entity"), py::arg("query"), "Why an object is found by a query, or is not.");
}

void BindTypeQuestions(Class& session) {
    session
        .def(
            "is_a",
            [](SessionHandle const& self, py::object const& entity, EntityFullType const& type) {
                return SessionInUse(self)->IsA(ToEntity(entity), type);
            },
            py::arg("entity"), py::arg("type"))
        .def(
            "parent_type",
            [](SessionHandle const& self, EntityFullType const& type) {
                return SessionInUse(self)->GetParentType(type);
            },
            py::arg("type"), "An empty type when there is none.")
        .def(
            "data_names",
            [](SessionHandle const& self, EntityFullType const& type) {
                std::vector<Identifier> identifiers;
                SessionInUse(self)->GetDatanameIdentifiers(type, identifiers);
                return identifiers;
            },
            py::arg("type"), "The identifiers of a type's attributes.");
}

void BindProperties(Class& session) {
    session.def_property_readonly("name", [](SessionHandle const& self) { return self.Get().GetName(); })
        .def_property_readonly(
            "is_alive", [](SessionHandle const& self) { return self.Find() != nullptr; },
            "Whether the session still is. Nothing else can be asked of one that has ended.")
        .def_property_readonly(
            "registry",
            [](SessionHandle const& self) {
                return GiveRegistry(self.Get().GetMetaclassMgr(),
                                    [token = self.GetToken()] { return token->Find() != nullptr; });
            },
            "The registry, for as long as the session lives.")
        .def_property(
            "name_attribute", [](SessionHandle const& self) { return self.GetStore().GetNameAttribute(); },
            [](SessionHandle const& self, Identifier const& attribute) {
                self.GetStore().SetNameAttribute(attribute);
            },
            "Which attribute holds the names of objects.")
        .def("__repr__",
             [](SessionHandle const& self) {
                 ISession const* const held = self.Find();
                 return held != nullptr ? "<Session '" + held->GetName() + "'>" : "<Session, ended>";
             })
        .def(
            "__eq__", [](SessionHandle const& self, SessionHandle const& other) { return self == other; },
            py::is_operator())
        .def("__hash__",
             [](SessionHandle const& self) { return std::hash<SessionToken*>()(self.GetToken().get()); });
}

} // namespace

void BindSession(py::module_& module) {
    Class session(
        module, "Session",
        "A population of objects. A handle: the session belongs to its registry, and what is asked of "
        "one that has ended raises Ended.");
    BindProperties(session);
    BindEntities(session);
    BindQueries(session);
    BindTypeQuestions(session);
}

void BindScripts(py::module_& module) {
    module.def(
        "set_script_registry",
        [](RegistryHandle const* registry) {
            SetScriptRegistry(registry != nullptr ? &registry->Get() : nullptr);
        },
        py::arg("registry").none(true), "Names the registry whose sessions scripts reach; None for none.");
    module.def(
        "get_script_registry",
        [] {
            MetaclassMgr* const registry = GetScriptRegistry();
            return GiveRegistry(registry, [registry] { return GetScriptRegistry() == registry; });
        },
        "The registry that is named for scripts; None without one.");
    module.def(
        "run_script",
        [](qzString const& language, qzString const& script) {
            qzInterp* const interpreter = qzInterp::Get(language);
            Check(interpreter != nullptr, "there is no interpreter of this language");
            qzString output;
            if (!interpreter->Execute(script, output))
                throw Refused(output);
            return output;
        },
        py::arg("language"), py::arg("script"),
        "Runs a script in the interpreter of a language, such as 'tcl', and gives what it printed. Raises "
        "Refused with the reason when it fails.");
    module.def(
        "get_script_session", [] { return GiveSession(GetScriptSession()); },
        "The session of the object whose action is running, else the current session of the script registry; "
        "None "
        "without either.");
}

} // namespace qzPython
