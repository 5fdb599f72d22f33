#include "commands/object_page.h"

#include "cards/registry.h"
#include "commands/field_words.h"
#include "describe/card_page.h"
#include "descriptor/Definition.h"
#include "objects/CardPopulation.h"
#include "objects/DeckSession.h"
#include "references/dangling.h"

#include <algorithm>
#include <array>
#include <vector>

namespace qzDeck {

using namespace qzDescriptor;

namespace {

using Row = std::array<std::string, 5>;

char const* RemarkOn(DeckObject const& object, Identifier const& attribute) {
    auto const* const card = dynamic_cast<CardObject const*>(&object);
    switch (card == nullptr ? Origin::Written : card->GetOrigin(attribute)) {
    case Origin::Default:
        return " (default)";
    case Origin::OwnId:
        return " (own number)";
    case Origin::DefaultsCard:
        return " (default of the deck)";
    default:
        return "";
    }
}

/// The objects that an attribute names by number, those that are not there marked.
std::string ReferredBy(DeckSession const& session, Definition const& definition, ValuePtr const* value) {
    auto const family = static_cast<Family>(definition.GetUserParams().GetForeignReference());
    if (family == Family::None || value == nullptr || value->GetArrayDimension() > 1)
        return {};
    std::string text;
    int id = 0;
    for (unsigned int i = 0; value->GetValue(id, i, 0U); ++i) {
        bool const isNone = id == 0 || (id < 0 && definition.GetAllowables().Test(id) == 0);
        if (!isNone) {
            DeckObject const* const member = session.FindMember(family, static_cast<unsigned int>(id));
            text +=
                (text.empty() ? "" : ", ") +
                (member != nullptr ? member->GetName()
                                   : "no " + std::string(TraitsOf(family).noun) + ' ' + std::to_string(id));
        }
        if (value->GetArrayDimension() == 0)
            break;
    }
    return text;
}

Row RowOf(DeckSession const& session, DeckObject const& object, Identifier const& attribute) {
    Definition const& definition = *object.GetDefinition(attribute);
    ValuePtr const* value = nullptr;
    std::string const text =
        object.GetValue(attribute, value) ? TextOf(*value) + RemarkOn(object, attribute) : "-";
    return {LabelOf(attribute), text, ReferredBy(session, definition, value), MeasuredBy(definition),
            AllowedIn(definition)};
}

void WriteRows(std::ostream& out, std::vector<Row> const& rows) {
    std::array<std::size_t, std::tuple_size_v<Row>> widths{};
    for (Row const& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size() + 2);
    }
    for (Row const& row : rows) {
        std::string line = "  ";
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i];
            line.append(widths[i] - row[i].size(), ' ');
        }
        line.resize(line.find_last_not_of(' ') + 1);
        out << line << '\n';
    }
}

bool IsRelation(Definition const& definition) { return definition.GetValueCompoundType() == CT_ENTITY; }

} // namespace

void WriteObjectPage(std::ostream& out, DeckObject const& object) {
    auto const& session = static_cast<DeckSession const&>(*object.GetSession());
    CardDefinition const* const card = FindCard(object.GetEntityFullType().GetTypeNamed());
    out << object.GetName() << (card != nullptr ? ": " + card->Title() : "") << '\n';
    qzStlVector<Identifier> attributes;
    object.GetAttributeIdentifiers(attributes);
    std::vector<Row> rows = {{"Attribute", "Value", "Refers to", "Measures", "Allowed"}};
    for (Identifier const& attribute : attributes) {
        if (!IsRelation(*object.GetDefinition(attribute)))
            rows.push_back(RowOf(session, object, attribute));
    }
    if (rows.size() > 1)
        WriteRows(out, rows);
    Identifier attribute;
    if (DeckObject const* const owner = object.FindOwner(attribute))
        out << "owned by " << owner->GetName() << " (" << attribute.GetNameKey() << ")\n";
    object.VisitOwned([&](DeckObject& owned, Identifier const& under) {
        out << "owns " << owned.GetName() << " (" << under.GetNameKey() << ")\n";
    });
}

} // namespace qzDeck
