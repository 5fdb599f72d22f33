#pragma once

/// Families of cards that share their ids: the grid points, the materials, the properties of one element. A
/// reference names one member of a family by its id.

#include <cstdint>
#include <span>
#include <string_view>

namespace qzDeck {

/// The codes that definitions carry as foreign references; 0 is none.
enum class Family : std::uint32_t {
    None,
    Points,
    ScalarPoints,
    Systems,
    Elements,
    ShellProperties,
    BarProperties,
    BeamProperties,
    RodProperties,
    SolidProperties,
    OldQuadProperties,
    OldTriangleProperties,
    Materials,
    LoadSets,
    ConstraintSets
};

struct FamilyTraits {
    Family family;
    std::string_view label;                  ///< what references to it are called: `PBAR|PBARL`
    std::string_view noun;                   ///< of one member: `bar property`
    bool hasUniqueIds;                       ///< a set of loads has many cards of one id
    std::span<std::string_view const> cards; ///< declared ones and others; each begins with its id
};

/// All but None.
std::span<FamilyTraits const> AllFamilies();

FamilyTraits const& TraitsOf(Family family);

/// Whether cards of this name belong to a family.
bool IsMember(FamilyTraits const& family, std::string_view card);

} // namespace qzDeck
