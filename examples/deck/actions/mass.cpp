// The mass of shells: the area between the corners, times what a unit of it weighs.

#include "actions/actions.h"

#include "cards/families.h"
#include "descriptor/EntityList.h"
#include "descriptor/Value.h"
#include "objects/CardObject.h"
#include "objects/DeckSession.h"
#include "qzutl/qzStlVector.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

namespace qzDeck {

using namespace qzDescriptor;

namespace {

using Vector = std::array<double, 3>;

Vector operator-(Vector const& a, Vector const& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

double AreaBetween(Vector const& a, Vector const& b) {
    Vector const normal = {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
    return 0.5 * std::hypot(normal[0], normal[1], normal[2]);
}

std::optional<double> RealIn(Metaobject const& object, std::string const& attribute) {
    ValuePtr const* value = nullptr;
    double real = 0.0;
    bool const isThere = object.GetValue(Identifier(attribute), value) && value->GetValue(real, 0U, 0U);
    return isThere ? std::optional(real) : std::nullopt;
}

unsigned int NumberIn(Metaobject const& object, std::string const& attribute) {
    ValuePtr const* value = nullptr;
    int number = 0;
    bool const isThere = object.GetValue(Identifier(attribute), value) && value->GetValue(number, 0U, 0U);
    return isThere && number > 0 ? static_cast<unsigned int>(number) : 0;
}

/// Works out one mass. Where it cannot, the reason is what stands in the way.
class Scale {
public:
    explicit Scale(DeckSession const& session) : m_session(session) {}

    std::optional<double> Weigh(Metaobject const& element) {
        auto const area = P_Area(element);
        auto const* const property = P_Find(element, "PID", Family::ShellProperties);
        if (!area || property == nullptr)
            return std::nullopt;
        auto const perArea =
            P_IsLaminate(*property) ? P_LaminatePerArea(*property) : P_PlatePerArea(*property, element);
        return perArea ? std::optional(*area * *perArea) : std::nullopt;
    }
    std::string const& GetReason() const { return m_reason; }

private:
    std::nullopt_t P_Refuse(std::string reason) {
        m_reason = std::move(reason);
        return std::nullopt;
    }

    static bool P_IsLaminate(Metaobject const& property) {
        return property.GetEntityFullType().GetTypeNamed() == "PCOMP";
    }

    Metaobject const* P_Find(Metaobject const& object, std::string const& attribute, Family family) {
        unsigned int const id = NumberIn(object, attribute);
        Metaobject const* const found = id == 0 ? nullptr : m_session.FindMember(family, id);
        if (found == nullptr)
            m_reason = object.GetName() + " names no " + std::string(TraitsOf(family).noun) + " by " +
                       attribute + " that the deck holds";
        return found;
    }

    std::optional<Vector> P_Position(Metaobject const& element, std::string const& corner) {
        Metaobject const* const point = P_Find(element, corner, Family::Points);
        if (point == nullptr)
            return std::nullopt;
        if (NumberIn(*point, "CP") != 0)
            return P_Refuse(point->GetName() + " is given in system " +
                            std::to_string(NumberIn(*point, "CP")) + ", not in the basic one");
        Vector position{};
        for (std::size_t i = 0; i < position.size(); ++i) {
            auto const coordinate = RealIn(*point, "X" + std::to_string(i + 1));
            if (!coordinate)
                return P_Refuse(point->GetName() + " has a coordinate that is no real number");
            position[i] = *coordinate;
        }
        return position;
    }

    /// A quadrilateral has half the product of its diagonals, also when its corners are in no plane.
    std::optional<double> P_Area(Metaobject const& element) {
        bool const isQuad = element.GetDefinition(Identifier("G4")) != nullptr;
        std::vector<Vector> corners;
        for (int i = 1; i <= (isQuad ? 4 : 3); ++i) {
            auto const corner = P_Position(element, "G" + std::to_string(i));
            if (!corner)
                return std::nullopt;
            corners.push_back(*corner);
        }
        return isQuad ? AreaBetween(corners[2] - corners[0], corners[3] - corners[1])
                      : AreaBetween(corners[1] - corners[0], corners[2] - corners[0]);
    }

    std::optional<double> P_Density(Metaobject const& property, unsigned int id) {
        Metaobject const* const material = m_session.FindMember(Family::Materials, id);
        auto const density = material == nullptr ? std::nullopt : RealIn(*material, "RHO");
        return density ? density : P_Refuse(property.GetName() + " has a material without a known density");
    }

    /// The mean of the corners; a blank is the property's thickness, which others may be parts of.
    std::optional<double> P_Thickness(Metaobject const& property, Metaobject const& element) {
        auto const common = RealIn(property, "T");
        bool const areParts = NumberIn(element, "TFLAG") == 1;
        int const corners = element.GetDefinition(Identifier("G4")) != nullptr ? 4 : 3;
        double sum = 0.0;
        for (int i = 1; i <= corners; ++i) {
            auto const own = RealIn(element, "T" + std::to_string(i));
            if (!common && (!own || areParts))
                return P_Refuse(property.GetName() + " has no thickness");
            sum += !own ? *common : areParts ? *own * *common : *own;
        }
        return sum / corners;
    }

    std::optional<double> P_PlatePerArea(Metaobject const& property, Metaobject const& element) {
        auto const thickness = P_Thickness(property, element);
        if (!thickness)
            return std::nullopt;
        auto const density = P_Density(property, NumberIn(property, "MID1"));
        return density ? std::optional(*density * *thickness + RealIn(property, "NSM").value_or(0.0))
                       : std::nullopt;
    }

    /// A blank of a ply is that of the ply before.
    std::optional<double> P_LaminatePerArea(Metaobject const& property) {
        EntityList plies;
        m_session.GetOwnedList(property.GetEntity(), EntityFullType("ply"), Identifier("plies"), plies);
        double sum = 0.0;
        double thickness = 0.0;
        unsigned int material = 0;
        for (unsigned int const id : plies.GetList()) {
            Metaobject const& ply = *m_session.Get(Entity(EntityFullType("ply"), id));
            thickness = RealIn(ply, "T").value_or(thickness);
            material = NumberIn(ply, "MID") != 0 ? NumberIn(ply, "MID") : material;
            auto const density = P_Density(property, material);
            if (!density)
                return std::nullopt;
            sum += *density * thickness;
        }
        qzString form;
        property.GetValueAsString(Identifier("LAM"), form, qzString());
        return (form == "SYM" ? 2.0 : 1.0) * sum + RealIn(property, "NSM").value_or(0.0);
    }

    DeckSession const& m_session;
    std::string m_reason;
};

DeckSession const& SessionOf(Metaobject const& object) {
    return static_cast<DeckSession const&>(*object.GetSession());
}

qzReturnStatus Tell(Metaobject const& object, double mass, std::string const& remark) {
    constexpr int digits = 10; // what is behind them is noise of the sums
    std::array<char, 32> text{};
    auto const end =
        std::to_chars(text.data(), text.data() + text.size(), mass, std::chars_format::general, digits);
    return {0, "The mass of " + object.GetName() + " is " + std::string(text.data(), end.ptr) + remark};
}

} // namespace

qzReturnStatus CanWeighElement(Metaobject const* object) {
    Scale scale(SessionOf(*object));
    return scale.Weigh(*object) ? qzReturnStatus() : qzReturnStatus{-1, scale.GetReason()};
}

qzReturnStatus WeighElement(Metaobject const* object) {
    Scale scale(SessionOf(*object));
    auto const mass = scale.Weigh(*object);
    return mass ? Tell(*object, *mass, "") : qzReturnStatus{-1, scale.GetReason()};
}

qzReturnStatus WeighProperty(Metaobject const* object) {
    DeckSession const& session = SessionOf(*object);
    Scale scale(session);
    double sum = 0.0;
    unsigned int count = 0;
    for (char const* type : {"CQUAD4", "CTRIA3"}) {
        EntityList elements;
        session.Collect(elements, EntityFullType(qzString(type)),
                        "PID = " + std::to_string(object->GetEntity().GetId()));
        for (unsigned int const id : elements.GetList()) {
            Metaobject const& element = *session.Get(Entity(EntityFullType(qzString(type)), id));
            auto const mass = scale.Weigh(element);
            if (!mass)
                return {-1, element.GetName() + " cannot be weighed: " + scale.GetReason()};
            sum += *mass;
            ++count;
        }
    }
    return Tell(*object, sum, " (" + std::to_string(count) + (count == 1 ? " element)" : " elements)"));
}

} // namespace qzDeck
