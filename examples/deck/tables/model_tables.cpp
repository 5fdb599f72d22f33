#include "tables/model_tables.h"

#include "cards/card_position.h"
#include "cards/families.h"

#include <algorithm>
#include <unordered_map>

namespace qzDeck {

using qzDescriptor::Value;

namespace {

bool NamesPoint(Field const& field) {
    return field.definition.GetUserParams().GetForeignReference() ==
           static_cast<unsigned int>(Family::Points);
}

/// The fields of an element that tell what it joins. A point that gives a direction only stands in place of
/// a vector.
bool IsConnectivity(CardDefinition const& card, Field const& field) {
    bool const isInPlaceOfAnother = &field != &card.AlternativesTo(field).front();
    return HasFlag(field, FIELD_IS_ID) || HasFlag(field, FIELD_DEFAULTS_TO_ID) ||
           (NamesPoint(field) && !isInPlaceOfAnother);
}

/// None for cards that are kept in no table.
std::vector<Field> ColumnsOf(CardKind const& kind) {
    std::vector<Field> columns;
    if (kind.definition == nullptr || kind.definition->GetTail() != nullptr)
        return columns;
    bool const isPoint = IsMember(TraitsOf(Family::Points), kind.name);
    if (!isPoint && !IsMember(TraitsOf(Family::Elements), kind.name))
        return columns;
    for (Field const& field : kind.definition->FixedFields()) {
        if (isPoint || IsConnectivity(*kind.definition, field))
            columns.push_back(field);
    }
    return columns;
}

Value const* ValueAt(Card const* card, std::size_t place) {
    if (card == nullptr || place >= card->Values().size())
        return nullptr;
    Value const& value = card->Values()[place];
    return value.GetBasicType() == qzDescriptor::BT_NONE ? nullptr : &value;
}

/// The value of a field, or what a blank stands for.
Value const* ValueOf(Card const& card, Card const* defaults, Field const& field) {
    std::size_t const place = PlaceOf(field.position);
    Value const* value = ValueAt(&card, place);
    if (value == nullptr)
        value = ValueAt(defaults, place);
    if (value == nullptr && HasFlag(field, FIELD_DEFAULTS_TO_ID))
        value = ValueAt(&card, 0);
    return value == nullptr ? nullptr : Fitting(field, *value);
}

Card const* FindDefaults(Model const& model, CardKind const& kind) {
    if (kind.definition->DefaultsCard().empty())
        return nullptr;
    auto const& cards = model.Cards();
    auto const found = std::find_if(cards.begin(), cards.end(), [&](Card const& card) {
        return card.Name() == kind.definition->DefaultsCard();
    });
    return found == cards.end() ? nullptr : &*found;
}

struct RowsOfKind {
    std::vector<Field> columns;
    Card const* defaults;
    TableRows rows;

    void Add(Card const& card) {
        TableRow& row = rows.emplace_back();
        row.reserve(columns.size());
        for (Field const& column : columns)
            row.push_back(ValueOf(card, defaults, column));
    }
};

} // namespace

std::vector<ModelTable> MakeModelTables(Model const& model) {
    std::unordered_map<CardKind const*, RowsOfKind> rowsByKind;
    for (CardKind const& kind : model.Kinds()) {
        if (auto columns = ColumnsOf(kind); !columns.empty())
            rowsByKind[&kind] = {std::move(columns), FindDefaults(model, kind), {}};
    }
    for (Card const& card : model.Cards()) {
        if (auto const found = rowsByKind.find(&card.Kind()); found != rowsByKind.end())
            found->second.Add(card);
    }
    std::vector<ModelTable> tables;
    for (CardKind const& kind : model.Kinds()) {
        auto const found = rowsByKind.find(&kind);
        if (found == rowsByKind.end())
            continue;
        RowsOfKind& ofKind = found->second;
        qzDescriptor::Tabular data = MakeTable(ofKind.columns, ofKind.rows);
        tables.push_back({kind.name, std::move(ofKind.columns), std::move(data)});
    }
    return tables;
}

} // namespace qzDeck
