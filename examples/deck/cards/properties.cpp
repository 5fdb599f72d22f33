#include "cards/declaration.h"
#include "cards/tails.h"

namespace qzDeck {

namespace {

FieldSpec PropertyId() { return Id("PID", "Property number"); }

FieldSpec Material() { return Reference("MID", "Material", Family::Materials).Required(); }

std::vector<FieldSpec> StressPoints() {
    std::vector<FieldSpec> fields;
    for (std::string const point : {"C", "D", "E", "F"}) {
        for (std::string const axis : {"1", "2"})
            fields.push_back(Real(point + axis, "Where stresses are worked out", unit::length).Default(0));
    }
    return fields;
}

/// Cross-sections by their shape and dimensions.
std::vector<FieldSpec> Section() {
    std::vector<std::string> types;
    for (std::string_view type : SectionTypes())
        types.emplace_back(type);
    return {PropertyId(), Material(), Text("GROUP", "Where the types are defined"),
            Choice("TYPE", "Shape of the cross-section", types).Required(), Gap(4)};
}

FieldSpec Dimension() {
    return Real("DIM", "Dimension of the cross-section", unit::length).Above(0).Required();
}

FieldSpec MassPerLength() { return Real("NSM", "Mass that carries nothing", unit::massPerLength).Default(0); }

void DeclareShellProperties(CardDeclarations& cards) {
    cards.Declare(
        "PSHELL", "Property of a shell of one layer",
        {
            PropertyId(),
            Reference("MID1", "Material of the membrane", Family::Materials),
            Real("T", "Thickness", unit::length).Above(0).Says("Blank when every element has its own."),
            Reference("MID2", "Material in bending", Family::Materials)
                .AtLeast(-1)
                .Says("-1: of plane strain."),
            Real("12I/T3", "Bending stiffness, as a part of that of a solid plate").Above(0).Default(1),
            Reference("MID3", "Material in transverse shear", Family::Materials),
            Real("TS/T", "Shear thickness, as a part of the thickness").Above(0).Default(.833333),
            Real("NSM", "Mass that carries nothing", unit::massPerArea).Default(0),
            Real("Z1", "Where stresses are worked out", unit::length),
            Real("Z2", "Where stresses are worked out", unit::length),
            Reference("MID4", "Material that couples membrane and bending", Family::Materials),
        });
    cards.Declare(
        "PCOMP", "Property of a shell of several plies",
        {
            PropertyId(),
            Real("Z0", "Distance of the lowest face from the plane of the points", unit::length)
                .Says("Blank: minus half the thickness."),
            Real("NSM", "Mass that carries nothing", unit::massPerArea).Default(0),
            Real("SB", "Allowable shear between plies", unit::stress).AtLeast(0),
            Choice("FT", "Theory of failure", {"HILL", "HOFF", "TSAI", "STRN", "STRESS"}),
            Real("TREF", "Reference temperature", unit::temperature).Default(0),
            Real("GE", "Structural damping").Default(0),
            Choice("LAM", "Symmetry and kind of the laminate", {"SYM", "MEM", "BEND", "SMEAR", "SMCORE"}),
        },
        Repeated({
            Reference("MID", "Material of the ply", Family::Materials).Says("Blank: that of the ply before."),
            Real("T", "Thickness of the ply", unit::length).Above(0).Says("Blank: that of the ply before."),
            Real("THETA", "Direction of the ply", unit::angle).Default(0),
            Choice("SOUT", "Whether its stresses are put out", {"YES", "NO"}).Default("NO"),
        }));
}

void DeclareBarProperties(CardDeclarations& cards) {
    cards.Declare(
        "PBAR", "Property of a bar",
        Together({{
                      PropertyId(),
                      Material(),
                      Real("A", "Area of the cross-section", unit::area).AtLeast(0).Default(0),
                      Real("I1", "Second moment of area, plane 1", unit::secondMoment).AtLeast(0).Default(0),
                      Real("I2", "Second moment of area, plane 2", unit::secondMoment).AtLeast(0).Default(0),
                      Real("J", "Torsional constant", unit::secondMoment).AtLeast(0).Default(0),
                      MassPerLength(),
                      Gap(),
                  },
                  StressPoints(),
                  {
                      Real("K1", "Shear area, as a part of the area, plane 1"),
                      Real("K2", "Shear area, as a part of the area, plane 2"),
                      Real("I12", "Product moment of area", unit::secondMoment).Default(0),
                  }}));
    cards.Declare("PBARL", "Property of a bar by its dimensions", Section(),
                  Stations({Dimension(), MassPerLength()}));
    cards.Declare("PBEAM", "Property of a beam; what follows end A has numbers for names",
                  Together({{
                                PropertyId(),
                                Material(),
                                Real("A", "Area of the cross-section", unit::area).AtLeast(0),
                                Real("I1", "Second moment of area, plane 1", unit::secondMoment).AtLeast(0),
                                Real("I2", "Second moment of area, plane 2", unit::secondMoment).AtLeast(0),
                                Real("I12", "Product moment of area", unit::secondMoment).Default(0),
                                Real("J", "Torsional constant", unit::secondMoment).AtLeast(0).Default(0),
                                MassPerLength(),
                            },
                            StressPoints()}));
    cards.Declare(
        "PBEAML", "Property of a beam by its dimensions", Section(),
        Stations({
            Dimension(),
            MassPerLength(),
            Choice("SO", "Whether stresses are put out at the station", {"YES", "NO"}).Default("YES"),
            Real("X", "Where the station is, as a part of the length").AtLeast(0).AtMost(1).Default(1),
        }));
    cards.Declare("PROD", "Property of a rod",
                  {
                      PropertyId(),
                      Material(),
                      Real("A", "Area of the cross-section", unit::area).AtLeast(0),
                      Real("J", "Torsional constant", unit::secondMoment).Default(0),
                      Real("C", "Torsional stress per moment over J", unit::length).Default(0),
                      MassPerLength(),
                  });
}

void DeclareSolidProperties(CardDeclarations& cards) {
    cards.Declare("PSOLID", "Property of a solid",
                  {
                      PropertyId(),
                      Material(),
                      Reference("CORDM", "System of the material", Family::Systems)
                          .AtLeast(-1)
                          .Default(0)
                          .Says("-1: that of the element."),
                      Anything("IN", "Integration").Says("BUBBLE, GAUSS, TWO, THREE or a number."),
                      Anything("STRESS", "Where stresses are worked out").Says("GRID, GAUSS or a number."),
                      Anything("ISOP", "Scheme of integration").Says("REDUCED, FULL or a number."),
                      Text("FCTN", "Whether it is of a structure or of a fluid"),
                  });
}

} // namespace

void DeclareProperties(CardDeclarations& cards) {
    DeclareShellProperties(cards);
    DeclareBarProperties(cards);
    DeclareSolidProperties(cards);
}

} // namespace qzDeck
