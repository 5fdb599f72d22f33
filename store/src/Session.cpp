#include "store/Session.h"

#include "Population.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/MetaclassMgr.h"
#include "descriptor/ObjectQuery.h"
#include "descriptor/qzSigSlotHandler.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

namespace qzDescriptor::store {

namespace {

EntityEventInfo MakeEvent(ENTITY_EVENT_TYPE what, EntityFullType const& type) {
    EntityEventInfo event;
    event.SetEventType(what);
    event.SetEntityType(type);
    return event;
}

/// One entity list for each population, in the order in which they come.
class ListsByPopulation {
public:
    void Add(Population const& population, unsigned int id) {
        auto found = std::ranges::find(m_lists, &population, &Lists::value_type::first);
        if (found == m_lists.end()) {
            found = m_lists.emplace(m_lists.end(), &population, EntityList());
            found->second.SetEntityFullType(population.GetType());
        }
        found->second.GetList().push_back(id);
    }

    auto begin() const { return m_lists.begin(); }
    auto end() const { return m_lists.end(); }

private:
    using Lists = std::vector<std::pair<Population const*, EntityList>>;
    Lists m_lists;
};

} // namespace

Session::Session(qzString const& name, MetaclassMgr* registry)
    : ISession(name, registry), m_nameAttribute("name"), m_alive(std::make_shared<bool const>(true)) {}

Session::~Session() { P_AnnounceEnd(); }

// --- creating and ending -----------------------------------------------------------------------------

qzReturnStatus Session::CreateWithId(EntityFullType const& type, unsigned int id, Entity& created,
                                     Entity const& owner, Identifier const& ownerAttribute) {
    if (id == 0)
        return {-1, "An entity cannot have the id 0."};
    m_wantedId = id;
    std::weak_ptr<bool const> const alive = m_alive;
    qzReturnStatus const status = Create(type, created, owner, ownerAttribute);
    if (!alive.expired())
        m_wantedId = 0;
    return status;
}

qzReturnStatus Session::P_CreateEntity(EntityFullType const& type, Entity& created, Entity const& owner,
                                       Identifier const& ownerAttribute) const {
    unsigned int const wantedId = std::exchange(m_wantedId, 0); // listeners may create others
    Population* const population = P_GetPopulation(type);
    if (population == nullptr)
        return {-1, "There is no metaclass " + type.GetTypeNamed() + "."};
    Object* const ownerObject = P_Find(owner);
    if (owner.GetEntityFullType().IsValid() && ownerObject == nullptr)
        return {-1, "The owner does not exist."};
    unsigned int const id = wantedId != 0 ? wantedId : population->GetNextId();
    if (population->Find(id) != nullptr)
        return {-1, "The id " + std::to_string(id) + " is taken."};
    Object& object = population->Add(id);
    if (ownerObject != nullptr)
        ownerObject->P_Own(object, GetMetaclassMgr()->FindAttributeHandle(
                                       ownerObject->m_population->GetMetaclass(), ownerAttribute, 0, false));
    created = object.GetEntity();
    EntityEventInfo event = MakeEvent(ENTITY_EVENT_CREATED, population->GetType());
    event.AddEntityId(id);
    GetSigSlotHandler()->Emit(EVENT_CATEGORY_ENTITY, event);
    return {};
}

qzReturnStatus Session::Delete(Entity const& entity) {
    Object* const root = P_Find(entity);
    if (root == nullptr)
        return {-1, "The entity does not exist."};
    if (root->m_owner != nullptr)
        root->m_owner->P_Disown(*root);
    std::vector<Object*> doomed = {root};
    for (std::size_t n = 0; n < doomed.size(); ++n) {
        if (auto const& owned = doomed[n]->m_owned)
            std::ranges::copy_if(owned->objects, std::back_inserter(doomed),
                                 [](Object const* object) { return object != nullptr; });
    }
    ListsByPopulation deleted;
    for (Object* const object : doomed) {
        deleted.Add(*object->m_population, object->m_id);
        object->m_population->Remove(*object);
    }
    std::weak_ptr<bool const> const alive = m_alive;
    for (auto const& [population, list] : deleted) {
        EntityEventInfo event = MakeEvent(ENTITY_EVENT_DELETED, list.GetEntityFullType());
        event.AddEntityIdList(list.GetList());
        if (alive.expired())
            break;
        GetSigSlotHandler()->Emit(EVENT_CATEGORY_ENTITY, event);
    }
    return {};
}

void Session::P_EmitChanged(Object const& object, unsigned int attribute) const {
    Population const& population = *object.m_population;
    EntityEventInfo event = MakeEvent(ENTITY_EVENT_CHANGED, population.GetType());
    event.AddEntityId(object.m_id);
    event.SetIdentifier(GetMetaclassMgr()->GetIdentifier(population.GetMetaclass(), attribute + 1, 0, false));
    GetSigSlotHandler()->Emit(EVENT_CATEGORY_ENTITY, event);
}

// --- finding -----------------------------------------------------------------------------------------

Population* Session::P_FindPopulation(EntityFullType const& type) const {
    if (Population* const last = m_lastFound.load(std::memory_order_relaxed);
        last != nullptr && last->GetType() == type)
        return last;
    unsigned int const metaclass =
        GetMetaclassMgr() != nullptr ? GetMetaclassMgr()->GetMetaclassHandle(type) : 0;
    Population* const found = metaclass < m_populations.size() ? m_populations[metaclass].get() : nullptr;
    if (found != nullptr)
        m_lastFound.store(found, std::memory_order_relaxed);
    return found;
}

Population* Session::P_GetPopulation(EntityFullType const& type) const {
    if (Population* const found = P_FindPopulation(type))
        return found;
    MetaclassMgr* const registry = GetMetaclassMgr();
    unsigned int const metaclass = registry->GetMetaclassHandle(type);
    EntityFullType ownType;
    Members const* const members = registry->GetMembers(metaclass, 0); // null for what is no metaclass
    if (members == nullptr || !registry->GetEntityFullTypeFromMetaclass(metaclass, ownType))
        return nullptr;
    if (m_populations.size() <= metaclass)
        m_populations.resize(metaclass + 1);
    std::unique_ptr<Population>& population = m_populations[metaclass];
    if (population == nullptr) // the registry that was asked may have created objects of the type
        population = std::make_unique<Population>(const_cast<Session&>(*this), metaclass, ownType, members);
    return population.get();
}

Object* Session::P_Find(Entity const& entity) const {
    Population const* const population = P_FindPopulation(entity.GetEntityFullType());
    return population != nullptr ? population->Find(entity.GetId()) : nullptr;
}

Object* Session::GetObject(Entity const& entity) const { return P_Find(entity); }

Metaobject const* Session::GetMetaobject(Entity const& entity) const { return P_Find(entity); }

bool Session::Find(EntityFullType const& type, qzString const& name, Entity& entity) const {
    Population const* const population = P_FindPopulation(type);
    Object const* found = nullptr;
    if (population != nullptr)
        found = population->FindIf([&](Object const& object) { return object.GetName() == name; });
    if (found != nullptr)
        entity = found->GetEntity();
    return found != nullptr;
}

unsigned int Session::GetCount(EntityFullType const& type) const {
    Population const* const population = P_FindPopulation(type);
    return population != nullptr ? population->GetCount() : 0;
}

void Session::P_CollectAll(EntityList& out, EntityFullType const& type,
                           [[maybe_unused]] std::string const& query) const {
    Population const* const population = P_FindPopulation(type);
    EntityFullType const listed = population != nullptr ? population->GetType() : type;
    out = EntityList();
    out.SetEntityFullType(listed);
    if (population != nullptr)
        population->List(out.GetList());
}

// Goes from content to content, where the base would look each object up by its entity. A derived session may
// answer otherwise there.
unsigned long long Session::Collect(EntityList& out, EntityFullType const& type,
                                    std::string const& query) const {
    bool const isPlain = !query.empty() && typeid(*this) == typeid(Session);
    Population const* const population = isPlain ? P_FindPopulation(type) : nullptr;
    if (population == nullptr)
        return ISession::Collect(out, type, query);
    ObjectQuery const wanted(*this, population->GetType(), query);
    out = EntityList();
    out.SetEntityFullType(population->GetType());
    population->ListIf(out.GetList(), wanted.GetAttributes(),
                       [&](Content const& content, unsigned int id) { return wanted.Matches(content, id); });
    return out.GetIdListCount();
}

unsigned long long Session::CollectInstances(EntityListBag& out, EntityFullType const& type,
                                             std::string const& query) const {
    MetaclassMgr* const registry = GetMetaclassMgr();
    qzStlVector<unsigned int> metaclasses;
    bool const exists =
        registry != nullptr &&
        registry->FindChildrenHandles(registry->GetMetaclassHandle(type), metaclasses, true, true);
    out = EntityListBag(); // the type may have been that of one of its lists
    if (!exists)
        return 0;
    unsigned long long count = 0;
    for (unsigned int const metaclass : metaclasses) {
        EntityFullType current;
        EntityList list;
        registry->GetEntityFullTypeFromMetaclass(metaclass, current);
        if (GetCount(current) != 0 && Collect(list, current, query) != 0) {
            count += list.GetIdListCount();
            out.SetList(list);
        }
    }
    return count;
}

// --- owners ------------------------------------------------------------------------------------------

void Session::GetOwnedEntities(EntityListBag& owned, Entity const& owner,
                               Identifier const& ownerAttribute) const {
    owned = EntityListBag();
    Object const* const object = P_Find(owner);
    if (object == nullptr || object->m_owned == nullptr)
        return;
    bool const underAny = !ownerAttribute.IsValid();
    unsigned int const attribute = GetMetaclassMgr()->FindAttributeHandle(
        object->m_population->GetMetaclass(), ownerAttribute, 0, false);
    ListsByPopulation lists;
    for (Object const* const child : object->m_owned->objects) {
        if (child != nullptr && (underAny || (attribute != 0 && child->m_ownerAttribute == attribute)))
            lists.Add(*child->m_population, child->m_id);
    }
    for (auto const& [population, list] : lists)
        owned.SetList(list);
}

bool Session::GetOwner(Entity const& entity, Entity& owner, Identifier& ownerAttribute) const {
    Object const* const object = P_Find(entity);
    return object != nullptr && object->GetOwner(owner, ownerAttribute);
}

} // namespace qzDescriptor::store
