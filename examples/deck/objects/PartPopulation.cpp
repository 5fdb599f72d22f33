#include "objects/PartPopulation.h"

#include "cards/tails.h"
#include "descriptor/Definition.h"
#include "descriptor/Members.h"
#include "objects/CardPopulation.h"
#include "objects/DeckSession.h"
#include "objects/metaclasses.h"

#include <algorithm>

namespace qzDeck {

using namespace qzDescriptor;

PartObject::PartObject(PartPopulation& population, unsigned int id, CardObject& owner, unsigned int row)
    : DeckObject(population, id), m_owner(&owner), m_row(row) {}

DeckObject::Identifier PartObject::P_OfOwner(Identifier const& attribute) const {
    Identifier identifier(attribute.GetNameKey());
    if (m_row != s_all)
        identifier.SetRow(m_row);
    return identifier;
}

bool PartObject::GetValue(unsigned int attributeHandle, ValuePtr const*& value) const {
    if (m_owner == nullptr)
        return false;
    Members const& members = GetPopulation().GetMembers();
    Definition const* const definition = members.GetVariableDefinition(attributeHandle - 1);
    if (definition == nullptr)
        return false;
    Identifier const& attribute = members.GetVariableIdentifier(attributeHandle - 1);
    if (definition->GetArrayDimension() > 0 && m_row != s_all) {
        ValuePtr const* const list = GetPopulation().GetSession().GetList(*this, attributeHandle - 1);
        if (list != nullptr)
            value = list;
        return list != nullptr;
    }
    if (m_owner->GetValue(P_OfOwner(attribute), value))
        return true;
    bool const isBlank = (definition->GetUserParams().GetFlag() & FIELD_HAS_DEFAULT) != 0 &&
                         m_owner->GetDefinition(Identifier(attribute.GetNameKey())) != nullptr;
    if (isBlank)
        value = members.GetDefaultValue(attributeHandle - 1);
    return isBlank;
}

qzReturnStatus PartObject::SetValue(Identifier const& attribute, Value const& value) const {
    if (m_owner == nullptr)
        return {-1, "The object is gone."};
    unsigned int const index = P_FindAttribute(attribute);
    if (index == Members::s_none)
        return {-1, "There is no such attribute."};
    Identifier ofOwner = P_OfOwner(attribute);
    if (GetDefinition(attribute)->GetArrayDimension() > 0 && attribute.GetRow() != Identifier::s_unset) {
        if (m_row == s_all)
            ofOwner.SetRow(attribute.GetRow());
        else
            ofOwner.SetColumn(attribute.GetRow());
    }
    GetPopulation().GetSession().ForgetLists(*this);
    CardObject* const owner = m_owner;
    return owner->SetValue(ofOwner, value);
}

DeckObject* PartObject::FindOwner(Identifier& attribute) const {
    attribute = Identifier(static_cast<PartPopulation&>(GetPopulation()).GetOwnerAttribute());
    return m_owner;
}

void PartObject::VisitOwned([[maybe_unused]] OwnedVisitor const& visit) const {}

bool PartObject::IsDeletable() const {
    bool const isFirst = m_row == s_all || m_row == 0;
    return !isFirst || m_owner->GetCard().Kind().definition->GetTail() != &SectionStations();
}

void PartObject::End() {
    CardObject* const owner = m_owner;
    if (owner->IsValid() && m_row != s_all)
        owner->GetCard().RemoveRow(m_row);
    static_cast<PartPopulation&>(GetPopulation()).Forget(*this, *owner);
    m_owner = nullptr;
}

PartPopulation::PartPopulation(DeckSession& session, unsigned int metaclass)
    : Population(session, metaclass) {
    auto const row = std::ranges::find(Parts(), GetType().GetTypeNamed(), &PartRow::part);
    m_ownerAttribute = row->attribute;
}

DeckObject* PartPopulation::Find(unsigned int id) const {
    bool const isThere = id != 0 && id <= m_objects.size() && m_objects[id - 1].IsValid();
    return isThere ? &m_objects[id - 1] : nullptr;
}

void PartPopulation::List(qzStlVector<unsigned int>& ids) const {
    ids.clear();
    for (PartObject const& part : m_objects) {
        if (part.IsValid())
            ids.push_back(part.GetId());
    }
}

std::vector<PartObject*> const& PartPopulation::GetPartsOf(CardObject const& owner) const {
    static std::vector<PartObject*> const s_none;
    auto const found = m_parts.find(&owner);
    return found == m_parts.end() ? s_none : found->second;
}

PartObject& PartPopulation::P_Add(CardObject& owner, unsigned int row) {
    auto const id = static_cast<unsigned int>(m_objects.size()) + 1;
    PartObject& part = m_objects.emplace_back(*this, id, owner, row);
    m_parts[&owner].push_back(&part);
    return part;
}

void PartPopulation::Refresh(CardObject& owner) {
    Card const& card = owner.GetCard();
    auto const& known = m_parts[&owner];
    if (card.Kind().definition->TailFields().front().definition.GetArrayDimension() == 1 &&
        card.Kind().definition->GetTail() == &SectionStations()) {
        if (known.empty())
            P_Add(owner, PartObject::s_all);
        return;
    }
    for (unsigned int row = 0; row < card.CountRows(); ++row) {
        bool const isKnown = std::ranges::find(known, row, &PartObject::GetRow) != known.end();
        if (!isKnown && !card.IsRowBlank(row))
            P_Add(owner, row);
    }
}

void PartPopulation::Forget(PartObject const& part, CardObject const& owner) {
    ++m_gone;
    GetSession().ForgetLists(part);
    auto& parts = m_parts[&owner];
    std::erase(parts, &part);
    for (PartObject* const other : parts) {
        GetSession().ForgetLists(*other);
        if (other->m_row > part.m_row)
            --other->m_row;
    }
    GetSession().ForgetLists(owner);
}

qzReturnStatus PartPopulation::Create(unsigned int id, DeckObject* owner, DeckObject*& created) {
    auto* const card = dynamic_cast<CardObject*>(owner);
    if (id != 0 || card == nullptr)
        return {-1, "Parts count: their ids cannot be chosen."};
    unsigned int const row = card->GetCard().CountRows();
    if (GetPartsOf(*card).size() == 1 && GetPartsOf(*card).front()->GetRow() == PartObject::s_all)
        return {-1, card->GetName() + " has one " + GetType().GetTypeNamed() + " by its nature."};
    if (!card->GetCard().AppendRow())
        return {-1, card->GetName() + " cannot hold another " + GetType().GetTypeNamed() + '.'};
    GetSession().ForgetLists(*card);
    created = &P_Add(*card, row);
    return {};
}

} // namespace qzDeck
