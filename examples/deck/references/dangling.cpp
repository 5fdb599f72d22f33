#include "references/dangling.h"

#include "model/field_value.h"
#include "references/FamilyIds.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <unordered_map>

namespace qzDeck {

using qzDescriptor::Value;

Family FamilyOf(Field const& field) {
    return static_cast<Family>(field.definition.GetUserParams().GetForeignReference());
}

bool IsSpecialReference(Field const& field, WholeNumber const& number) {
    if (number.IsZero())
        return true;
    bool const isNegative =
        number.IsSmall() && number.Small() < 0 && number.Small() >= std::numeric_limits<int>::min();
    return isNegative && field.definition.GetAllowables().Test(static_cast<int>(number.Small())) == 0;
}

namespace {

bool HasReferences(CardDefinition const* definition) {
    return definition != nullptr &&
           std::any_of(definition->AllFields().begin(), definition->AllFields().end(),
                       [](Field const& field) { return FamilyOf(field) != Family::None; });
}

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

class Finder {
public:
    Finder(Model const& model, Blanks blanks, std::function<void(DanglingReference const&)> const& visit)
        : m_ids(model), m_visit(visit) {
        for (CardKind const& kind : model.Kinds())
            m_hasReferences[&kind] = HasReferences(kind.definition);
        if (blanks == Blanks::AsWritten)
            return;
        for (Card const& card : model.Cards()) {
            if (card.Kind().definition != nullptr && card.Kind().definition->IsSingle())
                m_defaults.emplace(card.Name(), &card);
        }
    }

    void Visit(Card const& card) {
        if (!m_hasReferences[&card.Kind()])
            return;
        card.Place(m_placed);
        std::size_t const end = P_EndOfSingleIds(card.Values());
        for (std::size_t place = 0; place < m_placed.size(); ++place) {
            Field const* const field = m_placed[place].field;
            if (field == nullptr || FamilyOf(*field) == Family::None)
                continue;
            if (HasFlag(*field, FIELD_DEFAULTS_TO_ID))
                P_VisitProperty(card, place);
            else if (place < end)
                P_VisitId(card, place);
        }
    }

private:
    /// The place from which on ids belong to ranges: one before the first range.
    std::size_t P_EndOfSingleIds(Values values) const {
        for (std::size_t place = 1; place < values.size(); ++place) {
            if (m_placed[place].field != nullptr && HasFlag(*m_placed[place].field, FIELD_IS_RANGE))
                return place - 1;
        }
        return values.size();
    }

    void P_VisitId(Card const& card, std::size_t place) const {
        Value const& value = card.Values()[place];
        if (KindOf(value) != FieldKind::Integer)
            return;
        WholeNumber id = WholeOf(value);
        if (!IsSpecialReference(*m_placed[place].field, id))
            P_Look(card, place, std::move(id));
    }

    void P_VisitProperty(Card const& card, std::size_t place) const {
        auto const& values = card.Values();
        if (place < values.size() && KindOf(values[place]) == FieldKind::Integer)
            return P_Look(card, place, WholeOf(values[place]));
        if (!P_IsGivenElsewhere(card, place))
            P_Look(card, place, values.empty() ? std::nullopt : WholeNumberIn(values[0]));
    }

    bool P_IsGivenElsewhere(Card const& card, std::size_t place) const {
        auto const found = m_defaults.find(card.Kind().definition->DefaultsCard());
        return found != m_defaults.end() && place < found->second->Values().size() &&
               KindOf(found->second->Values()[place]) != FieldKind::Blank;
    }

    void P_Look(Card const& card, std::size_t place, std::optional<WholeNumber> id) const {
        Family const family = FamilyOf(*m_placed[place].field);
        if (!id || !m_ids.Contains(family, *id))
            m_visit({card, place, m_placed[place], family, std::move(id)});
    }

    FamilyIds m_ids;
    std::function<void(DanglingReference const&)> const& m_visit;
    std::unordered_map<CardKind const*, bool> m_hasReferences;
    std::unordered_map<std::string_view, Card const*> m_defaults;
    PlacedFields m_placed; // of the card that is visited
};

} // namespace

void FindDanglingReferences(Model const& model, Blanks blanks,
                            std::function<void(DanglingReference const&)> const& visit) {
    Finder finder(model, blanks, visit);
    for (Card const& card : model.Cards())
        finder.Visit(card);
}

} // namespace qzDeck
