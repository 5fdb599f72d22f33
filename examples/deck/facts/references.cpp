#include "facts/references.h"

#include "cards/families.h"
#include "references/dangling.h"

#include <algorithm>

namespace qzDeck {

namespace {

/// A card whose references are counted: those to grid points, those to its property, or both.
struct CountedCard {
    std::string_view name;
    bool countsPoints;
    bool countsProperty;
};
constexpr CountedCard s_countedCards[] = {
    {"CBAR", true, true},   {"CBEAM", true, true},   {"CHEXA", true, false}, {"CHEXA1", true, false},
    {"CONM2", true, false}, {"CONROD", true, false}, {"CQUAD2", true, true}, {"CQUAD4", true, true},
    {"CROD", true, true},   {"CTETRA", true, true},  {"CTRIA2", true, true}, {"CTRIA3", true, true},
    {"FORCE", true, false}, {"MOMENT", true, false}, {"SPC", true, false},
};

/// Whether a field's references are counted: not those of one that may hold something else instead.
bool IsCounted(CardDefinition const& card, Field const& field) {
    auto const counted = std::find_if(std::begin(s_countedCards), std::end(s_countedCards),
                                      [&](CountedCard const& other) { return other.name == card.Name(); });
    if (counted == std::end(s_countedCards) || card.AlternativesTo(field).size() > 1)
        return false;
    auto const family = static_cast<Family>(field.definition.GetUserParams().GetForeignReference());
    return (counted->countsPoints && family == Family::Points) ||
           (counted->countsProperty && HasFlag(field, FIELD_DEFAULTS_TO_ID));
}

std::string KeyOf(CardDefinition const& card, Field const& field) {
    auto const family = static_cast<Family>(field.definition.GetUserParams().GetForeignReference());
    return std::string(card.Name()).append("->").append(TraitsOf(family).label);
}

} // namespace

std::map<std::string, std::size_t> CountDanglingReferences(Model const& model) {
    std::map<std::string, std::size_t> dangling;
    for (CardKind const& kind : model.Kinds()) {
        if (kind.definition == nullptr)
            continue;
        for (Field const& field : kind.definition->AllFields()) {
            if (IsCounted(*kind.definition, field))
                dangling[KeyOf(*kind.definition, field)] = 0;
        }
    }
    FindDanglingReferences(model, Blanks::AsWritten, [&](DanglingReference const& reference) {
        CardDefinition const& card = *reference.card.Kind().definition;
        if (IsCounted(card, *reference.field.field))
            ++dangling[KeyOf(card, *reference.field.field)];
    });
    return dangling;
}

} // namespace qzDeck
