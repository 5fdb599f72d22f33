#pragma once

#include "descriptor/Identifier.h"
#include "descriptor/Value.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qzDeck {

/// What all cards of one name share: the name, in capitals, and the identifiers of the data fields, as many
/// as the widest card has.
struct CardKind {
    std::string name;
    std::vector<qzDescriptor::Identifier> fields;
};

/// One card: a value for each data field up to the last that is not blank. A blank field is an empty value.
///
///     Value const* thickness = shell.Find(Identifier(3));
class Card {
public:
    Card(CardKind const& kind, std::uint32_t file, std::uint32_t line,
         std::vector<qzDescriptor::Value> values)
        : m_kind(&kind), m_file(file), m_line(line), m_values(std::move(values)) {}

    std::string const& Name() const { return m_kind->name; }
    CardKind const& Kind() const { return *m_kind; }
    /// The file, by its index in Source::Files, and the line there with the card's name.
    std::uint32_t File() const { return m_file; }
    std::uint32_t Line() const { return m_line; }

    /// The value at index i stands under the kind's identifier at i.
    std::vector<qzDescriptor::Value> const& Values() const { return m_values; }
    /// The value under an identifier; null when the card ends before it or has no such field.
    qzDescriptor::Value const* Find(qzDescriptor::Identifier const& field) const;

private:
    CardKind const* m_kind;
    std::uint32_t m_file;
    std::uint32_t m_line;
    std::vector<qzDescriptor::Value> m_values;
};

} // namespace qzDeck
