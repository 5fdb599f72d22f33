#pragma once

#include "cards/families.h"
#include "descriptor/Definition.h"
#include "descriptor/EntityEventInfo.h"
#include "descriptor/ISession.h"
#include "descriptor/Identifier.h"
#include "descriptor/Value.h"
#include "model/Model.h"
#include "objects/DeckObject.h"

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace qzDeck {

class CardObject;
class CardPopulation;
class DeckRegistry;
class PartObject;
class PartPopulation;
class Population;
class SetPopulation;

/// The objects of a deck over the model that was read from it: cards, the parts of some, and sets. Nothing is
/// copied: what is written through an object is in the model, and in the deck when that is written.
///
///     Entity ply;
///     session.Create(EntityFullType("ply"), ply, laminate, Identifier());
///     session.Get(ply)->SetValue(Identifier("T"), Value(0.5));
///     WriteDeck(session.GetModel(), "thicker.bdf");
///
/// An entity goes with all that it owns; what refers to it leads nowhere then. Listeners are told when all of
/// a change is done, and may do anything, end the session included.
class DeckSession final : public qzDescriptor::ISession {
public:
    using Entity = qzDescriptor::Entity;
    using EntityFullType = qzDescriptor::EntityFullType;
    using Identifier = qzDescriptor::Identifier;
    using qzReturnStatus = qzDescriptor::qzReturnStatus;

    DeckSession(qzString const& name, DeckRegistry& registry, Model model);
    DeckSession(DeckSession const&) = delete;
    DeckSession& operator=(DeckSession const&) = delete;
    ~DeckSession() override;

    DeckRegistry& GetRegistry() const { return m_registry; }
    /// As it stands now. References to its cards are good until the next change.
    Model const& GetModel() const;

    /// As Create, under an id of the caller's choice.
    qzReturnStatus CreateWithId(EntityFullType const& type, unsigned int id, Entity& created,
                                Entity const& owner, Identifier const& ownerAttribute);
    qzReturnStatus Delete(Entity const& entity) override;
    bool Find(EntityFullType const& type, qzString const& name, Entity& entity) const override;
    void GetOwnedEntities(qzDescriptor::EntityListBag& owned, Entity const& owner,
                          Identifier const& ownerAttribute) const override;
    bool GetOwner(Entity const& entity, Entity& owner, Identifier& ownerAttribute) const override;

    DeckObject* FindObject(Entity const& entity) const;
    /// How many entities of exactly this metaclass there are.
    unsigned int GetCount(unsigned int metaclass) const;
    /// The member of a family that has a number; null when there is none.
    DeckObject* FindMember(Family family, unsigned int id) const;
    /// The first card of a name; null without any.
    CardObject* FindFirstCard(std::string_view name) const;
    CardPopulation const* FindCards(std::string_view name) const;
    /// Gives a property or a material another number, and every reference to it. The status says how many
    /// they were.
    qzReturnStatus Renumber(Entity const& card, unsigned int id);

    /// What the next action is told beyond the object that it is started on.
    std::vector<std::string> const& GetActionArguments() const { return m_actionArguments; }
    void SetActionArguments(std::vector<std::string> arguments) { m_actionArguments = std::move(arguments); }

    // For the objects.

    Card const& GetCard(std::uint32_t index) const { return m_model.Cards()[index]; }
    Card& GetCard(std::uint32_t index) { return m_model.Cards()[index]; }
    std::uint32_t AddCard(std::string const& name, std::vector<qzDescriptor::Value> values);
    void RemoveCard(CardObject const& card);
    /// A list that an object makes of its fields, kept until the object changes.
    qzDescriptor::ValuePtr const* GetList(CardObject const& card, unsigned int attribute) const;
    qzDescriptor::ValuePtr const* GetList(PartObject const& part, unsigned int attribute) const;
    void ForgetLists(DeckObject const& object);
    /// What an attribute is for one object alone; null where it is what it is for all.
    qzDescriptor::Definition const* FindOwnDefinition(DeckObject const& object, unsigned int attribute) const;
    void SetOwnDefinition(DeckObject const& object, unsigned int attribute,
                          qzDescriptor::Definition const& definition);
    /// To be called when a field of a card has changed.
    void TellChange(CardObject& card, Identifier const& attribute);
    DeckObject* FindSetOf(CardObject const& card, Identifier& attribute) const;
    void VisitParts(CardObject const& card, DeckObject::OwnedVisitor const& visit) const;
    unsigned int GetHighestId(std::string_view group) const;
    bool IsTaken(std::string_view group, unsigned int id) const;

protected:
    qzDescriptor::Metaobject const* GetMetaobject(Entity const& entity) const override;
    qzReturnStatus P_CreateEntity(EntityFullType const& type, Entity& created, Entity const& owner,
                                  Identifier const& ownerAttribute) const override;
    void P_CollectAll(qzDescriptor::EntityList& out, EntityFullType const& type,
                      std::string const& query) const override;

private:
    void P_Load();
    Population* P_Find(EntityFullType const& type) const;
    Population* P_Get(EntityFullType const& type);
    CardPopulation& P_GetCards(std::string const& name);
    std::vector<CardPopulation*> P_CardPopulations() const;
    unsigned int P_ChangeReferences(CardPopulation& cards, std::string_view referred, int old,
                                    qzDescriptor::Value const& number,
                                    std::vector<qzDescriptor::EntityEventInfo>& events);
    PartPopulation* P_PartsOf(std::string_view card) const;
    /// Whether cards of that name are in sets at all.
    bool P_RefreshSets(std::string_view card);
    qzReturnStatus P_Create(EntityFullType const& type, Entity& created, Entity const& owner);
    qzDescriptor::ValuePtr const* P_KeepList(DeckObject const& object, unsigned int attribute,
                                             qzDescriptor::Value (*make)(DeckObject const&,
                                                                         unsigned int)) const;
    /// What a change makes necessary, and the events that tell of it.
    void P_NoteChange(CardObject& card, Identifier const& attribute,
                      std::vector<qzDescriptor::EntityEventInfo>& events);
    void P_Tell(std::vector<qzDescriptor::EntityEventInfo> const& events) const;

    DeckRegistry& m_registry;
    mutable Model m_model;
    mutable std::vector<std::uint32_t> m_gone;              // cards of the model that are no more
    std::vector<std::unique_ptr<Population>> m_populations; // by metaclass; null where nothing is
    mutable std::atomic<Population*> m_lastFound = nullptr; // most look-ups are for the type of the last one
    std::vector<SetPopulation*> m_sets;
    std::map<std::pair<DeckObject const*, unsigned int>, qzDescriptor::Definition> m_ownDefinitions;
    unsigned int m_wantedId = 0;
    std::vector<std::string> m_actionArguments;
    std::shared_ptr<bool const> m_alive = std::make_shared<bool const>(true);
    mutable std::mutex m_listsMutex;
    mutable std::map<std::pair<DeckObject const*, unsigned int>, qzDescriptor::Value> m_lists;
};

} // namespace qzDeck
