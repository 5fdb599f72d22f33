#include "facts/DeckFacts.h"

#include "facts/references.h"
#include "model/field_value.h"

#include <algorithm>

namespace qzDeck {

using qzDescriptor::Value;

namespace {

void AddReal(ColumnFacts& column, double real) {
    bool const isFirst = column.kinds.OfReals() == 1; // it is already counted
    column.realSum.Add(real);
    column.leastReal = isFirst ? real : std::min(column.leastReal, real);
    column.greatestReal = isFirst ? real : std::max(column.greatestReal, real);
}

void AddField(ColumnFacts& column, FieldKind kind, Value const& value) {
    column.kinds.Add(kind);
    if (IsReal(kind))
        AddReal(column, RealOf(value));
    else if (kind == FieldKind::Integer)
        column.integerSum.Add(WholeOf(value));
}

void AddCard(DeckFacts& facts, CardFacts& kind, Card const& card) {
    ++kind.count;
    auto const& values = card.Values();
    kind.columns.resize(std::max(kind.columns.size(), std::min(values.size(), s_columnCount)));
    for (std::size_t i = 0; i < values.size(); ++i) {
        FieldKind const field = KindOf(values[i]);
        facts.kinds.Add(field);
        if (i == 0 && field == FieldKind::Integer)
            kind.ids.Add(WholeOf(values[i]));
        if (i < kind.columns.size())
            AddField(kind.columns[i], field, values[i]);
    }
}

/// Adds the coordinates of a grid point. A number with a gap in it is not trusted to be one.
void AddGridPoint(std::array<ExactSum, 3>& sums, Card const& point) {
    constexpr std::size_t firstCoordinate = 2;
    auto const& values = point.Values();
    for (std::size_t i = firstCoordinate; i < std::min(values.size(), firstCoordinate + sums.size()); ++i) {
        FieldKind const kind = KindOf(values[i]);
        if (kind == FieldKind::Integer || (IsReal(kind) && kind != FieldKind::GappedExponent))
            sums[i - firstCoordinate].Add(RealOf(values[i]));
    }
}

} // namespace

std::size_t KindCounts::OfReals() const {
    return Of(FieldKind::Real) + Of(FieldKind::RealWithoutPoint) + Of(FieldKind::GappedExponent);
}

std::size_t KindCounts::OfUnreadable() const {
    return Of(FieldKind::Unreadable) + Of(FieldKind::GappedExponent);
}

DeckFacts CollectFacts(Model const& model) {
    DeckFacts facts;
    for (Card const& card : model.Cards()) {
        AddCard(facts, facts.cards[card.Name()], card);
        if (card.Name() != "GRID")
            continue;
        if (!facts.gridSums)
            facts.gridSums.emplace();
        AddGridPoint(*facts.gridSums, card);
    }
    for (auto& [name, kind] : facts.cards)
        kind.ids.Seal();
    facts.dangling = CountDanglingReferences(model);
    auto const isStructural = [](Report const& report) { return IsStructural(report.problem); };
    facts.structureErrors = static_cast<std::size_t>(
        std::count_if(model.GetReports().begin(), model.GetReports().end(), isStructural));
    return facts;
}

} // namespace qzDeck
