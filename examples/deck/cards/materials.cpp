#include "cards/declaration.h"

namespace qzDeck {

namespace {

FieldSpec MaterialId() { return Id("MID", "Material number"); }

FieldSpec Density() { return Real("RHO", "Density", unit::density).AtLeast(0).Default(0); }

FieldSpec Expansion(std::string const& name) {
    return Real(name, "Thermal expansion", unit::expansion).Default(0);
}

std::vector<FieldSpec> Limits() {
    return {Real("ST", "Limit of tension", unit::stress).Default(0),
            Real("SC", "Limit of compression", unit::stress).Default(0),
            Real("SS", "Limit of shear", unit::stress).Default(0)};
}

} // namespace

void DeclareMaterials(CardDeclarations& cards) {
    auto const derived = "Of E, G and NU one may be blank: G = E / 2 (1 + NU).";
    auto const reference =
        Real("TREF", "Temperature at which nothing is strained", unit::temperature).Default(0);
    auto const damping = Real("GE", "Structural damping").Default(0);
    cards.Declare("MAT1", "Material that is the same in all directions",
                  Together({{
                                MaterialId(),
                                Real("E", "Young's modulus", unit::stress).AtLeast(0).Says(derived),
                                Real("G", "Shear modulus", unit::stress).AtLeast(0).Says(derived),
                                Real("NU", "Poisson's ratio").Above(-1).Below(0.5).Says(derived),
                                Density(),
                                Expansion("A"),
                                reference,
                                damping,
                            },
                            Limits(),
                            {Reference("MCSID", "System of the material", Family::Systems)}}));
    std::vector<FieldSpec> stiffness;
    for (std::string const name : {"G11", "G12", "G13", "G22", "G23", "G33"})
        stiffness.push_back(Real(name, "Stiffness in the plane", unit::stress).Default(0));
    cards.Declare(
        "MAT2", "Material of a surface, with a stiffness matrix",
        Together({{MaterialId()},
                  stiffness,
                  {Density(), Expansion("A1"), Expansion("A2"), Expansion("A3"), reference, damping},
                  Limits()}));
}

} // namespace qzDeck
