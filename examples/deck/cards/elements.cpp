#include "cards/declaration.h"

namespace qzDeck {

namespace {

FieldSpec ElementId() { return Id("EID", "Element number"); }

/// The property of an element: the one with its own number when blank.
FieldSpec Property(Family family) {
    return Reference("PID", "Property", family).Above(0).With(FIELD_DEFAULTS_TO_ID);
}

FieldSpec End(std::string const& name, std::string const& displayName) {
    return Reference(name, displayName, Family::Points).Required();
}

std::vector<FieldSpec> Corners(int count) {
    std::vector<FieldSpec> fields;
    for (int i = 1; i <= count; ++i)
        fields.push_back(Reference("G" + std::to_string(i), "Corner", Family::Points).Required());
    return fields;
}

/// Points on edges, which an element has or has not.
std::vector<FieldSpec> MidsidePoints(int first, int last) {
    std::vector<FieldSpec> fields;
    for (int i = first; i <= last; ++i)
        fields.push_back(Reference("G" + std::to_string(i), "Point on an edge", Family::Points));
    return fields;
}

FieldSpec MaterialAngle(std::string const& name) {
    return Real(name, "Material direction, from side G1-G2", unit::angle).Default(0);
}

FieldSpec MaterialDirection() {
    return MaterialAngle("THETA").Or(
        Reference("MCID", "System whose x axis is the material direction", Family::Systems));
}

FieldSpec ShellOffset() {
    return Real("ZOFFS", "Offset from the plane of the points", unit::length).Default(0);
}

std::vector<FieldSpec> CornerThicknesses(int count) {
    std::vector<FieldSpec> fields = {Integer("TFLAG", "What the thicknesses are")
                                         .AtLeast(0)
                                         .AtMost(1)
                                         .Default(0)
                                         .Says("1: parts of the property's thickness.")};
    for (int i = 1; i <= count; ++i)
        fields.push_back(Real("T" + std::to_string(i), "Thickness at a corner", unit::length)
                             .AtLeast(0)
                             .Says("Blank: that of the property."));
    return fields;
}

/// The direction of a bar's cross-section, and in which systems this and the offsets are given.
std::vector<FieldSpec> Orientation(FieldSpec const& otherFlag) {
    return {Real("X1", "First component of the orientation vector")
                .Or(Reference("G0", "Point to which the vector shows", Family::Points)),
            Real("X2", "Second component"), Real("X3", "Third component"),
            Choice("OFFT", "Systems of vector and offsets",
                   {"GGG", "BGG", "GGO", "BGO", "GOG", "BOG", "GOO", "BOO"})
                .Default("GGG")
                .Or(otherFlag)};
}

FieldSpec VectorFlag() {
    return Integer("F", "Form of the orientation").AtLeast(1).AtMost(2).Says("1: X1 to X3; 2: G0.");
}

std::vector<FieldSpec> BarFields(Family properties, FieldSpec const& otherFlag) {
    std::vector<FieldSpec> fields =
        Together({{ElementId(), Property(properties), End("GA", "End A"), End("GB", "End B")},
                  Orientation(otherFlag),
                  {Components("PA", "Released at end A"), Components("PB", "Released at end B")}});
    for (std::string const end : {"A", "B"}) {
        for (int i = 1; i <= 3; ++i)
            fields.push_back(
                Real("W" + std::to_string(i) + end, "Offset of end " + end, unit::length).Default(0));
    }
    return fields;
}

void DeclareSurfaces(CardDeclarations& cards) {
    cards.Declare("CQUAD4", "Shell with four corners",
                  Together({{ElementId(), Property(Family::ShellProperties)},
                            Corners(4),
                            {MaterialDirection(), ShellOffset(), Gap()},
                            CornerThicknesses(4)}));
    cards.Declare("CTRIA3", "Shell with three corners",
                  Together({{ElementId(), Property(Family::ShellProperties)},
                            Corners(3),
                            {MaterialDirection(), ShellOffset(), Gap(2)},
                            CornerThicknesses(3)}));
    cards.Declare(
        "CQUAD2", "Plate with four corners",
        Together({{ElementId(), Property(Family::OldQuadProperties)}, Corners(4), {MaterialAngle("TH")}}));
    cards.Declare(
        "CTRIA2", "Plate with three corners",
        Together(
            {{ElementId(), Property(Family::OldTriangleProperties)}, Corners(3), {MaterialAngle("TH")}}));
}

void DeclareSolids(CardDeclarations& cards) {
    cards.Declare(
        "CTETRA", "Tetrahedron, with points on all edges or on none",
        Together({{ElementId(), Property(Family::SolidProperties)}, Corners(4), MidsidePoints(5, 10)}));
    cards.Declare(
        "CHEXA", "Hexahedron, with points on edges or without",
        Together({{ElementId(), Property(Family::SolidProperties)}, Corners(8), MidsidePoints(9, 20)}));
    cards.Declare(
        "CHEXA1", "Hexahedron made of tetrahedra",
        Together({{ElementId(), Reference("MID", "Material", Family::Materials).Required()}, Corners(8)}));
}

void DeclareLines(CardDeclarations& cards) {
    cards.Declare("CBAR", "Bar of one cross-section", BarFields(Family::BarProperties, VectorFlag()))
        .DefaultsFrom("BAROR");
    cards
        .Declare("BAROR", "What stands for blank fields of bars",
                 Together({{Gap(), Reference("PID", "Property", Family::BarProperties), Gap(2)},
                           Orientation(VectorFlag())}))
        .Once();
    cards.Declare("CBEAM", "Beam, whose cross-section may change",
                  Together({BarFields(Family::BeamProperties, Real("BIT", "Built-in twist", unit::angle)),
                            {Reference("SA", "Point for the warping of end A", Family::ScalarPoints),
                             Reference("SB", "Point for the warping of end B", Family::ScalarPoints)}}));
    cards.Declare("CROD", "Rod",
                  {
                      ElementId(),
                      Property(Family::RodProperties),
                      End("G1", "End A"),
                      End("G2", "End B"),
                  });
    cards.Declare("CONROD", "Rod that holds its own property",
                  {
                      ElementId(),
                      End("G1", "End A"),
                      End("G2", "End B"),
                      Reference("MID", "Material", Family::Materials).Required(),
                      Real("A", "Area of the cross-section", unit::area).AtLeast(0),
                      Real("J", "Torsional constant", unit::secondMoment).Default(0),
                      Real("C", "Torsional stress per moment over J", unit::length).Default(0),
                      Real("NSM", "Mass that carries nothing", unit::massPerLength).Default(0),
                  });
}

void DeclareMasses(CardDeclarations& cards) {
    auto const product = [](std::string const& name) {
        return Real(name, "Product of inertia", unit::inertia).Default(0);
    };
    auto const inertia = [](std::string const& name) {
        return Real(name, "Moment of inertia", unit::inertia).AtLeast(0).Default(0);
    };
    cards.Declare("CONM2", "Mass at a point",
                  {
                      ElementId(),
                      Reference("G", "Point", Family::Points).Required(),
                      Reference("CID", "System of offset and inertia", Family::Systems)
                          .AtLeast(-1)
                          .Default(0)
                          .Says("-1: the offset is the position of the mass."),
                      Real("M", "Mass", unit::mass).AtLeast(0),
                      Real("X1", "First component of the offset", unit::length).Default(0),
                      Real("X2", "Second component", unit::length).Default(0),
                      Real("X3", "Third component", unit::length).Default(0),
                      Gap(),
                      inertia("I11"),
                      product("I21"),
                      inertia("I22"),
                      product("I31"),
                      product("I32"),
                      inertia("I33"),
                  });
}

} // namespace

void DeclareElements(CardDeclarations& cards) {
    DeclareSurfaces(cards);
    DeclareSolids(cards);
    DeclareLines(cards);
    DeclareMasses(cards);
}

} // namespace qzDeck
