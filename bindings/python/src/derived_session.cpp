#include "derived_session.h"

#include "asked.h"
#include "derived_object.h"
#include "derived_registry.h"
#include "overrides.h"

#include <algorithm>
#include <iterator>

namespace qzPython {

namespace {

/// None for no owner, and for no attribute.
py::object GiveOwner(Entity const& owner) {
    return owner.GetEntityFullType().IsValid() ? py::cast(owner) : py::object(py::none());
}
py::object GiveAttribute(Identifier const& attribute) {
    return attribute.IsValid() ? py::cast(attribute) : py::object(py::none());
}

/// Entities of one type as a list: an EntityList, or ids, entities and objects.
EntityList ToList(py::object const& given, EntityFullType const& type) {
    if (py::isinstance<EntityList>(given))
        return given.cast<EntityList const&>();
    EntityList list;
    list.SetEntityFullType(type);
    for (py::handle const item : given) {
        unsigned int const id =
            PyIndex_Check(item.ptr()) != 0 ? item.cast<unsigned int>() : ToEntity(item).GetId();
        list.SetId(list.GetIdListCount(), id, 0);
    }
    return list;
}

} // namespace

// --- those who read --------------------------------------------------------------------------------------

SessionReading::SessionReading(ISession const& session) {
    auto const* const derived = dynamic_cast<DerivedSession const*>(&session);
    m_readers = derived != nullptr ? derived->m_readers : std::make_shared<SessionReaders>();
    if (m_readers->count++ == 0)
        m_readers->registry = HoldRegistry(session.GetMetaclassMgr());
}

SessionReading::~SessionReading() {
    if (--m_readers->count > 0)
        return;
    // Taken out before they end, which may run scripts that read again.
    std::optional<Kept> const registry = std::exchange(m_readers->registry, std::nullopt);
    std::vector<Kept> const displaced = std::exchange(m_readers->displaced, {});
    Asked::EndWhatIsOver();
}

void SessionReading::TakeDisplaced(std::vector<Kept>& into) {
    if (m_readers->count > 1)
        return; // others read on
    std::ranges::move(std::exchange(m_readers->displaced, {}), std::back_inserter(into));
}

// --- what C++ asks -----------------------------------------------------------------------------------------

DerivedSession::DerivedSession(qzString const& name, MetaclassMgr& registry, py::object self)
    : ISession(name, &registry), m_self(std::move(self)), m_token(SessionToken::Of(*this)) {}

DerivedSession::~DerivedSession() { P_AnnounceEnd(); }

qzReturnStatus DerivedSession::Create(EntityFullType const& type, Entity& created, Entity const& owner,
                                      Identifier const& ownerAttribute) const {
    SessionReading const reading(*this);
    bool isOverridden = false;
    qzReturnStatus const status = RunOrRefuse("The entity could not be created", [&] {
        py::object const hook = FindOverride(GetSelf(), py::type::of<CustomSessionHandle>(), "make_entity");
        isOverridden = static_cast<bool>(hook);
        if (isOverridden)
            created = ToEntity(hook(type, GiveOwner(owner), GiveAttribute(ownerAttribute)));
    });
    return isOverridden ? status : ISession::Create(type, created, owner, ownerAttribute);
}

unsigned long long DerivedSession::Collect(EntityList& out, EntityFullType const& type,
                                           std::string const& query) const {
    SessionReading const reading(*this);
    EntityList found;
    bool isOverridden = false;
    RunOrReport([&] {
        py::object const hook = FindOverride(GetSelf(), py::type::of<CustomSessionHandle>(), "find_entities");
        isOverridden = static_cast<bool>(hook);
        if (isOverridden)
            found = ToList(hook(type, query), type);
    });
    if (!isOverridden)
        return ISession::Collect(out, type, query);
    out = std::move(found);
    return out.GetIdListCount();
}

qzReturnStatus DerivedSession::Delete(Entity const& entity) {
    SessionReading const reading(*this);
    return RunOrRefuse("The entity could not be deleted", [&] {
        std::shared_ptr<SessionToken> const token = m_token;
        GetSelf().attr("delete_entity")(entity);
        if (token->Find() != nullptr) // it may have ended the session
            P_HandOut(entity, std::nullopt);
    });
}

bool DerivedSession::Find(EntityFullType const& type, qzString const& name, Entity& entity) const {
    SessionReading const reading(*this);
    bool found = false;
    RunOrReport([&] {
        py::object const given = GetSelf().attr("find_entity")(type, name);
        found = !given.is_none();
        if (found)
            entity = ToEntity(given);
    });
    return found;
}

void DerivedSession::GetOwnedEntities(EntityListBag& owned, Entity const& owner,
                                      Identifier const& ownerAttribute) const {
    SessionReading const reading(*this);
    RunOrReport([&] {
        EntityListBag bag;
        for (py::handle const item : GetSelf().attr("list_owned")(owner, ownerAttribute)) {
            Entity const entity = ToEntity(item);
            EntityList list;
            bag.GetList(entity.GetEntityFullType(), list);
            list.SetEntity(entity, list.GetIdListCount());
            bag.SetList(list);
        }
        owned = std::move(bag);
    });
}

bool DerivedSession::GetOwner(Entity const& entity, Entity& owner, Identifier& ownerAttribute) const {
    SessionReading const reading(*this);
    bool found = false;
    RunOrReport([&] {
        py::object const given = GetSelf().attr("find_owner")(entity);
        if (given.is_none())
            return;
        auto const [object, attribute] = given.cast<std::pair<py::object, Identifier>>();
        owner = ToEntity(object);
        ownerAttribute = attribute;
        found = true;
    });
    return found;
}

Metaobject const* DerivedSession::GetMetaobject(Entity const& entity) const {
    std::shared_ptr<SessionToken> const token = m_token;
    Metaobject const* object = nullptr;
    {
        SessionReading const reading(*this);
        RunOrReport([&] {
            py::object const given = GetSelf().attr("get_object")(entity);
            if (token->Find() == nullptr)
                return; // the session ended meanwhile
            if (!given.is_none())
                object = given.cast<CustomObjectHandle const&>().Find();
            P_HandOut(entity, object != nullptr ? std::optional(Kept(given)) : std::nullopt);
        });
    }
    return token->Find() != nullptr ? object : nullptr; // the registry may have waited for the end
}

void DerivedSession::P_HandOut(Entity const& entity, std::optional<Kept> object) const {
    auto const held = m_handedOut.find(entity);
    if (held != m_handedOut.end() && object && held->second.Get().is(object->Get()))
        return;
    // Ends last of all where nobody reads it: its end may come back here, or end the session.
    auto displaced = m_handedOut.extract(entity);
    if (object)
        m_handedOut.emplace(entity, std::move(*object));
    if (!displaced.empty() && m_readers->count > 0)
        m_readers->displaced.push_back(std::move(displaced.mapped()));
}

qzReturnStatus DerivedSession::P_CreateEntity(EntityFullType const& type, Entity& created,
                                              Entity const& owner, Identifier const& ownerAttribute) const {
    return RunOrRefuse("The entity could not be created", [&] {
        created =
            ToEntity(GetSelf().attr("create_entity")(type, GiveOwner(owner), GiveAttribute(ownerAttribute)));
    });
}

void DerivedSession::P_CollectAll(EntityList& out, EntityFullType const& type,
                                  std::string const& query) const {
    RunOrReport([&] { out = ToList(GetSelf().attr("list_entities")(type, query), type); });
}

// --- the module ------------------------------------------------------------------------------------------

namespace {

void BeginSession(py::detail::value_and_holder& instance, std::string const& name, RegistryHandle& registry) {
    if (name.empty())
        throw Refused("a session needs a name");
    auto session = std::make_unique<DerivedSession>(name, registry.Get(), SelfOf(instance));
    if (registry.Get().GetSession(name) != session.get())
        throw Refused("there is a session of that name");
    instance.value_ptr() = new CustomSessionHandle(*session.release()); // the registry's from now on
}

void BindSessionHooks(py::class_<CustomSessionHandle, SessionHandle>& session) {
    session
        .def(
            "create_entity",
            [](py::object const&, py::args const&) {
                RaiseToBeWritten("create_entity(type, owner, owner_attribute)");
            },
            "To be overridden: (type, owner, owner_attribute) -> the new Entity. Raise Refused to refuse.")
        .def(
            "delete_entity",
            [](py::object const&, py::args const&) { RaiseToBeWritten("delete_entity(entity)"); },
            "To be overridden: (entity) -> None. Raise Refused to refuse.")
        .def(
            "get_object", [](py::object const&, py::args const&) { RaiseToBeWritten("get_object(entity)"); },
            "To be overridden: (entity) -> a CustomObject, or None when there is none.")
        .def(
            "list_entities",
            [](py::object const&, py::args const&) { RaiseToBeWritten("list_entities(type, query)"); },
            "To be overridden: (type, query) -> the ids of all entities of exactly this type. The query may "
            "be "
            "ignored: it is applied to what is listed.")
        .def(
            "find_entity", [](py::object const&, py::args const&) { return py::none(); },
            "May be overridden: (type, name) -> the Entity of that name, or None.")
        .def(
            "list_owned", [](py::object const&, py::args const&) { return py::list(); },
            "May be overridden: (owner, owner_attribute) -> the entities that it owns.")
        .def(
            "find_owner", [](py::object const&, py::args const&) { return py::none(); },
            "May be overridden: (entity) -> (owner, owner attribute), or None.")
        .def(
            "make_entity",
            [](CustomSessionHandle const& self, EntityFullType const& type, py::object const& owner,
               std::optional<Identifier> const& attribute) {
                Entity created;
                Check(SessionInUse(self)->ISession::Create(type, created,
                                                           owner.is_none() ? Entity() : ToEntity(owner),
                                                           attribute.value_or(Identifier())));
                return created;
            },
            py::arg("type"), py::arg("owner") = py::none(), py::arg("owner_attribute") = py::none(),
            "May be overridden, for other rules of ownership: -> the new Entity. By itself it tests the "
            "rules of the registry, completes the attribute and calls create_entity.")
        .def(
            "find_entities",
            [](CustomSessionHandle const& self, EntityFullType const& type, qzString const& query) {
                SessionInUse const held(self);
                EntityList found;
                held->ISession::Collect(found, type, query);
                return found;
            },
            py::arg("type"), py::arg("query"),
            "May be overridden, by those who can answer queries themselves: -> the ids of all entities of a "
            "type that a query finds. By itself it applies the query to what list_entities lists.");
}

} // namespace

void BindDerivedSession(py::module_& module) {
    py::class_<CustomSessionHandle, SessionHandle> session(
        module, "CustomSession",
        "A session whose entities are kept in Python. Derive from it and override the methods below; what "
        "they "
        "raise, other than Refused, is reported and counts as a failure. The registry keeps the session, and "
        "ends it.");
    session.def("__init__", &BeginSession, py::detail::is_new_style_constructor(), py::arg("name"),
                py::arg("registry"), "Begins a session and enters it into the registry.");
    BindSessionHooks(session);
}

} // namespace qzPython
