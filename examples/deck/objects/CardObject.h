#pragma once

#include "model/Card.h"
#include "objects/DeckObject.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qzDeck {

class CardPopulation;

/// Where the value of an attribute comes from.
enum class Origin : std::uint8_t {
    Nowhere,      ///< the field is blank, and that stands for nothing; or another one stands in its place
    Written,      ///< the card has it
    Default,      ///< a blank stands for it
    OwnId,        ///< a blank stands for the number of the card
    DefaultsCard, ///< another card of the deck says what a blank stands for
    Computed      ///< it is made of several fields
};

/// One card as an object.
///
/// A blank attribute has the value that the blank stands for, and none when it stands for nothing. What is of
/// another type than its field is given as it stands, but an integer 0 among real numbers, which is 0.0. An
/// attribute that the card repeats is a list, with what a blank stands for, or 0 or an empty text, where it
/// is blank; `Identifier("T", 0, 2)` names one element.
class CardObject final : public DeckObject {
public:
    CardObject(CardPopulation& population, std::uint32_t card, unsigned int id);

    /// The names of the metaclass, then the numbers of fields that have no name.
    bool GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const override;
    qzDescriptor::Definition const* GetDefinition(Identifier const& attribute) const override;
    bool GetValue(Identifier const& attribute, qzDescriptor::ValuePtr const*& value) const override;
    bool GetValue(unsigned int attributeHandle, qzDescriptor::ValuePtr const*& value) const override;
    /// An empty value makes the field blank.
    qzDescriptor::qzReturnStatus SetValue(Identifier const& attribute,
                                          qzDescriptor::Value const& value) const override;
    bool IsValid() const override { return m_card != Card::s_noLine; }

    DeckObject* FindOwner(Identifier& attribute) const override;
    void VisitOwned(OwnedVisitor const& visit) const override;
    void End() override;

    Card const& GetCard() const;
    Card& GetCard();
    std::uint32_t GetCardIndex() const { return m_card; }
    Origin GetOrigin(Identifier const& attribute) const;
    CardPopulation& GetCards() const;
    /// The first field as an unsigned number: the id, or the set; 0 when it is none.
    unsigned int GetFirstNumber() const;

protected:
    /// For this card alone, and as long as its session lives: a deck has no place for it.
    bool P_SetAllowables(Identifier const& attribute, qzDescriptor::Allowables const& allowables) override;

private:
    friend class CardPopulation;

    std::optional<std::string> P_FindFault(Field const* field, qzDescriptor::Value const& value) const;
    qzDescriptor::qzReturnStatus P_SetList(Identifier const& attribute,
                                           qzDescriptor::Value const& list) const;
    qzDescriptor::qzReturnStatus P_Check(Field const* field, qzDescriptor::Value const& value) const;

    std::uint32_t m_card; // by its index in the model; s_noLine when it is gone
};

} // namespace qzDeck
