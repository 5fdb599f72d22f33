#include "objects/SetPopulation.h"

#include "objects/CardPopulation.h"
#include "objects/DeckRegistry.h"
#include "objects/DeckSession.h"

namespace qzDeck {

using namespace qzDescriptor;

SetObject::SetObject(SetPopulation& population, unsigned int id) : DeckObject(population, id) {}

SetPopulation& SetObject::P_GetSets() const { return static_cast<SetPopulation&>(GetPopulation()); }

bool SetObject::GetValue([[maybe_unused]] unsigned int attributeHandle,
                         [[maybe_unused]] ValuePtr const*& value) const {
    return false; // what it owns is asked of the session
}

qzReturnStatus SetObject::SetValue(Identifier const& attribute, [[maybe_unused]] Value const& value) const {
    if (!m_isValid)
        return {-1, "The object is gone."};
    return {-1, GetDefinition(attribute) == nullptr ? "There is no such attribute."
                                                    : "What an object owns is created and deleted."};
}

DeckObject* SetObject::FindOwner([[maybe_unused]] Identifier& attribute) const { return nullptr; }

void SetObject::VisitOwned(OwnedVisitor const& visit) const {
    Identifier const attribute{qzString(P_GetSets().GetRow().attribute)};
    for (CardObject* const member : P_GetSets().GetMembersOf(GetId()))
        visit(*member, attribute);
}

void SetObject::End() {
    P_GetSets().Forget(GetId());
    m_isValid = false;
}

SetPopulation::SetPopulation(DeckSession& session, unsigned int metaclass, SetRow const& row)
    : Population(session, metaclass),
      m_row(row),
      m_memberMetaclass(session.GetRegistry().FindHandle(qzString(row.member))) {}

DeckObject* SetPopulation::Find(unsigned int id) const {
    auto const found = m_sets.find(id);
    return found == m_sets.end() ? nullptr : found->second;
}

void SetPopulation::List(qzStlVector<unsigned int>& ids) const {
    ids.clear();
    for (auto const& [id, set] : m_sets)
        ids.push_back(id);
}

qzReturnStatus SetPopulation::Create(unsigned int id, [[maybe_unused]] DeckObject* owner,
                                     DeckObject*& created) {
    if (id == 0)
        id = m_sets.empty() ? 1 : m_sets.rbegin()->first + 1;
    if (Find(id) != nullptr)
        return {-1, "The id " + std::to_string(id) + " is taken."};
    m_sets[id] = m_objects.emplace_back(std::make_unique<SetObject>(*this, id)).get();
    created = m_sets[id];
    return {};
}

std::vector<CardObject*> const& SetPopulation::GetMembersOf(unsigned int id) const {
    static std::vector<CardObject*> const s_none;
    auto const found = m_members.find(id);
    return found == m_members.end() ? s_none : found->second;
}

void SetPopulation::Include(CardObject& card) {
    unsigned int const id = card.GetFirstNumber();
    if (id == 0 || !IsMember(TraitsOf(m_row.family), card.GetCard().Name()))
        return;
    DeckObject* created = nullptr;
    if (Find(id) == nullptr)
        Create(id, nullptr, created);
    if (GetSession().GetRegistry().CheckParent(card.GetPopulation().GetMetaclass(), m_memberMetaclass))
        m_members[id].push_back(&card);
}

void SetPopulation::Refresh() {
    m_members.clear();
    for (std::string_view const name : TraitsOf(m_row.family).cards) {
        if (CardPopulation const* const cards = GetSession().FindCards(name))
            cards->ForEach([this](CardObject& card) { Include(card); });
    }
}

void SetPopulation::Forget(unsigned int id) { m_sets.erase(id); }

} // namespace qzDeck
