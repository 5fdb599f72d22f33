#include "objects/metaclasses.h"

#include <algorithm>

namespace qzDeck {

namespace {

constexpr MetaclassRow s_abstract[] = {
    {s_cardMetaclass, ""},
    {"point", "card"},
    {"coordinate system", "card"},
    {"element", "card"},
    {"shell element", "element"},
    {"solid element", "element"},
    {"line element", "element"},
    {"mass element", "element"},
    {"rigid element", "element"},
    {"property", "card"},
    {"shell property", "property"},
    {"line property", "property"},
    {"solid property", "property"},
    {"material", "card"},
    {"load", "card"},
    {"constraint", "card"},
    {"combination", "card"},
    {"control", "card"},
    {"set", ""},
    {"load set", "set"},
    {"constraint set", "set"},
    {"part", ""},
    {"ply", "part"},
    {"section", "part"},
};

constexpr MetaclassRow s_cards[] = {
    {"GRID", "point"},
    {"SPOINT", "point"},
    {"CORD1R", "coordinate system"},
    {"CORD1C", "coordinate system"},
    {"CORD1S", "coordinate system"},
    {"CORD2R", "coordinate system"},
    {"CORD2C", "coordinate system"},
    {"CORD2S", "coordinate system"},
    {"CQUAD4", "shell element"},
    {"CTRIA3", "shell element"},
    {"CQUAD2", "shell element"},
    {"CTRIA2", "shell element"},
    {"CTETRA", "solid element"},
    {"CHEXA", "solid element"},
    {"CHEXA1", "solid element"},
    {"CBAR", "line element"},
    {"CBEAM", "line element"},
    {"CROD", "line element"},
    {"CONROD", "line element"},
    {"CONM2", "mass element"},
    {"RBE2", "rigid element"},
    {"RBE3", "rigid element"},
    {"PSHELL", "shell property"},
    {"PCOMP", "shell property"},
    {"PBAR", "line property"},
    {"PBARL", "line property"},
    {"PBEAM", "line property"},
    {"PBEAML", "line property"},
    {"PROD", "line property"},
    {"PSOLID", "solid property"},
    {"MAT1", "material"},
    {"MAT2", "material"},
    {"FORCE", "load"},
    {"MOMENT", "load"},
    {"GRAV", "load"},
    {"SPC", "constraint"},
    {"SPC1", "constraint"},
    {"LOAD", "combination"},
    {"SPCADD", "combination"},
    {"PARAM", "control"},
    {"DESVAR", "control"},
    {"EIGRL", "control"},
    {"GRDSET", "control"},
    {"BAROR", "control"},
};

using Names = std::string_view const[];
constexpr Names s_vector = {"X1"};
constexpr Names s_point = {"G0"};
constexpr Names s_angle = {"THETA"};
constexpr Names s_system = {"MCID"};

constexpr FormRow s_forms[] = {
    {"CBAR", "oriented by vector", s_point},  {"CBAR", "oriented by point", s_vector},
    {"CBEAM", "oriented by vector", s_point}, {"CBEAM", "oriented by point", s_vector},
    {"BAROR", "oriented by vector", s_point}, {"BAROR", "oriented by point", s_vector},
    {"CQUAD4", "turned by angle", s_system},  {"CQUAD4", "turned by system", s_angle},
    {"CTRIA3", "turned by angle", s_system},  {"CTRIA3", "turned by system", s_angle},
};

constexpr PartRow s_parts[] = {
    {"PCOMP", "ply", "plies"},
    {"PBARL", "section", "sections"},
    {"PBEAML", "section", "sections"},
};

constexpr SetRow s_sets[] = {
    {"load set", "load", "loads", Family::LoadSets},
    {"constraint set", "constraint", "constraints", Family::ConstraintSets},
};

} // namespace

std::span<MetaclassRow const> AbstractMetaclasses() { return s_abstract; }

std::string_view ParentOf(std::string_view card) {
    auto const* const found =
        std::ranges::find(s_cards, card, [](MetaclassRow const& row) { return row.name; });
    return found == std::end(s_cards) ? s_cardMetaclass : found->parent;
}

std::span<FormRow const> Forms() { return s_forms; }
std::span<PartRow const> Parts() { return s_parts; }
std::span<SetRow const> Sets() { return s_sets; }

} // namespace qzDeck
