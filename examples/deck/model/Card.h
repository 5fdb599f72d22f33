#pragma once

#include "cards/CardDefinition.h"
#include "descriptor/Identifier.h"
#include "descriptor/Value.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qzDeck {

/// What all cards of one name share: the name, in capitals, and the definition, null for unknown cards.
struct CardKind {
    std::string name;
    CardDefinition const* definition;
};

/// One card: a value for each data field up to the last that is not blank. A blank field is an empty value.
/// Fields go by the names of the card's definition, and by their number, from 1, where it has none.
///
///     Value const* thickness = shell.Find(Identifier("T"));
///     shell.Set(Identifier("T"), Value(2.5));
///     Value const* third = unknown.Find(Identifier(3));
///     Value const* plies = laminate.Find(Identifier("T", 0, 1));      // of the second ply
class Card {
public:
    static constexpr std::uint32_t s_noLine = 0xFFFFFFFF;

    Card(CardKind const& kind, std::uint32_t sourceLine, std::vector<qzDescriptor::Value> values)
        : m_kind(&kind), m_sourceLine(sourceLine), m_values(std::move(values)) {}

    std::string const& Name() const { return m_kind->name; }
    CardKind const& Kind() const { return *m_kind; }
    /// The line with the card's name, by its index in Source::Lines; s_noLine for one that was not read.
    std::uint32_t SourceLine() const { return m_sourceLine; }

    /// By their place among the card's data fields.
    std::vector<qzDescriptor::Value> const& Values() const { return m_values; }
    /// What stands at each place of the card, and at the places that it could still fill.
    void Place(PlacedFields& placed, std::size_t rows = 1) const;

    /// The value under an identifier; null when the card ends before it or has no such field.
    qzDescriptor::Value const* Find(qzDescriptor::Identifier const& field) const;
    /// Changes a field: to an integer, a finite real number, a text as fields may hold it, or a blank. False,
    /// changing nothing, for a field that the card has not, and for a value of another type than its field.
    /// A row behind the last one of a repeated field makes it longer.
    bool Set(qzDescriptor::Identifier const& field, qzDescriptor::Value const& value);

    /// How many rows of its list the card holds, blank ones between them included.
    unsigned int CountRows() const;
    bool IsRowBlank(unsigned int row) const;
    /// Adds a row of what blanks stand for behind the others. False when its list has no such rows, or a
    /// blank in none of their fields stands for anything: the row would be none.
    bool AppendRow();
    /// Takes a row out; those behind it move up. False for one that is not there, and for the first station
    /// of a cross-section, without which there are no others.
    bool RemoveRow(unsigned int row);

private:
    void P_TrimBlanks();

    CardKind const* m_kind;
    std::uint32_t m_sourceLine;
    std::vector<qzDescriptor::Value> m_values;
};

} // namespace qzDeck
