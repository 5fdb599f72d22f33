#pragma once

#include "cards/Field.h"
#include "descriptor/Value.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzDeck {

/// The values of a card by their place among its data fields.
using Values = std::span<qzDescriptor::Value const>;
using Fields = std::span<Field const>;

/// What stands at one place of a card.
struct PlacedField {
    static constexpr unsigned int s_single = qzDescriptor::Identifier::s_unset;

    Field const* field = nullptr;   ///< null where the definition of the card has none
    unsigned int row = s_single;    ///< of a repeated field, from 0
    unsigned int column = s_single; ///< of a field that is repeated in each row, from 0
    bool isRequired = false;        ///< whether a blank is missing something

    /// The field's name with its row and column; the number of the place, from 1, where there is no field.
    qzDescriptor::Identifier GetIdentifier(std::size_t place) const;
    /// The same for people, who count from 1: `T`, `MID(3)`, `DIM(2,1)`.
    std::string Label(std::size_t place) const;
};
using PlacedFields = std::vector<PlacedField>;

/// How the fields behind the fixed ones of a card are repeated.
class Tail {
public:
    Tail() = default;
    Tail(Tail const&) = delete;
    Tail& operator=(Tail const&) = delete;
    virtual ~Tail() = default;

    /// Appends what stands at the further places, as far as the values reach and until what they have begun
    /// is complete. A tail of equal rows has at least so many.
    virtual void Place(Fields fields, Values values, std::size_t rows, PlacedFields& placed) const = 0;
    /// What a further row begins with, so that it is there: what blanks stand for, in the order of its
    /// fields. Nothing when there are no such rows.
    virtual std::vector<qzDescriptor::Value> BeginRow(Fields fields, unsigned int row) const = 0;
    /// For people.
    virtual std::string_view Note() const = 0;
};

/// What all cards of one name are: fields at fixed places, in their order, then those of the tail. Fields at
/// the same place are alternatives, told apart by the type of the value.
class CardDefinition {
public:
    CardDefinition(std::string name, std::string title, std::vector<Field> fixed, Tail const* tail,
                   std::vector<Field> repeated);

    std::string const& Name() const { return m_name; }
    std::string const& Title() const { return m_title; }
    /// All of them, those of the tail behind the others.
    Fields AllFields() const { return m_fields; }
    Fields FixedFields() const { return AllFields().first(m_fixedCount); }
    Fields TailFields() const { return AllFields().subspan(m_fixedCount); }
    /// Null when all fields are fixed.
    Tail const* GetTail() const { return m_tail; }

    /// The fields that may stand where a field of this card stands, itself among them.
    Fields AlternativesTo(Field const& field) const;

    /// Says which field stands at each place of a card with these values: at all fixed places, and at those
    /// of the tail as far as it goes.
    void Place(Values values, PlacedFields& placed, std::size_t rows = 1) const;

    /// Whether a deck holds it once at most.
    bool IsSingle() const { return m_isSingle; }
    CardDefinition& Once() {
        m_isSingle = true;
        return *this;
    }
    /// The name of the card whose fields stand for the blank ones of this; empty when there is none.
    std::string const& DefaultsCard() const { return m_defaultsCard; }
    CardDefinition& DefaultsFrom(std::string card) {
        m_defaultsCard = std::move(card);
        return *this;
    }

private:
    std::string m_name;
    std::string m_title;
    std::vector<Field> m_fields;
    std::size_t m_fixedCount;
    std::vector<std::pair<std::size_t, std::size_t>> m_alternatives; // by fixed place: the first, how many
    Tail const* m_tail;
    bool m_isSingle = false;
    std::string m_defaultsCard;
};

/// Of the fields at one place the one that takes values of the value's type: the first when the value is
/// blank, absent or fits none; null when there are no fields.
Field const* Choose(Fields alternatives, qzDescriptor::Value const* value);

/// What a blank of the field stands for; empty when that is nothing.
qzDescriptor::Value DefaultOf(Field const& field);

/// Those of the fields that stand at a place.
Fields FieldsAt(Fields fields, std::size_t place);

} // namespace qzDeck
