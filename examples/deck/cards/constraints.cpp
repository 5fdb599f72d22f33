#include "cards/declaration.h"

namespace qzDeck {

namespace {

FieldSpec ConstraintSet() { return SetId("SID", "Set of constraints"); }

FieldSpec ElementId() { return Id("EID", "Element number"); }

FieldSpec Point(std::string const& name) { return Reference(name, "Point", Family::Points); }

FieldSpec Displacement(std::string const& name) {
    return Real(name, "Displacement it is given", unit::length).Or(unit::angle).Default(0);
}

void DeclareSupports(CardDeclarations& cards) {
    cards.Declare("SPC", "Supports of one or two points",
                  {
                      ConstraintSet(),
                      Point("G1").Required(),
                      Components("C1", "Supported components").Default(0),
                      Displacement("D1"),
                      Point("G2"),
                      Components("C2", "Supported components").Default(0),
                      Displacement("D2"),
                  });
    cards.Declare("SPC1", "Supports of points",
                  {
                      ConstraintSet(),
                      Components("C", "Supported components").Default(0),
                  },
                  Repeated({Point("G").Required().Or(Range())}));
    cards.Declare("SPCADD", "Union of sets of constraints", {Id("SID", "Set of constraints")},
                  Repeated({Reference("S", "Set of constraints", Family::ConstraintSets).Required()}));
}

void DeclareRigidElements(CardDeclarations& cards) {
    cards.Declare("RBE2", "Rigid body that moves with a point",
                  {
                      ElementId(),
                      Point("GN").Required(),
                      Components("CM", "Components that move together").Required(),
                  },
                  Repeated({Point("GM").Required().Or(Range()).Or(
                      Real("ALPHA", "Thermal expansion, behind the points", unit::expansion))}));
    cards.Declare("RBE3", "Motion of a point as the mean of others",
                  {
                      ElementId(),
                      Gap(),
                      Point("REFGRID").Required(),
                      Components("REFC", "Components of the mean").Required(),
                  },
                  Groups({
                      Real("WT", "Weight of the points").Required(),
                      Components("C", "Components that count").Required(),
                      Point("G").Required(),
                      Word("UM", "Begins pairs of points that depend on the others"),
                      Point("GM").Required(),
                      Components("CM", "Components that depend on the others").Required(),
                      Word("ALPHA", "Begins the last number"),
                      Real("A", "Thermal expansion", unit::expansion).Required(),
                  }));
}

} // namespace

void DeclareConstraints(CardDeclarations& cards) {
    DeclareSupports(cards);
    DeclareRigidElements(cards);
}

} // namespace qzDeck
