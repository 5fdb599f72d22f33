#pragma once

/// Which lines belong to one card.

#include "reader/Report.h"
#include "reader/Source.h"

#include <cstdint>
#include <vector>

namespace qzDeck {

/// Whether a line with this field 1 continues a card.
inline bool IsContinuation(std::string_view firstField) {
    return firstField.empty() || firstField.front() == '+' || firstField.front() == '*';
}

/// The name of a card in field 1 of its first line: without the mark of large fields.
std::string_view CardName(std::string_view firstField);

/// What a parent's field 10 and its child's field 1 have in common: all but the first character.
std::string_view ContinuationIdentifier(std::string_view mark);

/// Lines by their index in Source::Lines.
struct CardLines {
    std::uint32_t first;
    std::uint32_t last;
};

/// The cards of a source, each a chain of lines.
struct Assembly {
    static constexpr std::uint32_t s_none = 0xFFFFFFFF;

    std::vector<CardLines> cards;
    std::vector<std::uint32_t> next;    ///< by line: the one that continues it, or s_none
    std::vector<std::uint32_t> orphans; ///< continuation lines of no card
};

/// A continuation without an identifier, or with that of the line before, belongs to the card before it. Any
/// other belongs to the card that ends with its identifier, wherever it stands, if exactly one does.
Assembly Assemble(Source const& source, Reports& reports);

} // namespace qzDeck
