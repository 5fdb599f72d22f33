#include "facts/references.h"

#include "model/field_value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>
#include <string_view>
#include <unordered_map>

namespace qzDeck {

using qzDescriptor::Value;

namespace {

using CardsByName = std::map<std::string, CardFacts>;
using Values = std::span<Value const>;

/// Data fields, numbered from 1, that name grid points.
struct GridReference {
    std::string_view card;
    std::size_t first;
    std::size_t last;
};
constexpr GridReference s_gridReferences[] = {
    {"CBAR", 3, 4},  {"CBEAM", 3, 4},   {"CHEXA", 3, 22}, {"CHEXA1", 3, 10},
    {"CONM2", 2, 2}, {"CONROD", 2, 3},  {"CQUAD2", 3, 6}, {"CQUAD4", 3, 6},
    {"CROD", 3, 4},  {"CTETRA", 3, 12}, {"CTRIA2", 3, 5}, {"CTRIA3", 3, 5},
    {"FORCE", 2, 2}, {"MOMENT", 2, 2},  {"SPC", 2, 2},    {"SPC", 5, 5},
};

/// Elements whose second data field names a property, and the cards of which it may be.
struct PropertyReference {
    std::string_view card;
    std::string_view target;
};
constexpr PropertyReference s_propertyReferences[] = {
    {"CBAR", "PBAR|PBARL"}, {"CBEAM", "PBEAM|PBEAML"}, {"CQUAD2", "PQUAD2"}, {"CQUAD4", "PSHELL|PCOMP"},
    {"CROD", "PROD"},       {"CTETRA", "PSOLID"},      {"CTRIA2", "PTRIA2"}, {"CTRIA3", "PSHELL|PCOMP"},
};

/// The ids that cards of one or two names share.
class Pool {
public:
    /// Names separated by a bar.
    Pool(CardsByName const& cards, std::string_view names) {
        for (bool isLast = false; !isLast;) {
            std::size_t const bar = names.find('|');
            isLast = bar == std::string_view::npos;
            if (auto const found = cards.find(std::string(names.substr(0, bar))); found != cards.end())
                m_sets.push_back(&found->second.ids);
            names.remove_prefix(isLast ? names.size() : bar + 1);
        }
    }

    bool Contains(WholeNumber const& id) const {
        return std::any_of(m_sets.begin(), m_sets.end(), [&](IdSet const* set) { return set->Contains(id); });
    }

private:
    std::vector<IdSet const*> m_sets;
};

/// A field's whole number, a real such as 5.0 being one.
std::optional<WholeNumber> WholeNumberIn(Value const& value) {
    FieldKind const kind = KindOf(value);
    if (kind == FieldKind::Integer)
        return WholeOf(value);
    if (!IsReal(kind))
        return std::nullopt;
    double const real = RealOf(value);
    if (!std::isfinite(real) || std::trunc(real) != real)
        return std::nullopt;
    std::array<char, 400> digits{}; // the greatest double has 309
    auto const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), real, std::chars_format::fixed, 0);
    return WholeNumber(std::string_view(digits.data(), static_cast<std::size_t>(end.ptr - digits.data())));
}

bool IsInteger(Values values, std::size_t index) {
    return index < values.size() && KindOf(values[index]) == FieldKind::Integer;
}

std::size_t CountMissingPoints(Values values, GridReference const& reference, Pool const& points) {
    std::size_t missing = 0;
    for (std::size_t i = reference.first - 1; i < reference.last; ++i) {
        if (!IsInteger(values, i))
            continue;
        WholeNumber const point = WholeOf(values[i]);
        missing += !point.IsZero() && !points.Contains(point) ? 1U : 0U;
    }
    return missing;
}

bool HasProperty(Values values, Pool const& properties) {
    if (IsInteger(values, 1))
        return properties.Contains(WholeOf(values[1]));
    auto const ownId = values.empty() ? std::nullopt : WholeNumberIn(values[0]);
    return ownId && properties.Contains(*ownId);
}

/// Counts over the cards of one name at a time; names that the deck lacks are left out.
class DanglingCounter {
public:
    explicit DanglingCounter(Model const& model) {
        for (Card const& card : model.Cards())
            m_cards[card.Name()].push_back(&card);
    }

    template <class CountMissing>
    void Count(std::string_view card, std::string_view target, CountMissing countMissing) {
        auto const group = m_cards.find(card);
        if (group == m_cards.end())
            return;
        std::size_t& missing = m_dangling[std::string(card).append("->").append(target)];
        for (Card const* member : group->second)
            missing += countMissing(Values(member->Values()));
    }

    std::map<std::string, std::size_t> Take() { return std::move(m_dangling); }

private:
    std::unordered_map<std::string_view, std::vector<Card const*>> m_cards;
    std::map<std::string, std::size_t> m_dangling;
};

} // namespace

std::map<std::string, std::size_t> CountDanglingReferences(Model const& model, CardsByName const& cards) {
    DanglingCounter counter(model);
    Pool const points(cards, "GRID|SPOINT");
    for (GridReference const& reference : s_gridReferences)
        counter.Count(reference.card, "GRID",
                      [&](Values values) { return CountMissingPoints(values, reference, points); });
    for (PropertyReference const& reference : s_propertyReferences) {
        Pool const properties(cards, reference.target);
        counter.Count(reference.card, reference.target,
                      [&](Values values) { return HasProperty(values, properties) ? 0U : 1U; });
    }
    return counter.Take();
}

} // namespace qzDeck
