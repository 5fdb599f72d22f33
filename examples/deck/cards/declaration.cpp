#include "cards/declaration.h"

#include "cards/card_position.h"
#include "cards/tails.h"

#include "qzutl/qzStlVector.h"

#include <algorithm>

namespace qzDeck {

using namespace qzDescriptor;

FieldSpec::FieldSpec(std::string name, std::string displayName, BasicType type)
    : m_name(std::move(name)),
      m_definition(displayName, type, CT_SCALAR, 0, Allowables(), Definition::SOURCE_STORED,
                   Definition::SPECIFICATION_OPTIONAL, true, true, qzString(), qzString(),
                   UnitsDimensionality(), Definition::DIFFERENTIATOR_NONE, DefinitionUserParams()) {}

/// A bound takes the place of an earlier one on its side.
FieldSpec& FieldSpec::P_Bound(double bound, Rule rule) {
    std::erase_if(m_bounds, [rule](auto const& other) {
        return (other.second & Rule::Greater) == (rule & Rule::Greater);
    });
    m_bounds.emplace_back(bound, rule);
    return *this;
}

FieldSpec& FieldSpec::OneOf(std::vector<std::string> words) {
    m_words = std::move(words);
    return *this;
}

FieldSpec& FieldSpec::Default(double value) {
    m_default = value;
    return With(FIELD_HAS_DEFAULT);
}

FieldSpec& FieldSpec::Default(std::string const& word) {
    m_defaultWord = word;
    return With(FIELD_HAS_DEFAULT);
}

FieldSpec& FieldSpec::Required() {
    m_definition.SetValueSpecification(Definition::SPECIFICATION_REQUIRED);
    return m_definition.GetUserParams().GetForeignReference() == 0 ? *this : Above(0);
}

FieldSpec& FieldSpec::In(Unit unit) {
    m_definition.SetUnitsDimensionality(UnitsDimensionality(unit.dimensionality, unit.name));
    return *this;
}

FieldSpec& FieldSpec::Or(Unit unit) {
    UnitsDimensionality const& first = m_definition.GetUnitsDimensionality();
    m_definition.SetUnitsDimensionality(
        UnitsDimensionality({first.GetDimensionality(0), first.GetDimensionalityDisplayName(0)},
                            {unit.dimensionality, unit.name}));
    return *this;
}

FieldSpec& FieldSpec::Says(std::string const& description) {
    m_definition.SetDescription(description);
    return *this;
}

FieldSpec& FieldSpec::Names(Family family) {
    DefinitionUserParams params = m_definition.GetUserParams();
    params.SetForeignReference(static_cast<unsigned int>(family));
    m_definition.SetUserParams(params);
    return *this;
}

FieldSpec& FieldSpec::With(FieldFlag flag) {
    if (flag == FIELD_IS_ID)
        m_definition.SetEditable(false); // what refers to the card would not follow
    DefinitionUserParams params = m_definition.GetUserParams();
    params.SetFlag(params.GetFlag() | flag);
    m_definition.SetUserParams(params);
    return *this;
}

FieldSpec& FieldSpec::Dimension(unsigned int arrayDimension) {
    m_definition.SetArrayDimension(arrayDimension);
    for (FieldSpec& alternative : m_alternatives)
        alternative.Dimension(arrayDimension);
    return *this;
}

FieldSpec& FieldSpec::WithoutPosition() {
    m_hasPosition = false;
    return *this;
}

FieldSpec& FieldSpec::Or(FieldSpec alternative) {
    m_alternatives.push_back(std::move(alternative));
    return *this;
}

FieldSpec& FieldSpec::Blank(std::size_t places) {
    m_places = places;
    m_isGap = true;
    return *this;
}

std::size_t FieldSpec::AppendTo(std::vector<Field>& fields, std::size_t place) const {
    if (!m_isGap)
        fields.push_back(P_Make(place));
    for (FieldSpec const& alternative : m_alternatives)
        alternative.AppendTo(fields, place);
    return place + m_places;
}

/// Bounds ask for a default; where a blank stands for nothing it is a number that they allow.
template <class T>
Allowables FieldSpec::P_NumberAllowables() const {
    qzStlVector<BoundT<T>> bounds;
    double inside = 0.0;
    for (auto const& [bound, rule] : m_bounds) {
        bounds.push_back(BoundT<T>(static_cast<T>(bound), static_cast<typename BoundT<T>::Rule>(rule)));
        if (BoundT<double>(bound, rule).Test(inside) != 0)
            inside = (rule & Rule::Greater) != 0 ? bound + 1.0 : bound - 1.0;
    }
    T const value = static_cast<T>(m_default.value_or(inside));
    if (!bounds.empty())
        return Allowables(bounds, value);
    return m_default ? Allowables(value) : Allowables();
}

Allowables FieldSpec::P_TextAllowables() const {
    if (m_words.empty())
        return m_defaultWord ? Allowables(*m_defaultWord) : Allowables();
    Allowables::List<qzString> list;
    auto defaultIndex = static_cast<unsigned int>(m_words.size());
    for (std::string const& word : m_words) {
        if (m_defaultWord == word)
            defaultIndex = static_cast<unsigned int>(list.size());
        list.push_back({word, word});
    }
    return Allowables(list, defaultIndex);
}

Field FieldSpec::P_Make(std::size_t place) const {
    Field field{Identifier(m_name), m_definition,
                m_hasPosition ? PositionAt(place, LineFormat::Small) : CardPosition()};
    field.position.SetComment(m_definition.GetDisplayName());
    if (m_definition.GetValueBasicType() == BT_INT)
        field.definition.SetAllowables(P_NumberAllowables<int>());
    else if (m_definition.GetValueBasicType() == BT_DOUBLE)
        field.definition.SetAllowables(P_NumberAllowables<double>());
    else
        field.definition.SetAllowables(P_TextAllowables());
    return field;
}

FieldSpec Integer(std::string name, std::string displayName) {
    return FieldSpec(std::move(name), std::move(displayName), BT_INT);
}

FieldSpec Real(std::string name, std::string displayName) {
    return FieldSpec(std::move(name), std::move(displayName), BT_DOUBLE);
}

FieldSpec Real(std::string name, std::string displayName, Unit unit) {
    return Real(std::move(name), std::move(displayName)).In(unit);
}

FieldSpec Text(std::string name, std::string displayName) {
    return FieldSpec(std::move(name), std::move(displayName), BT_STRING);
}

FieldSpec Anything(std::string name, std::string displayName) {
    return FieldSpec(std::move(name), std::move(displayName), BT_NONE);
}

FieldSpec Choice(std::string name, std::string displayName, std::vector<std::string> words) {
    return Text(std::move(name), std::move(displayName)).OneOf(std::move(words));
}

FieldSpec Components(std::string name, std::string displayName) {
    return Integer(std::move(name), std::move(displayName)).With(FIELD_IS_COMPONENTS);
}

FieldSpec Id(std::string name, std::string displayName) {
    return SetId(std::move(name), std::move(displayName)).With(FIELD_IS_ID);
}

FieldSpec SetId(std::string name, std::string displayName) {
    return Integer(std::move(name), std::move(displayName)).Above(0).Required();
}

FieldSpec Reference(std::string name, std::string displayName, Family family) {
    return Integer(std::move(name), std::move(displayName)).AtLeast(0).Names(family);
}

FieldSpec Word(std::string const& word, std::string displayName) {
    return Choice(word, std::move(displayName), {word});
}

FieldSpec Range() {
    return Word("THRU", "All there are from the one before to the next").With(FIELD_IS_RANGE);
}

FieldSpec Gap(std::size_t places) { return Anything("", "").Blank(places); }

std::vector<FieldSpec> Together(std::initializer_list<std::vector<FieldSpec>> parts) {
    std::vector<FieldSpec> fields;
    for (std::vector<FieldSpec> const& part : parts)
        fields.insert(fields.end(), part.begin(), part.end());
    return fields;
}

TailSpec Repeated(std::vector<FieldSpec> fields) {
    for (FieldSpec& field : fields)
        field.Dimension(1);
    return {&RepeatedRows(), std::move(fields)};
}

TailSpec Stations(std::vector<FieldSpec> fields) {
    TailSpec tail = Repeated(std::move(fields));
    tail.tail = &SectionStations();
    bool const hasStations = tail.fields.size() > 2;
    tail.fields.front().Dimension(hasStations ? 2 : 1);
    for (std::size_t i = 1; i < tail.fields.size(); ++i)
        tail.fields[i].WithoutPosition().Dimension(hasStations ? 1 : 0);
    return tail;
}

TailSpec Groups(std::vector<FieldSpec> fields) {
    constexpr unsigned int dimensions[] = {1, 1, 2, 0, 1, 1, 0, 0};
    constexpr std::size_t countWithPosition = 3;
    TailSpec tail = Repeated(std::move(fields));
    tail.tail = &WeightedGroups();
    for (std::size_t i = 0; i < tail.fields.size(); ++i)
        tail.fields[i].Dimension(dimensions[i]);
    for (std::size_t i = countWithPosition; i < tail.fields.size(); ++i)
        tail.fields[i].WithoutPosition();
    return tail;
}

CardDefinition& CardDeclarations::Declare(std::string name, std::string title,
                                          std::vector<FieldSpec> const& fields, TailSpec const& tail) {
    std::size_t place = 0;
    std::vector<Field> fixed;
    for (FieldSpec const& field : fields)
        place = field.AppendTo(fixed, place);
    std::vector<Field> repeated;
    for (FieldSpec const& field : tail.fields)
        place = field.AppendTo(repeated, place);
    return m_cards.emplace_back(std::move(name), std::move(title), std::move(fixed), tail.tail,
                                std::move(repeated));
}

} // namespace qzDeck
