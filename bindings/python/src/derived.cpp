#include "derived.h"

#include "conversions.h"

namespace qzPython {

namespace {

/// Calls a method that refuses by raising Refused, which is an answer; other exceptions are reported.
template <class Work>
qzReturnStatus RunOrRefuse(char const* failure, Work&& work) {
    qzReturnStatus status{-1, failure};
    RunOrReport([&] {
        try {
            work();
            status = qzReturnStatus();
        } catch (py::error_already_set const& error) {
            if (!error.matches(py::module_::import("qzdescriptor").attr("Refused")))
                throw;
            status.message = py::str(error.value());
        } catch (Refused const& refused) {
            status.message = refused.what();
        }
    });
    return status;
}

} // namespace

// --- sessions --------------------------------------------------------------------------------------------

DerivedSession::DerivedSession(qzString const& name, MetaclassMgr& registry, py::object self)
    : ISession(name, &registry), m_self(std::move(self)), m_token(SessionToken::Of(*this)) {}

DerivedSession::~DerivedSession() { P_AnnounceEnd(); }

qzReturnStatus DerivedSession::Delete(Entity const& entity) {
    return RunOrRefuse("The entity could not be deleted", [&] {
        std::shared_ptr<SessionToken> const token = m_token;
        GetSelf().attr("delete_entity")(entity);
        if (token->Find() != nullptr) // it may have ended the session
            m_handedOut.erase(entity);
    });
}

bool DerivedSession::Find(EntityFullType const& type, qzString const& name, Entity& entity) const {
    bool found = false;
    RunOrReport([&] {
        py::object const given = GetSelf().attr("find_entity")(type, GiveText(name));
        found = !given.is_none();
        if (found)
            entity = ToEntity(given);
    });
    return found;
}

void DerivedSession::GetOwnedEntities(EntityListBag& owned, Entity const& owner,
                                      Identifier const& ownerAttribute) const {
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
    Metaobject const* object = nullptr;
    RunOrReport([&] {
        std::shared_ptr<SessionToken> const token = m_token;
        py::object const given = GetSelf().attr("get_object")(entity);
        if (token->Find() == nullptr)
            return; // the session ended meanwhile
        if (given.is_none()) {
            m_handedOut.erase(entity);
            return;
        }
        object = given.cast<CustomObjectHandle const&>().Find();
        m_handedOut.insert_or_assign(entity, Kept(given));
    });
    return object;
}

qzReturnStatus DerivedSession::P_CreateEntity(EntityFullType const& type, Entity& created,
                                              Entity const& owner, Identifier const& ownerAttribute) const {
    return RunOrRefuse("The entity could not be created", [&] {
        py::object const wantedOwner =
            owner.GetEntityFullType().IsValid() ? py::cast(owner) : py::object(py::none());
        py::object const attribute =
            ownerAttribute.IsValid() ? py::cast(ownerAttribute) : py::object(py::none());
        created = ToEntity(GetSelf().attr("create_entity")(type, wantedOwner, attribute));
    });
}

void DerivedSession::P_CollectAll(EntityList& out, EntityFullType const& type,
                                  std::string const& query) const {
    RunOrReport([&] {
        py::object const given = GetSelf().attr("list_entities")(type, GiveText(query));
        if (py::isinstance<EntityList>(given)) {
            out = given.cast<EntityList const&>();
            return;
        }
        EntityList list;
        list.SetEntityFullType(type);
        for (py::handle const item : given) {
            unsigned int const id =
                py::isinstance<py::int_>(item) ? item.cast<unsigned int>() : ToEntity(item).GetId();
            list.SetId(list.GetIdListCount(), id, 0);
        }
        out = std::move(list);
    });
}

// --- objects ---------------------------------------------------------------------------------------------

DerivedObject::DerivedObject(SessionHandle session, Entity entity, py::handle self)
    : m_session(std::move(session)), m_entity(std::move(entity)), m_self(self) {
    if (MetaclassMgr const* const registry = m_session.Get().GetMetaclassMgr())
        m_members = registry->GetMembers(registry->GetMetaclassHandle(m_entity.GetEntityFullType()), 0);
    if (m_members == nullptr)
        throw Refused("there is no metaclass of the entity's type");
    m_content.reset(Content::Create(m_members));
}

bool DerivedObject::GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const {
    std::vector<Identifier> found;
    bool const some = IsValid() && m_members->GetVariableIdentifiers(found) > 0;
    if (some)
        identifiers = found;
    return some;
}

bool DerivedObject::GetActionIdentifiers(qzStlVector<Identifier>& identifiers) const {
    if (!IsValid() || m_members->GetActionCount() == 0)
        return false;
    identifiers.clear();
    for (unsigned int i = 0; i < m_members->GetActionCount(); ++i)
        identifiers.push_back(m_members->GetActionIdentifier(i));
    return true;
}

ActionDefinition const* DerivedObject::P_FindAction(Identifier const& action) const {
    return IsValid() ? m_members->GetActionDefinition(m_members->FindActionIndexFromIdentifier(action))
                     : nullptr;
}

bool DerivedObject::IsActionEnabled(Identifier const& action) const {
    ActionDefinition const* const definition = P_FindAction(action);
    if (definition == nullptr || !definition->GetEnabled())
        return false;
    return !definition->GetEnabledTest() || definition->GetEnabledTest()(this).status == 0;
}

bool DerivedObject::IsActionVisible(Identifier const& action) const {
    ActionDefinition const* const definition = P_FindAction(action);
    return definition != nullptr && definition->GetVisible();
}

bool DerivedObject::P_GetActionData(Identifier const& action, ActionDefinition& definition) const {
    ActionDefinition const* const found = P_FindAction(action);
    if (found != nullptr)
        definition = *found;
    return found != nullptr;
}

unsigned int DerivedObject::P_FindIndex(Identifier const& attribute) const {
    return IsValid() ? m_members->FindVariableIndexFromIdentifier(attribute, 0, true) : Members::s_none;
}

Definition const* DerivedObject::GetDefinition(Identifier const& attribute) const {
    unsigned int const index = P_FindIndex(attribute);
    return index != Members::s_none ? m_members->GetVariableDefinition(index) : nullptr;
}

bool DerivedObject::GetAllowables(Identifier const& attribute, Allowables& allowables) const {
    Definition const* const definition = GetDefinition(attribute);
    if (definition != nullptr)
        allowables = definition->GetAllowables();
    return definition != nullptr;
}

// A value that is what was read before stays where it is, and views of it stay good.
bool DerivedObject::P_Read(unsigned int index, ValuePtr const*& value) const {
    Definition const* const definition = IsValid() ? m_members->GetVariableDefinition(index) : nullptr;
    if (definition == nullptr)
        return false;
    bool found = false;
    RunOrReport([&] {
        py::object const self = GetSelf(); // which may let go of this object
        py::object const data = self.attr("read_value")(m_members->GetVariableIdentifier(index));
        Value read; // empty: the default
        if (!data.is_none())
            read = TakeData(TypeSpec::Of(*definition), data);
        Value held;
        bool const isSame =
            data.is_none() ? !m_content->IsSet(index) : m_content->GetValue(index, held) && held == read;
        if (!isSame)
            m_content->SetValueUnchecked(index, std::move(read));
        found = m_content->GetValue(index, value);
    });
    return found;
}

bool DerivedObject::GetValue(Identifier const& attribute, ValuePtr const*& value) const {
    return P_Read(P_FindIndex(attribute), value);
}
bool DerivedObject::GetValue(unsigned int attributeHandle, ValuePtr const*& value) const {
    return attributeHandle != 0 && P_Read(attributeHandle - 1, value);
}

qzReturnStatus DerivedObject::SetValue(Identifier const& attribute, Value const& value) const {
    unsigned int const index = P_FindIndex(attribute);
    if (index == Members::s_none)
        return {-1, "The object has no such attribute"};
    qzReturnStatus const tested = m_content->TestValue(index, value);
    if (tested.status != 0)
        return tested;
    return RunOrRefuse("The value could not be written", [&] {
        py::object const self = GetSelf();
        self.attr("write_value")(m_members->GetVariableIdentifier(index), GiveData(value.GetValuePtr()));
    });
}

bool DerivedObject::GetValueAsString(Identifier const& attribute, qzString& text,
                                     qzString const& format) const {
    ValuePtr const* value = nullptr;
    qzString written;
    bool const done = GetValue(attribute, value) &&
                      value->GetValueAsString(written, format.empty() ? nullptr : format.c_str(),
                                              ValuePtr::s_wholeValue, ValuePtr::s_wholeValue);
    if (done)
        text = written;
    return done;
}

qzReturnStatus DerivedObject::SetValueFromString(Identifier const& attribute, qzString const& text,
                                                 qzString const& format) const {
    ValuePtr const* current = nullptr;
    if (!GetValue(attribute, current))
        return {-1, "The object has no such attribute"};
    Value value(current->Clone());
    if (!value.SetValueFromString(text, format.empty() ? nullptr : format.c_str()))
        return {-1, "'" + text + "' does not read as a value of this attribute"};
    return SetValue(attribute, value);
}

DisplayStatus DerivedObject::GetDisplayStatus(Identifier const& attribute) const {
    unsigned int const index = P_FindIndex(attribute);
    return index != Members::s_none ? m_content->GetDisplayStatus(index) : DS_DEFAULT;
}
bool DerivedObject::SetDisplayStatus(Identifier const& attribute, DisplayStatus status) const {
    unsigned int const index = P_FindIndex(attribute);
    return index != Members::s_none && m_content->SetDisplayStatus(index, status);
}

bool DerivedObject::GetOwner(Entity& owner, Identifier& ownerAttribute) const {
    ISession const* const session = GetSession();
    return session != nullptr && session->GetOwner(m_entity, owner, ownerAttribute);
}

qzString DerivedObject::GetName() const {
    qzString name;
    RunOrReport([&] {
        py::object const self = GetSelf();
        TakeText(self.attr("read_name")(), name);
    });
    return name;
}

bool DerivedObject::GetDataOperations(DataOperationList&) const { return false; }

// --- the module ------------------------------------------------------------------------------------------

namespace {

[[noreturn]] void ToBeWritten(char const* method) {
    PyErr_SetString(PyExc_NotImplementedError, (std::string("a derived class has to say ") + method).c_str());
    throw py::error_already_set();
}

/// The instance that is being made: what C++ calls is a method of it.
py::object SelfOf(py::detail::value_and_holder const& instance) {
    return py::reinterpret_borrow<py::object>(reinterpret_cast<PyObject*>(instance.inst));
}

void BeginSession(py::detail::value_and_holder& instance, std::string const& name, RegistryHandle& registry) {
    if (name.empty())
        throw Refused("a session needs a name");
    auto session = std::make_unique<DerivedSession>(name, registry.Get(), SelfOf(instance));
    if (registry.Get().GetSession(name) != session.get())
        throw Refused("there is a session of that name");
    instance.value_ptr() = new CustomSessionHandle(*session.release()); // the registry's from now on
}

void BeginObject(py::detail::value_and_holder& instance, SessionHandle const& session, Entity const& entity) {
    instance.value_ptr() =
        new CustomObjectHandle(std::make_unique<DerivedObject>(session, entity, SelfOf(instance)));
}

void BindSessionHooks(py::class_<CustomSessionHandle, SessionHandle>& session) {
    session
        .def(
            "create_entity",
            [](py::object const&, py::args const&) {
                ToBeWritten("create_entity(type, owner, owner_attribute)");
            },
            "To be overridden: (type, owner, owner_attribute) -> the new Entity. Raise Refused to refuse.")
        .def(
            "delete_entity", [](py::object const&, py::args const&) { ToBeWritten("delete_entity(entity)"); },
            "To be overridden: (entity) -> None. Raise Refused to refuse.")
        .def(
            "get_object", [](py::object const&, py::args const&) { ToBeWritten("get_object(entity)"); },
            "To be overridden: (entity) -> a CustomObject, or None when there is none.")
        .def(
            "list_entities",
            [](py::object const&, py::args const&) { ToBeWritten("list_entities(type, query)"); },
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
            "May be overridden: (entity) -> (owner, owner attribute), or None.");
}

} // namespace

void BindDerived(py::module_& module) {
    py::class_<CustomSessionHandle, SessionHandle> session(
        module, "CustomSession",
        "A session whose entities are kept in Python. Derive from it and override the methods below; what "
        "they "
        "raise, other than Refused, is reported and counts as a failure. The registry keeps the session, and "
        "ends it.");
    session.def("__init__", &BeginSession, py::detail::is_new_style_constructor(), py::arg("name"),
                py::arg("registry"), "Begins a session and enters it into the registry.");
    BindSessionHooks(session);

    py::class_<CustomObjectHandle, ObjectHandle>(
        module, "CustomObject",
        "An object whose values are kept in Python. Derive from it and override the methods below. Its "
        "attributes "
        "are those of its metaclass; values are tested before they come to write_value.")
        .def("__init__", &BeginObject, py::detail::is_new_style_constructor(), py::arg("session"),
             py::arg("entity"))
        .def(
            "read_value", [](py::object const&, py::args const&) { ToBeWritten("read_value(attribute)"); },
            "To be overridden: (attribute) -> the value, or None for the default.")
        .def(
            "write_value",
            [](py::object const&, py::args const&) { ToBeWritten("write_value(attribute, value)"); },
            "To be overridden: (attribute, value) -> None. Raise Refused to refuse.")
        .def(
            "read_name", [](py::object const&) { return ""; }, "May be overridden: () -> the object's name.");
}

} // namespace qzPython
