#include "model/Card.h"

#include "cards/card_position.h"
#include "cards/tails.h"
#include "model/field_value.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace qzDeck {

using qzDescriptor::Identifier;
using qzDescriptor::Value;

namespace {

constexpr int s_greatestNumber = 1000000; // far beyond what any card has

/// Where an identifier leads: a place, and the field there, if it has one.
struct Target {
    std::size_t place;
    Field const* field;
};

/// The place that goes by a number.
std::optional<Target> FindNumber(PlacedFields const& placed, int number) {
    if (number < 1 || number > s_greatestNumber)
        return std::nullopt;
    auto const place = static_cast<std::size_t>(number) - 1;
    bool const hasName = place < placed.size() && placed[place].field != nullptr;
    return hasName ? std::nullopt : std::optional(Target{place, nullptr});
}

bool Matches(PlacedField const& placed, Field const& field, Identifier const& identifier) {
    return field.identifier.GetNameKey() == identifier.GetNameKey() &&
           PlacedField{&field, placed.row, placed.column, false}.GetIdentifier(0) == identifier;
}

/// The place with this name: of what stands there, or of what could stand there as well.
std::optional<Target> FindName(CardDefinition const& definition, PlacedFields const& placed,
                               Identifier const& identifier, bool withAlternatives) {
    for (std::size_t place = 0; place < placed.size(); ++place) {
        Field const* const chosen = placed[place].field;
        if (chosen == nullptr)
            continue;
        for (Field const& field : definition.AlternativesTo(*chosen)) {
            if ((withAlternatives || &field == chosen) && Matches(placed[place], field, identifier))
                return Target{place, &field};
        }
    }
    return std::nullopt;
}

std::optional<Target> FindTarget(CardDefinition const* definition, PlacedFields const& placed,
                                 Identifier const& identifier, bool withAlternatives) {
    if (identifier.UsesNumericKey())
        return FindNumber(placed, identifier.GetNumericKey());
    return definition == nullptr ? std::nullopt : FindName(*definition, placed, identifier, withAlternatives);
}

/// Whether a field of this type can hold the value, and a deck write it.
bool IsFit(Value const& value, qzDescriptor::BasicType type) {
    qzDescriptor::BasicType const own = value.GetBasicType();
    if (own == qzDescriptor::BT_NONE)
        return true;
    if (value.GetArrayDimension() != 0 || (type != qzDescriptor::BT_NONE && own != type))
        return false;
    if (double real = 0.0; value.GetValue(real))
        return std::isfinite(real);
    if (int integer = 0; value.GetValue(integer))
        return true;
    qzString const* const text = value.GetValuePointerString();
    return text != nullptr && Classify(*text) == FieldKind::Text;
}

} // namespace

void Card::Place(PlacedFields& placed, std::size_t rows) const {
    if (m_kind->definition != nullptr)
        m_kind->definition->Place(m_values, placed, rows);
    else
        placed.assign(m_values.size(), PlacedField());
}

Value const* Card::Find(Identifier const& field) const {
    PlacedFields placed;
    Place(placed);
    auto const target = FindTarget(m_kind->definition, placed, field, false);
    return target && target->place < m_values.size() ? &m_values[target->place] : nullptr;
}

bool Card::Set(Identifier const& field, Value const& value) {
    PlacedFields placed;
    Place(placed);
    if (!placed.empty() && placed.back().row != PlacedField::s_single &&
        field.GetRow() == placed.back().row + 1)
        Place(placed, std::size_t{field.GetRow()} + 1);
    auto const target = FindTarget(m_kind->definition, placed, field, true);
    if (!target || !IsFit(value, target->field == nullptr ? qzDescriptor::BT_NONE
                                                          : target->field->definition.GetValueBasicType()))
        return false;
    m_values.resize(std::max(m_values.size(), target->place + 1));
    m_values[target->place] = value;
    P_TrimBlanks();
    return true;
}

void Card::P_TrimBlanks() {
    while (!m_values.empty() && m_values.back().GetBasicType() == qzDescriptor::BT_NONE)
        m_values.pop_back();
}

unsigned int Card::CountRows() const {
    PlacedFields placed;
    Place(placed);
    unsigned int count = 0;
    for (std::size_t place = 0; place < std::min(placed.size(), m_values.size()); ++place) {
        if (placed[place].row != PlacedField::s_single)
            count = std::max(count, placed[place].row + 1);
    }
    return count;
}

bool Card::IsRowBlank(unsigned int row) const {
    PlacedFields placed;
    Place(placed);
    for (std::size_t place = 0; place < std::min(placed.size(), m_values.size()); ++place) {
        if (placed[place].row == row && m_values[place].GetBasicType() != qzDescriptor::BT_NONE)
            return false;
    }
    return true;
}

bool Card::AppendRow() {
    if (m_kind->definition == nullptr || m_kind->definition->GetTail() == nullptr)
        return false;
    PlacedFields placed;
    unsigned int const row = CountRows();
    m_kind->definition->Place(m_values, placed, std::size_t{row});
    std::vector<Value> values = m_values;
    values.resize(row == 0 ? PlaceOf(m_kind->definition->TailFields().front().position) : placed.size());
    std::size_t const before = values.size();
    for (Value& value : m_kind->definition->GetTail()->BeginRow(m_kind->definition->TailFields(), row))
        values.push_back(std::move(value));
    auto const isBlank = [](Value const& value) { return value.GetBasicType() == qzDescriptor::BT_NONE; };
    if (std::all_of(values.begin() + static_cast<std::ptrdiff_t>(before), values.end(), isBlank))
        return false;
    m_values = std::move(values);
    P_TrimBlanks();
    return true;
}

bool Card::RemoveRow(unsigned int row) {
    PlacedFields placed;
    Place(placed);
    bool const isOnlyStart =
        m_kind->definition != nullptr && m_kind->definition->GetTail() == &SectionStations() && row == 0;
    auto const isThere = [row](PlacedField const& field) { return field.row == row; };
    auto const first = std::find_if(placed.begin(), placed.end(), isThere);
    auto const last = std::find_if_not(first, placed.end(), isThere);
    auto const size = static_cast<std::ptrdiff_t>(m_values.size());
    if (isOnlyStart || first - placed.begin() >= size)
        return false;
    m_values.erase(m_values.begin() + (first - placed.begin()),
                   m_values.begin() + std::min(last - placed.begin(), size));
    P_TrimBlanks();
    return true;
}

} // namespace qzDeck
