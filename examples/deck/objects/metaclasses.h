#pragma once

/// The tree of what a deck holds, as tables. Cards are its leaves, by their names.

#include "cards/families.h"

#include <span>
#include <string_view>

namespace qzDeck {

inline constexpr std::string_view s_cardMetaclass = "card"; ///< the parent of cards that nothing is known of

struct MetaclassRow {
    std::string_view name;
    std::string_view parent; ///< empty for a root
};
/// Parents before their children.
std::span<MetaclassRow const> AbstractMetaclasses();

/// The metaclass that cards of a name descend from.
std::string_view ParentOf(std::string_view card);

/// Which fields a card lacks that is written in one of its forms: those that stand at the places of others.
struct FormRow {
    std::string_view card;
    std::string_view name;
    std::span<std::string_view const> lacks;
};
std::span<FormRow const> Forms();

/// Cards with parts: rows of a list that are objects of their own.
struct PartRow {
    std::string_view card;
    std::string_view part;      ///< the metaclass of one row
    std::string_view attribute; ///< under which the card owns them
};
std::span<PartRow const> Parts();

/// Sets, which are on no card of their own: their members name them by number.
struct SetRow {
    std::string_view name;
    std::string_view member; ///< the metaclass of what is in it
    std::string_view attribute;
    Family family;
};
std::span<SetRow const> Sets();

} // namespace qzDeck
