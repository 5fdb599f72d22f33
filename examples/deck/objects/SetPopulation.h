#pragma once

#include "objects/CardObject.h"
#include "objects/Population.h"
#include "objects/metaclasses.h"

#include <map>
#include <memory>
#include <vector>

namespace qzDeck {

class SetPopulation;

/// A set: what is in it names it by its number. One without members is written nowhere.
class SetObject final : public DeckObject {
public:
    SetObject(SetPopulation& population, unsigned int id);

    bool GetValue(unsigned int attributeHandle, qzDescriptor::ValuePtr const*& value) const override;
    qzDescriptor::qzReturnStatus SetValue(Identifier const& attribute,
                                          qzDescriptor::Value const& value) const override;
    bool IsValid() const override { return m_isValid; }
    DeckObject* FindOwner(Identifier& attribute) const override;
    void VisitOwned(OwnedVisitor const& visit) const override;
    void End() override;

private:
    SetPopulation& P_GetSets() const;

    bool m_isValid = true;
};

/// The sets of one kind: those that cards name, and those that were made.
class SetPopulation final : public Population {
public:
    SetPopulation(DeckSession& session, unsigned int metaclass, SetRow const& row);

    DeckObject* Find(unsigned int id) const override;
    void List(qzStlVector<unsigned int>& ids) const override;
    unsigned int GetCount() const override { return static_cast<unsigned int>(m_sets.size()); }
    qzDescriptor::qzReturnStatus Create(unsigned int id, DeckObject* owner, DeckObject*& created) override;

    SetRow const& GetRow() const { return m_row; }
    /// What an object has to be to be in one.
    unsigned int GetMemberMetaclass() const { return m_memberMetaclass; }
    std::vector<CardObject*> const& GetMembersOf(unsigned int id) const;
    /// Takes a card into the set that it names, if that is one of these.
    void Include(CardObject& card);
    /// Looks anew at which cards name which sets.
    void Refresh();
    void Forget(unsigned int id);

private:
    SetRow const& m_row;
    unsigned int m_memberMetaclass;
    std::map<unsigned int, SetObject*> m_sets;
    std::vector<std::unique_ptr<SetObject>> m_objects; // those that are gone, too
    std::map<unsigned int, std::vector<CardObject*>> m_members;
};

} // namespace qzDeck
