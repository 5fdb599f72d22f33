#include "cards/families.h"

#include <algorithm>

namespace qzDeck {

namespace {

using Names = std::string_view const[];

constexpr Names s_points = {"GRID", "SPOINT"};
constexpr Names s_systems = {"CORD1R", "CORD1C", "CORD1S", "CORD2R", "CORD2C", "CORD2S"};
constexpr Names s_elements = {"CBAR",   "CBEAM",  "CBEND", "CBUSH",  "CELAS1", "CELAS2", "CHEXA",
                              "CHEXA1", "CONM1",  "CONM2", "CONROD", "CPENTA", "CQUAD2", "CQUAD4",
                              "CQUAD8", "CQUADR", "CROD",  "CSHEAR", "CTETRA", "CTRIA2", "CTRIA3",
                              "CTRIA6", "CTRIAR", "CTUBE", "RBAR",   "RBE1",   "RBE2",   "RBE3"};
constexpr Names s_shellProperties = {"PSHELL", "PCOMP"};
constexpr Names s_barProperties = {"PBAR", "PBARL"};
constexpr Names s_beamProperties = {"PBEAM", "PBEAML"};
constexpr Names s_rodProperties = {"PROD"};
constexpr Names s_solidProperties = {"PSOLID"};
constexpr Names s_oldQuadProperties = {"PQUAD2"};
constexpr Names s_oldTriangleProperties = {"PTRIA2"};
constexpr Names s_materials = {"MAT1", "MAT2", "MAT3", "MAT8", "MAT9", "MAT10", "MAT11"};
constexpr Names s_loadSets = {"ACCEL",  "ACCEL1",  "FORCE",   "FORCE1", "FORCE2",  "GRAV",
                              "MOMENT", "MOMENT1", "MOMENT2", "PLOAD",  "PLOAD1",  "PLOAD2",
                              "PLOAD3", "PLOAD4",  "PLOADX1", "RFORCE", "RFORCE1", "SLOAD"};
constexpr Names s_constraintSets = {"SPC", "SPC1", "SPCAX"};

constexpr FamilyTraits s_families[] = {
    {"GRID", "grid point", s_points, Family::Points, true},
    {"SPOINT", "point", s_points, Family::ScalarPoints, false},
    {"CORD", "coordinate system", s_systems, Family::Systems, true},
    {"ELEMENT", "element", s_elements, Family::Elements, true},
    {"PSHELL|PCOMP", "shell property", s_shellProperties, Family::ShellProperties, true},
    {"PBAR|PBARL", "bar property", s_barProperties, Family::BarProperties, true},
    {"PBEAM|PBEAML", "beam property", s_beamProperties, Family::BeamProperties, true},
    {"PROD", "rod property", s_rodProperties, Family::RodProperties, true},
    {"PSOLID", "solid property", s_solidProperties, Family::SolidProperties, true},
    {"PQUAD2", "plate property", s_oldQuadProperties, Family::OldQuadProperties, true},
    {"PTRIA2", "plate property", s_oldTriangleProperties, Family::OldTriangleProperties, true},
    {"MAT", "material", s_materials, Family::Materials, true},
    {"LOADS", "load set", s_loadSets, Family::LoadSets, false},
    {"SPC|SPC1", "set of constraints", s_constraintSets, Family::ConstraintSets, false},
};

} // namespace

std::span<FamilyTraits const> AllFamilies() { return s_families; }

FamilyTraits const& TraitsOf(Family family) {
    auto const index = static_cast<std::size_t>(family) - 1;
    return s_families[index];
}

bool IsMember(FamilyTraits const& family, std::string_view card) {
    return std::find(family.cards.begin(), family.cards.end(), card) != family.cards.end();
}

} // namespace qzDeck
