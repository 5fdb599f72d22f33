#include "derived_registry.h"

#include "asked.h"
#include "overrides.h"

namespace qzPython {

namespace {

using Owners = std::map<unsigned int, qzStlVector<unsigned int>>;

/// Takes an answer into its place.
template <class T>
auto Into(T& place) {
    return [&place](py::object const& given) { place = given.cast<T>(); };
}

/// The same for answers that may be None; `is` says whether it is another.
template <class T>
auto Into(T& place, bool& is) {
    return [&place, &is](py::object const& given) {
        is = !given.is_none();
        if (is)
            place = given.cast<T>();
    };
}

template <class T>
void Append(qzStlVector<T>& list, qzStlVector<T> const& items) {
    list.insert(list.end(), items.begin(), items.end());
}

} // namespace

// --- what C++ asks ---------------------------------------------------------------------------------------

template <class Take, class... Argument>
bool PythonRegistry::P_Ask(char const* name, Take&& take, Argument const&... arguments) const {
    if (!m_isDerived)
        return false;
    ++m_asks; // first, as what is over ends now, and its scripts end nothing here
    Asked const asked(HoldRegistry(this));
    bool const isAnswered =
        AskOverride([&] { return py::cast(&m_handle, py::return_value_policy::reference); },
                    py::type::of<RegistryHandle>(), name, take, arguments...);
    --m_asks;
    return isAnswered;
}

bool PythonRegistry::SetOwnership(unsigned int child, unsigned int owner, unsigned int ownerAttribute) {
    auto const take = [](py::object const&) {};
    return P_Ask("set_ownership", take, child, owner, ownerAttribute) ||
           Registry::SetOwnership(child, owner, ownerAttribute);
}

EntityFullType PythonRegistry::RegisterMetaclass(unsigned int metaclass) const {
    EntityFullType type;
    return P_Ask("register_metaclass", Into(type), metaclass) ? type : Registry::RegisterMetaclass(metaclass);
}

bool PythonRegistry::CheckParent(unsigned int metaclass, unsigned int ancestor) const {
    bool is = false;
    return P_Ask("check_parent", Into(is), metaclass, ancestor) ? is
                                                                : Registry::CheckParent(metaclass, ancestor);
}

bool PythonRegistry::GetOwnership(unsigned int child, unsigned int owner,
                                  qzStlVector<unsigned int>& ownerAttributes) const {
    qzStlVector<unsigned int> attributes;
    bool are = false;
    if (!P_Ask("ownership", Into(attributes, are), child, owner))
        return Registry::GetOwnership(child, owner, ownerAttributes);
    Append(ownerAttributes, attributes);
    return are;
}

bool PythonRegistry::GetOwnership(unsigned int child, Owners& owners) const {
    Owners answer;
    bool are = false;
    if (!P_Ask("owners", Into(answer, are), child))
        return Registry::GetOwnership(child, owners);
    are = are && !answer.empty();
    if (are)
        owners = std::move(answer);
    return are;
}

bool PythonRegistry::GetEntityFullTypeFromMetaclass(qzString const& name, EntityFullType& type) const {
    bool is = false;
    return P_Ask("type_of", Into(type, is), name) ? is : Registry::GetEntityFullTypeFromMetaclass(name, type);
}

bool PythonRegistry::GetEntityFullTypeFromMetaclass(unsigned int metaclass, EntityFullType& type) const {
    bool is = false;
    return P_Ask("type_of", Into(type, is), metaclass)
               ? is
               : Registry::GetEntityFullTypeFromMetaclass(metaclass, type);
}

bool PythonRegistry::GetRegisteredEntityFullTypes(qzStlVector<EntityFullType>& types) const {
    qzStlVector<EntityFullType> answer;
    if (!P_Ask("types", Into(answer)))
        return Registry::GetRegisteredEntityFullTypes(types);
    Append(types, answer);
    return !answer.empty();
}

bool PythonRegistry::GetMetaclass(EntityFullType type, qzString& name) const {
    bool is = false;
    return P_Ask("metaclass_name", Into(name, is), type) ? is : Registry::GetMetaclass(type, name);
}

unsigned int PythonRegistry::GetMetaclassHandle(EntityFullType type) const {
    unsigned int handle = 0;
    return P_Ask("handle_of", Into(handle), type) ? handle : Registry::GetMetaclassHandle(type);
}

Identifier PythonRegistry::GetNamedIdentifier(EntityFullType type, Identifier identifier) const {
    Identifier named;
    return P_Ask("named_identifier", Into(named), type, identifier)
               ? named
               : Registry::GetNamedIdentifier(type, identifier);
}

// A method that fails makes no session; the one that C++ would make is none that was wanted.
ISession* PythonRegistry::CreateSession(qzString const& name) {
    ISession* session = nullptr;
    RunOrReport([&] {
        py::object const self = py::cast(&m_handle, py::return_value_policy::reference);
        py::object const made = self.attr("create_session")(name);
        if (made.is_none())
            return;
        ISession& given = made.cast<SessionHandle const&>().Get();
        if (given.GetMetaclassMgr() != this)
            throw std::runtime_error("create_session gave a session of another registry");
        session = &given;
    });
    return session;
}

// --- the same for Python ---------------------------------------------------------------------------------

std::optional<Kept> HoldRegistry(MetaclassMgr const* registry) {
    auto const* const own = dynamic_cast<PythonRegistry const*>(registry);
    if (own == nullptr || !IsPythonAlive())
        return std::nullopt;
    py::gil_scoped_acquire const held;
    py::handle const found = py::detail::get_object_handle(
        &own->GetHandle(), py::detail::get_type_info(typeid(RegistryHandle), true));
    if (!found || Py_REFCNT(found.ptr()) == 0)
        return std::nullopt;
    return Kept(py::reinterpret_borrow<py::object>(found));
}

void CheckUnasked(MetaclassMgr const* registry) {
    auto const* const own = dynamic_cast<PythonRegistry const*>(registry);
    Check(own == nullptr || !own->IsAsked(), "the registry is being asked: end it afterwards");
}

unsigned int ToMetaclass(MetaclassMgr const& registry, py::handle metaclass) {
    if (!py::isinstance<py::str>(metaclass))
        return metaclass.cast<unsigned int>();
    auto const name = metaclass.cast<qzString>();
    unsigned int const handle = registry.FindHandle(name);
    if (handle == 0)
        throw Missing("no metaclass " + name);
    return handle;
}

unsigned int ToAttribute(MetaclassMgr const& registry, unsigned int metaclass, py::handle attribute,
                         unsigned int config) {
    if (py::isinstance<py::int_>(attribute))
        return attribute.cast<unsigned int>();
    return registry.FindAttributeHandle(metaclass, attribute.cast<Identifier>(), config, true);
}

namespace {

// A method that stands in the place of one of these calls it by super(): what C++ does by itself is the
// answer then, and asking the method again would never end.

using Class = py::class_<RegistryHandle>;

void BindRules(Class& registry) {
    registry
        .def(
            "set_ownership",
            [](RegistryHandle& self, py::object const& child, py::object const& owner,
               py::object const& attribute) {
                MetaclassMgr& held = self.Get();
                unsigned int const ownerHandle = ToMetaclass(held, owner);
                unsigned int const handle = ToAttribute(held, ownerHandle, attribute, 0);
                if (handle == 0)
                    throw Refused("the owner has no such attribute");
                PythonRegistry* const own = self.GetOwn();
                if (own != nullptr)
                    own->Registry::SetOwnership(ToMetaclass(held, child), ownerHandle, handle);
                else
                    held.SetOwnership(ToMetaclass(held, child), ownerHandle, handle);
            },
            py::arg("child"), py::arg("owner"), py::arg("attribute"),
            "Objects of the child metaclass may be owned through that attribute of an owner. May be "
            "overridden, as the next two.")
        .def(
            "ownership",
            [](RegistryHandle const& self, py::object const& child, py::object const& owner) {
                unsigned int const childHandle = ToMetaclass(self.Get(), child);
                unsigned int const ownerHandle = ToMetaclass(self.Get(), owner);
                qzStlVector<unsigned int> attributes;
                PythonRegistry const* const own = self.GetOwn();
                if (own != nullptr)
                    own->Registry::GetOwnership(childHandle, ownerHandle, attributes);
                else
                    self.Get().GetOwnership(childHandle, ownerHandle, attributes);
                return attributes;
            },
            py::arg("child"), py::arg("owner"), "The handles of the owner's attributes under which.")
        .def(
            "owners",
            [](RegistryHandle const& self, py::object const& child) {
                unsigned int const handle = ToMetaclass(self.Get(), child);
                Owners owners;
                PythonRegistry const* const own = self.GetOwn();
                own != nullptr ? own->Registry::GetOwnership(handle, owners)
                               : self.Get().GetOwnership(handle, owners);
                return owners;
            },
            py::arg("child"), "The handles of all owners of a child, each with those of its attributes.")
        .def(
            "check_parent",
            [](RegistryHandle const& self, py::object const& metaclass, py::object const& ancestor) {
                unsigned int const handle = ToMetaclass(self.Get(), metaclass);
                unsigned int const ancestorHandle = ToMetaclass(self.Get(), ancestor);
                PythonRegistry const* const own = self.GetOwn();
                return own != nullptr ? own->Registry::CheckParent(handle, ancestorHandle)
                                      : self.Get().CheckParent(handle, ancestorHandle);
            },
            py::arg("metaclass"), py::arg("ancestor"),
            "Whether a metaclass is another one or descends from it. May be overridden.");
}

void BindEntityTypes(Class& registry) {
    registry
        .def(
            "register_metaclass",
            [](RegistryHandle const& self, py::object const& metaclass) {
                unsigned int const handle = ToMetaclass(self.Get(), metaclass);
                PythonRegistry const* const own = self.GetOwn();
                return own != nullptr ? own->Registry::RegisterMetaclass(handle)
                                      : self.Get().RegisterMetaclass(handle);
            },
            py::arg("metaclass"),
            "The entity type of a metaclass, for applications that keep a table of types. May be overridden, "
            "as all that follow about types.")
        .def(
            "types",
            [](RegistryHandle const& self) {
                qzStlVector<EntityFullType> types;
                PythonRegistry const* const own = self.GetOwn();
                own != nullptr ? own->Registry::GetRegisteredEntityFullTypes(types)
                               : self.Get().GetRegisteredEntityFullTypes(types);
                return types;
            },
            "The entity type of every metaclass.")
        .def(
            "type_of",
            [](RegistryHandle const& self, py::object const& metaclass) -> std::optional<EntityFullType> {
                EntityFullType type;
                unsigned int const handle = ToMetaclass(self.Get(), metaclass);
                PythonRegistry const* const own = self.GetOwn();
                bool const is = own != nullptr ? own->Registry::GetEntityFullTypeFromMetaclass(handle, type)
                                               : self.Get().GetEntityFullTypeFromMetaclass(handle, type);
                return is && type.IsValid() ? std::optional(type) : std::nullopt;
            },
            py::arg("metaclass"), "The entity type of a metaclass; None when there is none.")
        .def(
            "metaclass_name",
            [](RegistryHandle const& self, EntityFullType const& type) -> std::optional<qzString> {
                qzString name;
                PythonRegistry const* const own = self.GetOwn();
                bool const is = own != nullptr ? own->Registry::GetMetaclass(type, name)
                                               : self.Get().GetMetaclass(type, name);
                return is ? std::optional(name) : std::nullopt;
            },
            py::arg("type"), "The name of the metaclass of an entity type; None for a type without one.")
        .def(
            "handle_of",
            [](RegistryHandle const& self, EntityFullType const& type) {
                PythonRegistry const* const own = self.GetOwn();
                return own != nullptr ? own->Registry::GetMetaclassHandle(type)
                                      : self.Get().GetMetaclassHandle(type);
            },
            py::arg("type"), "The handle of the metaclass of an entity type; 0 when there is none.")
        .def(
            "named_identifier",
            [](RegistryHandle const& self, EntityFullType const& type, Identifier const& identifier) {
                PythonRegistry const* const own = self.GetOwn();
                return own != nullptr ? own->Registry::GetNamedIdentifier(type, identifier)
                                      : self.Get().GetNamedIdentifier(type, identifier);
            },
            py::arg("type"), py::arg("identifier"),
            "The identifier with a name of the same attribute of that type, where it has one.");
}

} // namespace

void BindRegistryHooks(py::module_& module) {
    auto registry = py::reinterpret_borrow<Class>(module.attr("Registry"));
    BindRules(registry);
    BindEntityTypes(registry);
}

} // namespace qzPython
