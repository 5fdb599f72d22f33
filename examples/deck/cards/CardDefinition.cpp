#include "cards/CardDefinition.h"

#include "cards/card_position.h"
#include "model/field_value.h"

#include <algorithm>

namespace qzDeck {

using qzDescriptor::Identifier;
using qzDescriptor::Value;

namespace {

/// The type of the field that a value is made for.
qzDescriptor::BasicType FieldTypeFor(Value const& value) {
    switch (KindOf(value)) {
    case FieldKind::Integer:
        return qzDescriptor::BT_INT;
    case FieldKind::Text:
        return qzDescriptor::BT_STRING;
    case FieldKind::Blank:
    case FieldKind::Unreadable:
        return qzDescriptor::BT_NONE;
    default:
        return qzDescriptor::BT_DOUBLE;
    }
}

} // namespace

Identifier PlacedField::GetIdentifier(std::size_t place) const {
    if (field == nullptr)
        return Identifier(static_cast<int>(place + 1));
    Identifier identifier = field->identifier;
    identifier.SetRow(row);
    identifier.SetColumn(column);
    return identifier;
}

std::string PlacedField::Label(std::size_t place) const {
    if (field == nullptr)
        return std::to_string(place + 1);
    std::string label = field->identifier.GetNameKey();
    if (row == s_single)
        return label;
    label += '(' + std::to_string(row + 1);
    if (column != s_single)
        label += ',' + std::to_string(column + 1);
    return label + ')';
}

Field const* Choose(Fields alternatives, Value const* value) {
    if (alternatives.empty())
        return nullptr;
    if (alternatives.size() == 1 || value == nullptr)
        return &alternatives.front();
    auto const takes = [type = FieldTypeFor(*value)](Field const& field) {
        return field.definition.GetValueBasicType() == type;
    };
    auto const found = std::find_if(alternatives.begin(), alternatives.end(), takes);
    return found == alternatives.end() ? &alternatives.front() : &*found;
}

Value DefaultOf(Field const& field) {
    Value value;
    if (HasFlag(field, FIELD_HAS_DEFAULT))
        field.definition.GetAllowables().GetDefault(value);
    return value;
}

Fields FieldsAt(Fields fields, std::size_t place) {
    auto const standsThere = [place](Field const& field) {
        return field.position.IsValid() && PlaceOf(field.position) == place;
    };
    auto const first = std::find_if(fields.begin(), fields.end(), standsThere);
    auto const last = std::find_if_not(first, fields.end(), standsThere);
    return Fields(first, last);
}

CardDefinition::CardDefinition(std::string name, std::string title, std::vector<Field> fixed,
                               Tail const* tail, std::vector<Field> repeated)
    : m_name(std::move(name)),
      m_title(std::move(title)),
      m_fields(std::move(fixed)),
      m_fixedCount(m_fields.size()),
      m_tail(tail) {
    std::size_t const count = m_fields.empty() ? 0 : PlaceOf(m_fields.back().position) + 1;
    for (std::size_t place = 0; place < count; ++place) {
        Fields const alternatives = FieldsAt(m_fields, place);
        m_alternatives.emplace_back(alternatives.data() - m_fields.data(), alternatives.size());
    }
    m_fields.insert(m_fields.end(), std::make_move_iterator(repeated.begin()),
                    std::make_move_iterator(repeated.end()));
}

Fields CardDefinition::AlternativesTo(Field const& field) const {
    return field.position.IsValid() ? FieldsAt(m_fields, PlaceOf(field.position)) : Fields(&field, 1);
}

void CardDefinition::Place(Values values, PlacedFields& placed, std::size_t rows) const {
    placed.clear();
    for (auto const& [first, count] : m_alternatives) {
        Value const* const value = placed.size() < values.size() ? &values[placed.size()] : nullptr;
        PlacedField field{Choose(AllFields().subspan(first, count), value)};
        field.isRequired = field.field != nullptr && IsRequired(*field.field);
        placed.push_back(field);
    }
    if (m_tail != nullptr) {
        placed.resize(PlaceOf(TailFields().front().position));
        m_tail->Place(TailFields(), values, rows, placed);
    }
    placed.resize(std::max(placed.size(), values.size()));
}

} // namespace qzDeck
