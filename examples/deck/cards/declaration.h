#pragma once

/// The words in which cards are declared, one short block for each:
///
///     cards.Declare("PROD", "Rod property",
///                   {
///                       Id("PID", "Property number"),
///                       Reference("MID", "Material", Family::Materials).Required(),
///                       Real("A", "Area of the cross-section", unit::area).AtLeast(0),
///                       Real("J", "Torsional constant", unit::secondMoment).Default(0),
///                   });
///
/// Fields follow each other on the card; a Gap leaves places blank.

#include "cards/CardDefinition.h"
#include "cards/families.h"
#include "cards/units.h"
#include "descriptor/BoundT.h"

#include <deque>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace qzDeck {

/// A field in the making, with the alternatives at its place.
class FieldSpec {
public:
    FieldSpec(std::string name, std::string displayName, qzDescriptor::BasicType type);

    // What a number may be.
    FieldSpec& Above(double bound) { return P_Bound(bound, Rule::Greater); }
    FieldSpec& AtLeast(double bound) { return P_Bound(bound, Rule::GreaterOrEqual); }
    FieldSpec& Below(double bound) { return P_Bound(bound, Rule::Less); }
    FieldSpec& AtMost(double bound) { return P_Bound(bound, Rule::LessOrEqual); }
    /// What a text may be.
    FieldSpec& OneOf(std::vector<std::string> words);
    /// What a blank stands for.
    FieldSpec& Default(double value);
    FieldSpec& Default(std::string const& word);
    FieldSpec& Required();
    /// What the number measures; a second unit where that depends on something else.
    FieldSpec& In(Unit unit);
    FieldSpec& Or(Unit unit);
    /// A sentence that tells more than the name.
    FieldSpec& Says(std::string const& description);
    FieldSpec& Names(Family family);
    FieldSpec& With(FieldFlag flag);
    /// Says how often it is repeated: 1 when in rows, 2 when in columns too.
    FieldSpec& Dimension(unsigned int arrayDimension);
    /// It stands behind fields of which a card has as many as it likes.
    FieldSpec& WithoutPosition();
    /// What else may stand at the same place.
    FieldSpec& Or(FieldSpec alternative);
    FieldSpec& Blank(std::size_t places);

    /// Appends the field and its alternatives at a place; the answer is the place behind.
    std::size_t AppendTo(std::vector<Field>& fields, std::size_t place) const;

private:
    using Rule = qzDescriptor::BoundT<double>::Rule;

    FieldSpec& P_Bound(double bound, Rule rule);
    template <class T>
    qzDescriptor::Allowables P_NumberAllowables() const;
    qzDescriptor::Allowables P_TextAllowables() const;
    Field P_Make(std::size_t place) const;

    std::string m_name;
    qzDescriptor::Definition m_definition; // without its allowables
    std::vector<std::pair<double, Rule>> m_bounds;
    std::vector<std::string> m_words;
    std::optional<double> m_default;
    std::optional<std::string> m_defaultWord;
    std::size_t m_places = 1; // that it takes up
    bool m_isGap = false;
    bool m_hasPosition = true;
    std::vector<FieldSpec> m_alternatives;
};

FieldSpec Integer(std::string name, std::string displayName);
FieldSpec Real(std::string name, std::string displayName);
FieldSpec Real(std::string name, std::string displayName, Unit unit);
FieldSpec Text(std::string name, std::string displayName);
/// An integer, a real number or a text.
FieldSpec Anything(std::string name, std::string displayName);
FieldSpec Choice(std::string name, std::string displayName, std::vector<std::string> words);
FieldSpec Components(std::string name, std::string displayName);
/// The card's own number.
FieldSpec Id(std::string name, std::string displayName);
/// The number of a set, which many cards share.
FieldSpec SetId(std::string name, std::string displayName);
/// The number of a member of a family. Unless it is required, 0 is none.
FieldSpec Reference(std::string name, std::string displayName, Family family);
/// A word that may stand in place of a number.
FieldSpec Word(std::string const& word, std::string displayName);
/// The word THRU between two ids.
FieldSpec Range();
FieldSpec Gap(std::size_t places = 1);

/// Parts of a card, one after the other.
std::vector<FieldSpec> Together(std::initializer_list<std::vector<FieldSpec>> parts);

/// The fields of a tail and how they are repeated.
struct TailSpec {
    Tail const* tail = nullptr;
    std::vector<FieldSpec> fields;
};
TailSpec Repeated(std::vector<FieldSpec> fields);
TailSpec Stations(std::vector<FieldSpec> fields);
TailSpec Groups(std::vector<FieldSpec> fields);

/// Takes declarations.
class CardDeclarations {
public:
    CardDefinition& Declare(std::string name, std::string title, std::vector<FieldSpec> const& fields,
                            TailSpec const& tail = {});

    std::deque<CardDefinition> Take() { return std::move(m_cards); }

private:
    std::deque<CardDefinition> m_cards;
};

// The declarations, by subject.
void DeclareGeometry(CardDeclarations& cards);
void DeclareElements(CardDeclarations& cards);
void DeclareProperties(CardDeclarations& cards);
void DeclareMaterials(CardDeclarations& cards);
void DeclareLoads(CardDeclarations& cards);
void DeclareConstraints(CardDeclarations& cards);
void DeclareControl(CardDeclarations& cards);

} // namespace qzDeck
