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
    {Family::Points, "GRID", "grid point", true, s_points},
    {Family::ScalarPoints, "SPOINT", "point", false, s_points},
    {Family::Systems, "CORD", "coordinate system", true, s_systems},
    {Family::Elements, "ELEMENT", "element", true, s_elements},
    {Family::ShellProperties, "PSHELL|PCOMP", "shell property", true, s_shellProperties},
    {Family::BarProperties, "PBAR|PBARL", "bar property", true, s_barProperties},
    {Family::BeamProperties, "PBEAM|PBEAML", "beam property", true, s_beamProperties},
    {Family::RodProperties, "PROD", "rod property", true, s_rodProperties},
    {Family::SolidProperties, "PSOLID", "solid property", true, s_solidProperties},
    {Family::OldQuadProperties, "PQUAD2", "plate property", true, s_oldQuadProperties},
    {Family::OldTriangleProperties, "PTRIA2", "plate property", true, s_oldTriangleProperties},
    {Family::Materials, "MAT", "material", true, s_materials},
    {Family::LoadSets, "LOADS", "load set", false, s_loadSets},
    {Family::ConstraintSets, "SPC|SPC1", "set of constraints", false, s_constraintSets},
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
