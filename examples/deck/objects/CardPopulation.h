#pragma once

#include "descriptor/ValuePtr.h"
#include "objects/CardObject.h"
#include "objects/Population.h"

#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzDeck {

/// The cards of one name.
///
/// The id of a card is the number it has among its family. Where cards have no numbers of their own, and
/// where that is no id or taken by an earlier card of the name, it counts: the next one behind the highest.
class CardPopulation final : public Population {
public:
    CardPopulation(DeckSession& session, unsigned int metaclass, CardKind const& kind);

    DeckObject* Find(unsigned int id) const override { return FindCard(id); }
    void List(qzStlVector<unsigned int>& ids) const override;
    unsigned int GetCount() const override { return static_cast<unsigned int>(m_objects.size()) - m_gone; }
    qzDescriptor::qzReturnStatus Create(unsigned int id, DeckObject* owner, DeckObject*& created) override;

    std::string const& GetCardName() const { return m_name; }
    CardDefinition const* GetDefinition() const { return m_definition; }
    /// The group of cards among which the number is unique; empty when it is not.
    std::string_view GetIdGroup() const { return m_idGroup; }

    CardObject* FindCard(unsigned int id) const;
    template <class Visit>
    void ForEach(Visit const& visit) const {
        for (CardObject& object : m_objects) {
            if (object.IsValid())
                visit(object);
        }
    }

    /// Takes in a card of the model that is not among its cards yet. Ids of those that count, and of those
    /// that have no proper one, are given by Number.
    void Add(std::uint32_t card);
    void Number();
    void Forget(CardObject const& object);
    /// Follows the model, from which cards have been taken out.
    void MoveUp(std::vector<std::uint32_t> const& gone);
    /// Gives a card another id, which is free.
    void Renumber(CardObject& object, unsigned int id);
    unsigned int GetHighestId() const { return m_highestId; }

    struct Reading {
        qzDescriptor::ValuePtr const* value = nullptr;
        Origin origin = Origin::Nowhere;
    };
    /// The value of an attribute by its index in the metaclass.
    Reading Read(CardObject const& object, unsigned int attribute) const;
    /// The field behind an attribute; null for a relation.
    Field const* GetField(unsigned int attribute) const;

private:
    /// How the value of an attribute is found.
    struct Source {
        enum Kind : std::uint8_t { Nothing, AtPlace, ByName, List };
        Kind kind = Nothing;
        bool isFirst = true; // of the fields at its place
        Field const* field = nullptr;
        std::size_t place = 0;
        Fields alternatives; // those at its place, itself among them; none when it is the only one
    };

    void P_FindSources();
    Reading P_ReadPlace(Card const& card, Source const& source, unsigned int attribute) const;
    Reading P_ReadBlank(Card const& card, Source const& source, unsigned int attribute) const;
    qzDescriptor::Value const* P_FindDefault(std::size_t place) const;
    void P_Index();
    void P_InsertIntoIndex(unsigned int id, unsigned int place);

    std::string m_name;
    CardDefinition const* m_definition;
    std::string m_idGroup; ///< cards of one group share their numbers
    std::vector<Source> m_sources;
    mutable std::deque<CardObject> m_objects;                   // whose ids ascend while there is no index
    std::vector<std::pair<unsigned int, unsigned int>> m_index; // ids and places in m_objects, by id
    bool m_isIndexed = false;
    unsigned int m_gone = 0;
    unsigned int m_highestId = 0;
};

} // namespace qzDeck
