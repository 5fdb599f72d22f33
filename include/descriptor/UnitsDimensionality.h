#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <utility>

namespace qzDescriptor {

/// What a value measures: up to two pairs of a dimensionality, by which unit systems convert it, and the text
/// shown for it.
///
///     UnitsDimensionality pressure("FORCE/LENGTH^2", "Pressure");
///     pressure.GetDimensionalityDisplayName(0);        // "Pressure"
///     pressure.GetDimensionality(1);                   // empty: there is no second pair
class QZDESCRIPTOR_API UnitsDimensionality {
public:
    /// A dimensionality and its display name.
    using Pair = std::pair<qzString, qzString>;

    UnitsDimensionality() = default;
    UnitsDimensionality(qzString const& dimensionality, qzString const& displayName)
        : m_first(dimensionality, displayName) {}
    explicit UnitsDimensionality(Pair first) : m_first(std::move(first)) {}
    UnitsDimensionality(Pair first, Pair second) : m_first(std::move(first)), m_second(std::move(second)) {}

    /// Of pair 0 or 1; for any other index one empty text, the same at every call.
    qzString const& GetDimensionality(unsigned int i) const;
    qzString const& GetDimensionalityDisplayName(unsigned int i) const;

    friend bool operator==(UnitsDimensionality const&, UnitsDimensionality const&) = default;

private:
    Pair m_first;
    Pair m_second;
};

} // namespace qzDescriptor
