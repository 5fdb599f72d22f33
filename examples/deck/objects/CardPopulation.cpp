#include "objects/CardPopulation.h"

#include "cards/card_position.h"
#include "descriptor/Members.h"
#include "objects/DeckRegistry.h"
#include "objects/DeckSession.h"
#include "references/card_ids.h"

#include <algorithm>
#include <limits>

namespace qzDeck {

using namespace qzDescriptor;

namespace {

bool IsIndexedBefore(std::pair<unsigned int, unsigned int> const& entry, unsigned int id) {
    return entry.first < id;
}

} // namespace

CardPopulation::CardPopulation(DeckSession& session, unsigned int metaclass, CardKind const& kind)
    : Population(session, metaclass),
      m_name(kind.name),
      m_definition(kind.definition),
      m_idGroup(IdGroupOf(kind)) {
    if (m_definition != nullptr)
        P_FindSources();
}

// --- attributes --------------------------------------------------------------------------------------

void CardPopulation::P_FindSources() {
    Fields const all = m_definition->AllFields();
    for (unsigned int index = 0; index < GetMembers().GetVariableCount(); ++index) {
        Source& source = m_sources.emplace_back();
        auto const field =
            std::ranges::find(all, GetMembers().GetVariableIdentifier(index).GetNameKey(),
                              [](Field const& other) { return other.identifier.GetNameKey(); });
        if (field == all.end())
            continue;
        source.field = &*field;
        bool const isFixed = &*field < m_definition->TailFields().data();
        source.kind = isFixed                                     ? Source::AtPlace
                      : field->definition.GetArrayDimension() > 0 ? Source::List
                                                                  : Source::ByName;
        if (!isFixed)
            continue;
        Fields const alternatives = m_definition->AlternativesTo(*field);
        source.place = PlaceOf(field->position);
        source.isFirst = &*field == &alternatives.front();
        if (alternatives.size() > 1)
            source.alternatives = alternatives;
    }
}

Field const* CardPopulation::GetField(unsigned int attribute) const {
    return attribute < m_sources.size() ? m_sources[attribute].field : nullptr;
}

CardPopulation::Reading CardPopulation::Read(CardObject const& object, unsigned int attribute) const {
    if (attribute >= m_sources.size())
        return {};
    Source const& source = m_sources[attribute];
    switch (source.kind) {
    case Source::AtPlace:
        return P_ReadPlace(object.GetCard(), source, attribute);
    case Source::ByName: {
        Value const* const value = object.GetCard().Find(source.field->identifier);
        return value != nullptr && value->GetValuePtr() != nullptr
                   ? Reading{value->GetValuePtr(), Origin::Written}
                   : P_ReadBlank(object.GetCard(), source, attribute);
    }
    case Source::List:
        return {GetSession().GetList(object, attribute), Origin::Computed};
    default:
        return {};
    }
}

CardPopulation::Reading CardPopulation::P_ReadPlace(Card const& card, Source const& source,
                                                    unsigned int attribute) const {
    static Value const s_zero(0.0);
    auto const& values = card.Values();
    Value const* value = source.place < values.size() ? &values[source.place] : nullptr;
    Origin origin = Origin::Written;
    if (value == nullptr || value->GetValuePtr() == nullptr) {
        value = P_FindDefault(source.place);
        origin = Origin::DefaultsCard;
    }
    bool const isThisOne = source.alternatives.empty() || Choose(source.alternatives, value) == source.field;
    if (!isThisOne)
        return {};
    if (value == nullptr)
        return P_ReadBlank(card, source, attribute);
    bool const isReal = source.field->definition.GetValueBasicType() == BT_DOUBLE;
    if (int integer = -1; isReal && value->GetValue(integer) && integer == 0)
        value = &s_zero; // as many write 0.0
    return {value->GetValuePtr(), origin};
}

CardPopulation::Reading CardPopulation::P_ReadBlank(Card const& card, Source const& source,
                                                    unsigned int attribute) const {
    if (HasFlag(*source.field, FIELD_DEFAULTS_TO_ID) && !card.Values().empty())
        return {card.Values().front().GetValuePtr(), Origin::OwnId};
    if (HasFlag(*source.field, FIELD_HAS_DEFAULT) && source.isFirst)
        return {GetMembers().GetDefaultValue(attribute), Origin::Default};
    return {};
}

Value const* CardPopulation::P_FindDefault(std::size_t place) const {
    if (m_definition->DefaultsCard().empty())
        return nullptr;
    CardObject const* const card = GetSession().FindFirstCard(m_definition->DefaultsCard());
    if (card == nullptr || place >= card->GetCard().Values().size())
        return nullptr;
    Value const& value = card->GetCard().Values()[place];
    return value.GetValuePtr() != nullptr ? &value : nullptr;
}

// --- the cards ---------------------------------------------------------------------------------------

void CardPopulation::Add(std::uint32_t card) {
    auto const place = static_cast<unsigned int>(m_objects.size());
    CardObject& object = m_objects.emplace_back(*this, card, 0U);
    unsigned int const id = m_idGroup.empty() ? m_highestId + 1 : object.GetFirstNumber();
    if (id <= m_highestId)
        P_Index();
    object.P_SetId(id);
    if (m_isIndexed)
        m_index.emplace_back(id, place);
    m_highestId = std::max(m_highestId, id);
}

/// From here on objects are found by the index.
void CardPopulation::P_Index() {
    if (m_isIndexed)
        return;
    m_isIndexed = true;
    for (unsigned int place = 0; place < m_objects.size(); ++place) {
        if (m_objects[place].IsValid() && m_objects[place].GetId() != 0)
            m_index.emplace_back(m_objects[place].GetId(), place);
    }
}

void CardPopulation::P_InsertIntoIndex(unsigned int id, unsigned int place) {
    m_index.emplace(std::lower_bound(m_index.begin(), m_index.end(), id, IsIndexedBefore), id, place);
}

void CardPopulation::Number() {
    if (!m_isIndexed)
        return;
    std::sort(m_index.begin(), m_index.end());
    std::vector<std::pair<unsigned int, unsigned int>> index;
    std::vector<unsigned int> unnumbered;
    for (auto const& [id, place] : m_index) {
        if (id == 0 || (!index.empty() && index.back().first == id))
            unnumbered.push_back(place);
        else
            index.emplace_back(id, place);
    }
    std::sort(unnumbered.begin(), unnumbered.end());
    for (unsigned int const place : unnumbered) {
        m_objects[place].P_SetId(++m_highestId);
        index.emplace_back(m_highestId, place);
    }
    m_index = std::move(index);
}

CardObject* CardPopulation::FindCard(unsigned int id) const {
    if (!m_isIndexed) {
        auto const found = std::ranges::lower_bound(m_objects, id, {}, &CardObject::GetId);
        return found != m_objects.end() && found->GetId() == id && found->IsValid() ? &*found : nullptr;
    }
    auto const found = std::lower_bound(m_index.begin(), m_index.end(), id, IsIndexedBefore);
    return found != m_index.end() && found->first == id ? &m_objects[found->second] : nullptr;
}

void CardPopulation::List(qzStlVector<unsigned int>& ids) const {
    ids.clear();
    ids.reserve(GetCount());
    ForEach([&](CardObject const& object) { ids.push_back(object.GetId()); });
}

void CardPopulation::Forget(CardObject const& object) {
    P_Index();
    m_index.erase(std::lower_bound(m_index.begin(), m_index.end(), object.GetId(), IsIndexedBefore));
    ++m_gone;
}

void CardPopulation::MoveUp(std::vector<std::uint32_t> const& gone) {
    ForEach([&](CardObject& object) {
        auto const before = std::lower_bound(gone.begin(), gone.end(), object.m_card);
        object.m_card -= static_cast<std::uint32_t>(before - gone.begin());
    });
}

void CardPopulation::Renumber(CardObject& object, unsigned int id) {
    P_Index();
    auto const old = std::lower_bound(m_index.begin(), m_index.end(), object.GetId(), IsIndexedBefore);
    unsigned int const place = old->second;
    m_index.erase(old);
    P_InsertIntoIndex(id, place);
    object.P_SetId(id);
    m_highestId = std::max(m_highestId, id);
}

qzReturnStatus CardPopulation::Create(unsigned int id, DeckObject* owner, DeckObject*& created) {
    bool const hasIds = !m_idGroup.empty();
    if (!hasIds && id != 0)
        return {-1, m_name + " has no number of its own to be chosen."};
    if (m_definition != nullptr && m_definition->IsSingle() && GetCount() > 0)
        return {-1, "A deck holds one " + m_name + " at most."};
    if (hasIds && id == 0)
        id = GetSession().GetHighestId(m_idGroup) + 1;
    else if (hasIds && GetSession().IsTaken(m_idGroup, id))
        return {-1, "The id " + std::to_string(id) + " is taken."};
    if (id > static_cast<unsigned int>(std::numeric_limits<int>::max()))
        return {-1, "There is no such number on cards."};
    std::vector<Value> values;
    if (hasIds || owner != nullptr)
        values.emplace_back(static_cast<int>(hasIds ? id : owner->GetId()));
    std::uint32_t const card = GetSession().AddCard(m_name, std::move(values));
    unsigned int const newId = hasIds ? id : m_highestId + 1;
    auto const place = static_cast<unsigned int>(m_objects.size());
    if (newId <= m_highestId)
        P_Index();
    created = &m_objects.emplace_back(*this, card, newId);
    if (m_isIndexed)
        P_InsertIntoIndex(newId, place);
    m_highestId = std::max(m_highestId, newId);
    return {};
}

} // namespace qzDeck
