#pragma once

#include "objects/CardObject.h"
#include "objects/Population.h"

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

namespace qzDeck {

class PartPopulation;

/// A row of a card's list: a ply of a laminate, a section of a bar.
class PartObject final : public DeckObject {
public:
    static constexpr unsigned int s_all = PlacedField::s_single; ///< the list as a whole is the one part

    PartObject(PartPopulation& population, unsigned int id, CardObject& owner, unsigned int row);

    bool GetValue(unsigned int attributeHandle, qzDescriptor::ValuePtr const*& value) const override;
    qzDescriptor::qzReturnStatus SetValue(Identifier const& attribute,
                                          qzDescriptor::Value const& value) const override;
    bool IsValid() const override { return m_owner != nullptr; }
    DeckObject* FindOwner(Identifier& attribute) const override;
    void VisitOwned(OwnedVisitor const& visit) const override;
    /// False for the first section: the others begin behind it.
    bool IsDeletable() const override;
    void End() override;

    CardObject* GetOwnerCard() const { return m_owner; }
    unsigned int GetRow() const { return m_row; }

private:
    friend class PartPopulation;

    /// The identifier of an attribute as the owner knows it.
    Identifier P_OfOwner(Identifier const& attribute) const;

    CardObject* m_owner; // null when it is gone
    unsigned int m_row;
};

/// The parts of one kind. They count, card by card.
class PartPopulation final : public Population {
public:
    PartPopulation(DeckSession& session, unsigned int metaclass);

    DeckObject* Find(unsigned int id) const override;
    void List(qzStlVector<unsigned int>& ids) const override;
    unsigned int GetCount() const override { return static_cast<unsigned int>(m_objects.size()) - m_gone; }
    qzDescriptor::qzReturnStatus Create(unsigned int id, DeckObject* owner, DeckObject*& created) override;

    /// Under which attribute cards own parts of this kind.
    std::string const& GetOwnerAttribute() const { return m_ownerAttribute; }
    std::vector<PartObject*> const& GetPartsOf(CardObject const& owner) const;
    /// Takes in the rows that a card has come to have.
    void Refresh(CardObject& owner);
    void Forget(PartObject const& part, CardObject const& owner);

private:
    PartObject& P_Add(CardObject& owner, unsigned int row);

    std::string m_ownerAttribute;
    mutable std::deque<PartObject> m_objects; // by their ids, which begin with 1
    std::unordered_map<CardObject const*, std::vector<PartObject*>> m_parts;
    unsigned int m_gone = 0;
};

} // namespace qzDeck
