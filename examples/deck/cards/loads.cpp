#include "cards/declaration.h"

namespace qzDeck {

namespace {

FieldSpec LoadSet() { return SetId("SID", "Load set"); }

FieldSpec Point() { return Reference("G", "Point", Family::Points).Required(); }

/// A vector in a system, and what it is multiplied by.
std::vector<FieldSpec> ScaledVector(FieldSpec const& factor) {
    return {Reference("CID", "System of the vector", Family::Systems).Default(0), factor,
            Real("N1", "First component of the vector").Default(0), Real("N2", "Second component").Default(0),
            Real("N3", "Third component").Default(0)};
}

} // namespace

void DeclareLoads(CardDeclarations& cards) {
    cards.Declare(
        "FORCE", "Force on a point",
        Together({{LoadSet(), Point()},
                  ScaledVector(Real("F", "Force per unit of the vector", unit::force).Required())}));
    cards.Declare(
        "MOMENT", "Moment on a point",
        Together({{LoadSet(), Point()},
                  ScaledVector(Real("M", "Moment per unit of the vector", unit::moment).Required())}));
    cards.Declare(
        "GRAV", "Acceleration of everything",
        Together(
            {{LoadSet()},
             ScaledVector(Real("A", "Acceleration per unit of the vector", unit::acceleration).Required())}));
    cards.Declare("LOAD", "Sum of load sets",
                  {
                      Id("SID", "Load set"),
                      Real("S", "Factor of the sum").Required(),
                  },
                  Repeated({
                      Real("SI", "Factor of the set").Required(),
                      Reference("LI", "Load set", Family::LoadSets).Required(),
                  }));
}

} // namespace qzDeck
