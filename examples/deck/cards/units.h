#pragma once

/// What the numbers of a deck measure. A deck is in any consistent system of units and does not say in which.

namespace qzDeck {

struct Unit {
    char const* dimensionality;
    char const* name;
};

namespace unit {

inline constexpr Unit length{"LENGTH", "Length"};
inline constexpr Unit area{"LENGTH^2", "Area"};
inline constexpr Unit secondMoment{"LENGTH^4", "Second moment of area"};
inline constexpr Unit angle{"ANGLE", "Angle"};
inline constexpr Unit force{"FORCE", "Force"};
inline constexpr Unit moment{"FORCE*LENGTH", "Moment"};
inline constexpr Unit stress{"FORCE/LENGTH^2", "Stress"};
inline constexpr Unit mass{"MASS", "Mass"};
inline constexpr Unit massPerLength{"MASS/LENGTH", "Mass per length"};
inline constexpr Unit massPerArea{"MASS/LENGTH^2", "Mass per area"};
inline constexpr Unit density{"MASS/LENGTH^3", "Density"};
inline constexpr Unit inertia{"MASS*LENGTH^2", "Moment of inertia"};
inline constexpr Unit acceleration{"LENGTH/TIME^2", "Acceleration"};
inline constexpr Unit frequency{"1/TIME", "Frequency"};
inline constexpr Unit temperature{"TEMPERATURE", "Temperature"};
inline constexpr Unit expansion{"1/TEMPERATURE", "Thermal expansion"};

} // namespace unit

} // namespace qzDeck
