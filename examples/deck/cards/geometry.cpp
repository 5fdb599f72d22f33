#include "cards/declaration.h"

namespace qzDeck {

namespace {

/// A system given by points: its origin, one on its z axis, one in its xz plane.
void DeclareSystemByCoordinates(CardDeclarations& cards, std::string const& name, std::string const& title) {
    cards.Declare(name, title,
                  {
                      Id("CID", "System number"),
                      Reference("RID", "System of the coordinates below", Family::Systems).Default(0),
                      Real("A1", "First coordinate of the origin", unit::length).Default(0),
                      Real("A2", "Second coordinate of the origin", unit::length).Default(0).Or(unit::angle),
                      Real("A3", "Third coordinate of the origin", unit::length).Default(0).Or(unit::angle),
                      Real("B1", "First coordinate of a point on the z axis", unit::length).Default(0),
                      Real("B2", "Second coordinate of the point", unit::length).Default(0).Or(unit::angle),
                      Real("B3", "Third coordinate of the point", unit::length).Default(0).Or(unit::angle),
                      Real("C1", "First coordinate of a point in the xz plane", unit::length).Default(0),
                      Real("C2", "Second coordinate of the point", unit::length).Default(0).Or(unit::angle),
                      Real("C3", "Third coordinate of the point", unit::length).Default(0).Or(unit::angle),
                  });
}

void DeclareSystemByPoints(CardDeclarations& cards, std::string const& name, std::string const& title) {
    cards.Declare(name, title, {},
                  Repeated({
                      Id("CID", "System number"),
                      Reference("G1", "Origin", Family::Points).Required(),
                      Reference("G2", "Point on the z axis", Family::Points).Required(),
                      Reference("G3", "Point in the xz plane", Family::Points).Required(),
                  }));
}

} // namespace

void DeclareGeometry(CardDeclarations& cards) {
    auto const positionSystem = Reference("CP", "System of the coordinates", Family::Systems).Default(0);
    auto const displacementSystem =
        Reference("CD", "System of the displacements", Family::Systems)
            .AtLeast(-1)
            .Default(0)
            .Says("-1 makes it a point of a fluid, which has a pressure and no displacements.");
    auto const supports = Components("PS", "Permanently supported components").Default(0);
    auto const superelement = Integer("SEID", "Superelement").AtLeast(0).Default(0);

    cards
        .Declare("GRID", "Grid point",
                 {
                     Id("ID", "Point number"),
                     positionSystem,
                     Real("X1", "First coordinate", unit::length).Default(0),
                     Real("X2", "Second coordinate", unit::length).Or(unit::angle).Default(0),
                     Real("X3", "Third coordinate", unit::length).Or(unit::angle).Default(0),
                     displacementSystem,
                     supports,
                     superelement,
                 })
        .DefaultsFrom("GRDSET");
    cards
        .Declare("GRDSET", "What stands for blank fields of grid points",
                 {
                     Gap(),
                     positionSystem,
                     Gap(3),
                     displacementSystem,
                     supports,
                     superelement,
                 })
        .Once();
    cards.Declare("SPOINT", "Scalar points", {}, Repeated({Id("ID", "Point number").Or(Range())}));
    DeclareSystemByPoints(cards, "CORD1R", "Rectangular system by points");
    DeclareSystemByPoints(cards, "CORD1C", "Cylindrical system by points");
    DeclareSystemByPoints(cards, "CORD1S", "Spherical system by points");
    DeclareSystemByCoordinates(cards, "CORD2R", "Rectangular system by coordinates");
    DeclareSystemByCoordinates(cards, "CORD2C", "Cylindrical system by coordinates");
    DeclareSystemByCoordinates(cards, "CORD2S", "Spherical system by coordinates");
}

} // namespace qzDeck
