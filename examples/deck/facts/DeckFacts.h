#pragma once

/// What can be counted and summed in a model without knowing what its cards mean, and which references lead
/// nowhere. The numbers are of the fields as written: defaults are not applied.

#include "facts/ExactSum.h"
#include "model/IdSet.h"
#include "model/Model.h"
#include "model/WholeNumber.h"
#include "reader/field_kind.h"

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qzDeck {

inline constexpr std::size_t s_kindCount = static_cast<std::size_t>(FieldKind::Unreadable) + 1;

/// How many fields there are of each kind.
class KindCounts {
public:
    void Add(FieldKind kind) { ++m_counts[static_cast<std::size_t>(kind)]; }
    std::size_t Of(FieldKind kind) const { return m_counts[static_cast<std::size_t>(kind)]; }
    std::size_t OfReals() const;
    std::size_t OfUnreadable() const;

private:
    std::array<std::size_t, s_kindCount> m_counts{};
};

/// One data field of all cards of one name.
struct ColumnFacts {
    KindCounts kinds;
    ExactSum realSum;
    double leastReal = 0.0;
    double greatestReal = 0.0;
    WholeSum integerSum;
};

/// All cards of one name.
struct CardFacts {
    std::size_t count = 0;
    IdSet ids;                        ///< the integers in the first field
    std::vector<ColumnFacts> columns; ///< the first s_columnCount
};
inline constexpr std::size_t s_columnCount = 24;

struct DeckFacts {
    std::map<std::string, CardFacts> cards; ///< by name
    KindCounts kinds;
    std::optional<std::array<ExactSum, 3>> gridSums; ///< of the coordinates, when there are grid points
    std::map<std::string, std::size_t> dangling;     ///< by `CARD->TARGET`
    std::size_t structureErrors = 0;
};

DeckFacts CollectFacts(Model const& model);

} // namespace qzDeck
