#include "objects/DeckSession.h"

#include "cards/registry.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/Members.h"
#include "descriptor/qzSigSlotHandler.h"
#include "objects/CardPopulation.h"
#include "objects/DeckRegistry.h"
#include "objects/PartPopulation.h"
#include "objects/SetPopulation.h"
#include "objects/entity_event.h"
#include "objects/list_value.h"
#include "references/card_ids.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>
#include <utility>

namespace qzDeck {

using namespace qzDescriptor;

namespace {

/// Ids by population, in the order in which they come.
class IdsByPopulation {
public:
    void Add(DeckObject const& object) {
        Population const* const population = &object.GetPopulation();
        auto found = std::ranges::find(m_lists, population, &Lists::value_type::first);
        if (found == m_lists.end())
            found = m_lists.insert(m_lists.end(), {population, {}});
        found->second.push_back(object.GetId());
    }
    auto begin() const { return m_lists.begin(); }
    auto end() const { return m_lists.end(); }

private:
    using Lists = std::vector<std::pair<Population const*, qzStlVector<unsigned int>>>;
    Lists m_lists;
};

/// Of a map by object and attribute.
template <class Map>
void EraseAllOf(Map& map, DeckObject const& object) {
    map.erase(map.lower_bound({&object, 0}), map.upper_bound({&object, 0xFFFFFFFF}));
}

bool IsNamed(SetRow const& row, std::string_view card) { return IsMember(TraitsOf(row.family), card); }

} // namespace

DeckSession::DeckSession(qzString const& name, DeckRegistry& registry, Model model)
    : ISession(name, &registry), m_registry(registry), m_model(std::move(model)) {
    P_Load();
}

DeckSession::~DeckSession() { P_AnnounceEnd(); }

void DeckSession::P_Load() {
    std::unordered_map<CardKind const*, CardPopulation*> populations;
    for (CardKind const& kind : m_model.Kinds())
        populations[&kind] = &P_GetCards(kind.name);
    for (std::uint32_t index = 0; index < m_model.Cards().size(); ++index)
        populations[&GetCard(index).Kind()]->Add(index);
    for (auto const& [kind, cards] : populations)
        cards->Number();
    for (SetRow const& row : Sets()) {
        m_sets.push_back(static_cast<SetPopulation*>(P_Get(EntityFullType(qzString(row.name)))));
        m_sets.back()->Refresh();
    }
    for (PartRow const& row : Parts()) {
        auto* const parts = static_cast<PartPopulation*>(P_Get(EntityFullType(qzString(row.part))));
        if (CardPopulation const* const cards = FindCards(row.card))
            cards->ForEach([&](CardObject& card) { parts->Refresh(card); });
    }
}

// --- populations -------------------------------------------------------------------------------------

CardPopulation& DeckSession::P_GetCards(std::string const& name) {
    m_registry.GetCard(name);
    return static_cast<CardPopulation&>(*P_Get(EntityFullType(name)));
}

/// The population of a metaclass that has objects of its own, made when there is none yet; null for others.
Population* DeckSession::P_Get(EntityFullType const& type) {
    if (Population* const found = P_Find(type))
        return found;
    unsigned int const metaclass = m_registry.GetMetaclassHandle(type);
    qzString const& name = type.GetTypeNamed();
    std::unique_ptr<Population> made;
    auto const set = std::ranges::find(Sets(), name, &SetRow::name);
    bool const isAbstract =
        std::ranges::find(AbstractMetaclasses(), name, &MetaclassRow::name) != AbstractMetaclasses().end();
    if (set != Sets().end())
        made = std::make_unique<SetPopulation>(*this, metaclass, *set);
    else if (std::ranges::find(Parts(), name, &PartRow::part) != Parts().end())
        made = std::make_unique<PartPopulation>(*this, metaclass);
    else if (metaclass != 0 && !isAbstract)
        made = std::make_unique<CardPopulation>(*this, metaclass, CardKind{name, qzDeck::FindCard(name)});
    else
        return nullptr;
    m_populations.resize(std::max<std::size_t>(m_populations.size(), metaclass + 1));
    m_populations[metaclass] = std::move(made);
    return m_populations[metaclass].get();
}

Population* DeckSession::P_Find(EntityFullType const& type) const {
    Population* const last = m_lastFound.load(std::memory_order_relaxed);
    if (last != nullptr && last->GetType() == type)
        return last;
    unsigned int const metaclass = m_registry.GetMetaclassHandle(type);
    Population* const found = metaclass < m_populations.size() ? m_populations[metaclass].get() : nullptr;
    if (found != nullptr)
        m_lastFound.store(found, std::memory_order_relaxed);
    return found;
}

std::vector<CardPopulation*> DeckSession::P_CardPopulations() const {
    std::vector<CardPopulation*> all;
    for (auto const& population : m_populations) {
        if (auto* const cards = dynamic_cast<CardPopulation*>(population.get()))
            all.push_back(cards);
    }
    return all;
}

PartPopulation* DeckSession::P_PartsOf(std::string_view card) const {
    auto const row = std::ranges::find(Parts(), card, &PartRow::card);
    if (row == Parts().end())
        return nullptr;
    return static_cast<PartPopulation*>(P_Find(EntityFullType(qzString(row->part))));
}

unsigned int DeckSession::GetCount(unsigned int metaclass) const {
    bool const isThere = metaclass < m_populations.size() && m_populations[metaclass] != nullptr;
    return isThere ? m_populations[metaclass]->GetCount() : 0;
}

CardPopulation const* DeckSession::FindCards(std::string_view name) const {
    return static_cast<CardPopulation const*>(P_Find(EntityFullType(qzString(name))));
}

CardObject* DeckSession::FindFirstCard(std::string_view name) const {
    CardObject* first = nullptr;
    if (CardPopulation const* const cards = FindCards(name))
        cards->ForEach([&](CardObject& card) { first = first == nullptr ? &card : first; });
    return first;
}

// --- creating and ending -----------------------------------------------------------------------------

qzReturnStatus DeckSession::CreateWithId(EntityFullType const& type, unsigned int id, Entity& created,
                                         Entity const& owner, Identifier const& ownerAttribute) {
    if (id == 0)
        return {-1, "An entity cannot have the id 0."};
    m_wantedId = id;
    std::weak_ptr<bool const> const alive = m_alive; // listeners may end the session
    qzReturnStatus status = Create(type, created, owner, ownerAttribute);
    if (!alive.expired())
        m_wantedId = 0;
    return status;
}

qzReturnStatus DeckSession::P_CreateEntity(EntityFullType const& type, Entity& created, Entity const& owner,
                                           [[maybe_unused]] Identifier const& ownerAttribute) const {
    return const_cast<DeckSession*>(this)->P_Create(type, created, owner); // what changes is the model
}

qzReturnStatus DeckSession::P_Create(EntityFullType const& type, Entity& created, Entity const& owner) {
    Population* const population = P_Get(type);
    if (population == nullptr)
        return {-1, "No " + type.GetTypeNamed() + " can be created."};
    DeckObject* const ownerObject = FindObject(owner);
    if (owner.GetEntityFullType().IsValid() && ownerObject == nullptr)
        return {-1, "The owner does not exist."};
    DeckObject* object = nullptr;
    auto status = population->Create(std::exchange(m_wantedId, 0), ownerObject, object);
    if (status.status != 0)
        return status;
    if (auto* const card = dynamic_cast<CardObject*>(object)) {
        for (SetPopulation* const sets : m_sets)
            sets->Include(*card);
        if (PartPopulation* const parts = P_PartsOf(card->GetCard().Name()))
            parts->Refresh(*card);
    }
    created = object->GetEntity();
    P_Tell({MakeEvent(ENTITY_EVENT_CREATED, population->GetType(), {object->GetId()})});
    return {};
}

qzReturnStatus DeckSession::Delete(Entity const& entity) {
    DeckObject* const root = FindObject(entity);
    if (root == nullptr)
        return {-1, "The entity does not exist."};
    if (!root->IsDeletable())
        return {-1, root->GetName() + " goes only with its owner."};
    std::vector<DeckObject*> doomed = {root};
    for (std::size_t n = 0; n < doomed.size(); ++n)
        doomed[n]->VisitOwned([&](DeckObject& owned, Identifier const&) { doomed.push_back(&owned); });
    IdsByPopulation deleted;
    for (DeckObject* const object : doomed) {
        deleted.Add(*object);
        ForgetLists(*object);
        EraseAllOf(m_ownDefinitions, *object);
        object->End();
    }
    for (auto const& [population, ids] : deleted)
        P_RefreshSets(population->GetType().GetTypeNamed());
    std::vector<EntityEventInfo> events;
    for (auto const& [population, ids] : deleted)
        events.push_back(MakeEvent(ENTITY_EVENT_DELETED, population->GetType(), ids));
    P_Tell(events);
    return {};
}

std::uint32_t DeckSession::AddCard(std::string const& name, std::vector<Value> values) {
    m_model.Add(name, std::move(values));
    return static_cast<std::uint32_t>(m_model.Cards().size()) - 1;
}

void DeckSession::RemoveCard(CardObject const& card) { m_gone.push_back(card.GetCardIndex()); }

Model const& DeckSession::GetModel() const {
    if (m_gone.empty())
        return m_model;
    std::sort(m_gone.begin(), m_gone.end());
    m_model.Remove(m_gone);
    for (CardPopulation* const cards : P_CardPopulations())
        cards->MoveUp(m_gone);
    m_gone.clear();
    return m_model;
}

bool DeckSession::P_RefreshSets(std::string_view card) {
    bool isInSets = false;
    for (SetPopulation* const sets : m_sets) {
        if (!IsNamed(sets->GetRow(), card))
            continue;
        sets->Refresh();
        isInSets = true;
    }
    return isInSets;
}

// --- changing ----------------------------------------------------------------------------------------

void DeckSession::TellChange(CardObject& card, Identifier const& attribute) {
    std::vector<EntityEventInfo> events;
    P_NoteChange(card, attribute, events);
    P_Tell(events);
}

void DeckSession::P_NoteChange(CardObject& card, Identifier const& attribute,
                               std::vector<EntityEventInfo>& events) {
    ForgetLists(card);
    if (PartPopulation* const parts = P_PartsOf(card.GetCard().Name())) {
        for (PartObject* const part : parts->GetPartsOf(card))
            ForgetLists(*part);
        parts->Refresh(card);
    }
    Field const* const first = card.GetCards().GetField(0);
    bool const mayMove = first != nullptr && first->identifier == attribute;
    bool const hasMoved = mayMove && P_RefreshSets(card.GetCard().Name());
    EntityFullType const type = card.GetEntityFullType();
    events.push_back(MakeEvent(ENTITY_EVENT_CHANGED, type, {card.GetId()}, attribute));
    if (hasMoved)
        events.push_back(MakeEvent(ENTITY_EVENT_OWNER_CHANGED, type, {card.GetId()}));
}

// The last that is done of a change: any listener may end the session.
void DeckSession::P_Tell(std::vector<EntityEventInfo> const& events) const {
    std::weak_ptr<bool const> const alive = m_alive;
    for (EntityEventInfo const& event : events) {
        if (alive.expired())
            return;
        GetSigSlotHandler()->Emit(EVENT_CATEGORY_ENTITY, event);
    }
}

ValuePtr const* DeckSession::P_KeepList(DeckObject const& object, unsigned int attribute,
                                        Value (*make)(DeckObject const&, unsigned int)) const {
    std::lock_guard const lock(m_listsMutex);
    auto const [found, isNew] = m_lists.try_emplace({&object, attribute});
    if (isNew)
        found->second = make(object, attribute);
    return found->second.GetValuePtr();
}

ValuePtr const* DeckSession::GetList(CardObject const& card, unsigned int attribute) const {
    return P_KeepList(card, attribute, [](DeckObject const& object, unsigned int index) {
        auto const& self = static_cast<CardObject const&>(object);
        return MakeListValue(self.GetCard(), *self.GetCards().GetField(index));
    });
}

ValuePtr const* DeckSession::GetList(PartObject const& part, unsigned int attribute) const {
    return P_KeepList(part, attribute, [](DeckObject const& object, unsigned int index) {
        auto const& self = static_cast<PartObject const&>(object);
        Card const& card = self.GetOwnerCard()->GetCard();
        qzString const& name = self.GetPopulation().GetMembers().GetVariableIdentifier(index).GetNameKey();
        Fields const fields = card.Kind().definition->TailFields();
        auto const field =
            std::ranges::find(fields, name, [](Field const& other) { return other.identifier.GetNameKey(); });
        return field == fields.end() ? Value() : MakeRowListValue(card, *field, self.GetRow());
    });
}

void DeckSession::ForgetLists(DeckObject const& object) {
    std::lock_guard const lock(m_listsMutex);
    EraseAllOf(m_lists, object);
}

Definition const* DeckSession::FindOwnDefinition(DeckObject const& object, unsigned int attribute) const {
    auto const found = m_ownDefinitions.find({&object, attribute});
    return found == m_ownDefinitions.end() ? nullptr : &found->second;
}

void DeckSession::SetOwnDefinition(DeckObject const& object, unsigned int attribute,
                                   Definition const& definition) {
    m_ownDefinitions[{&object, attribute}] = definition;
}

// --- finding -----------------------------------------------------------------------------------------

DeckObject* DeckSession::FindObject(Entity const& entity) const {
    Population const* const population = P_Find(entity.GetEntityFullType());
    return population == nullptr ? nullptr : population->Find(entity.GetId());
}

Metaobject const* DeckSession::GetMetaobject(Entity const& entity) const { return FindObject(entity); }

void DeckSession::P_CollectAll(EntityList& out, EntityFullType const& type,
                               [[maybe_unused]] std::string const& query) const {
    out = EntityList();
    out.SetEntityFullType(type);
    if (Population const* const population = P_Find(type))
        population->List(out.GetList());
}

/// Names are made of type and id.
bool DeckSession::Find(EntityFullType const& type, qzString const& name, Entity& entity) const {
    qzString const prefix = type.GetTypeNamed() + ' ';
    unsigned int id = 0;
    if (!name.starts_with(prefix))
        return false;
    std::from_chars(name.data() + prefix.size(), name.data() + name.size(), id);
    DeckObject const* const object = FindObject(Entity(type, id));
    if (object == nullptr || object->GetName() != name)
        return false;
    entity = object->GetEntity();
    return true;
}

DeckObject* DeckSession::FindMember(Family family, unsigned int id) const {
    for (SetPopulation* const sets : m_sets) {
        if (sets->GetRow().family == family)
            return sets->Find(id);
    }
    for (std::string_view const name : TraitsOf(family).cards) {
        CardPopulation const* const cards = FindCards(name);
        if (cards == nullptr)
            continue;
        if (!HasSeveralIds(cards->GetDefinition())) {
            CardObject* const card = cards->FindCard(id);
            if (card != nullptr && card->GetFirstNumber() == id)
                return card;
            continue;
        }
        CardObject* holder = nullptr;
        cards->ForEach([&](CardObject& card) { holder = HoldsId(card.GetCard(), id) ? &card : holder; });
        if (holder != nullptr)
            return holder;
    }
    return nullptr;
}

unsigned int DeckSession::GetHighestId(std::string_view group) const {
    unsigned int highest = 0;
    for (CardPopulation const* const cards : P_CardPopulations()) {
        if (cards->GetIdGroup() == group)
            highest = std::max(highest, cards->GetHighestId());
    }
    return highest;
}

bool DeckSession::IsTaken(std::string_view group, unsigned int id) const {
    return std::ranges::any_of(P_CardPopulations(), [&](CardPopulation const* cards) {
        return cards->GetIdGroup() == group && cards->Find(id) != nullptr;
    });
}

// --- owners ------------------------------------------------------------------------------------------

void DeckSession::GetOwnedEntities(EntityListBag& owned, Entity const& owner,
                                   Identifier const& ownerAttribute) const {
    owned = EntityListBag();
    DeckObject const* const object = FindObject(owner);
    if (object == nullptr)
        return;
    IdsByPopulation lists;
    object->VisitOwned([&](DeckObject& child, Identifier const& attribute) {
        if (!ownerAttribute.IsValid() || ownerAttribute == attribute)
            lists.Add(child);
    });
    for (auto const& [population, ids] : lists)
        owned.SetList(EntityList(population->GetType(), ids, {}));
}

bool DeckSession::GetOwner(Entity const& entity, Entity& owner, Identifier& ownerAttribute) const {
    DeckObject const* const object = FindObject(entity);
    return object != nullptr && object->GetOwner(owner, ownerAttribute);
}

DeckObject* DeckSession::FindSetOf(CardObject const& card, Identifier& attribute) const {
    for (SetPopulation* const sets : m_sets) {
        if (!m_registry.CheckParent(card.GetPopulation().GetMetaclass(), sets->GetMemberMetaclass()))
            continue;
        attribute = Identifier(qzString(sets->GetRow().attribute));
        return sets->Find(card.GetFirstNumber());
    }
    return nullptr;
}

void DeckSession::VisitParts(CardObject const& card, DeckObject::OwnedVisitor const& visit) const {
    PartPopulation const* const parts = P_PartsOf(card.GetCard().Name());
    if (parts == nullptr)
        return;
    for (PartObject* const part : parts->GetPartsOf(card))
        visit(*part, Identifier(parts->GetOwnerAttribute()));
}

} // namespace qzDeck
