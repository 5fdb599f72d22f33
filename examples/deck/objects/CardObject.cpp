#include "objects/CardObject.h"

#include "check/Finding.h"
#include "descriptor/Allowables.h"
#include "descriptor/Definition.h"
#include "descriptor/Members.h"
#include "objects/CardPopulation.h"
#include "objects/DeckSession.h"
#include "references/dangling.h"

namespace qzDeck {

using namespace qzDescriptor;

namespace {

qzReturnStatus Refusal(std::string reason) { return {-1, std::move(reason)}; }

/// What a field without a name is.
Definition const& Unnamed() {
    static Definition const s_definition("Field without a name", BT_NONE, CT_SCALAR, 0, Allowables(),
                                         Definition::SOURCE_STORED, Definition::SPECIFICATION_OPTIONAL, true,
                                         true, qzString(), qzString(), UnitsDimensionality(),
                                         Definition::DIFFERENTIATOR_NONE, DefinitionUserParams());
    return s_definition;
}

bool IsBlank(Value const& value) { return value.GetValuePtr() == nullptr; }

} // namespace

CardObject::CardObject(CardPopulation& population, std::uint32_t card, unsigned int id)
    : DeckObject(population, id), m_card(card) {}

CardPopulation& CardObject::GetCards() const { return static_cast<CardPopulation&>(GetPopulation()); }

Card const& CardObject::GetCard() const { return GetPopulation().GetSession().GetCard(m_card); }
Card& CardObject::GetCard() { return GetPopulation().GetSession().GetCard(m_card); }

unsigned int CardObject::GetFirstNumber() const {
    int number = 0;
    auto const& values = GetCard().Values();
    return !values.empty() && values.front().GetValue(number) && number > 0
               ? static_cast<unsigned int>(number)
               : 0;
}

// --- reading -----------------------------------------------------------------------------------------

bool CardObject::GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const {
    DeckObject::GetAttributeIdentifiers(identifiers);
    if (!IsValid())
        return !identifiers.empty();
    PlacedFields placed;
    GetCard().Place(placed);
    for (std::size_t place = 0; place < GetCard().Values().size(); ++place) {
        if (placed[place].field == nullptr && !IsBlank(GetCard().Values()[place]))
            identifiers.push_back(placed[place].GetIdentifier(place));
    }
    return !identifiers.empty();
}

Definition const* CardObject::GetDefinition(Identifier const& attribute) const {
    Definition const* const definition = DeckObject::GetDefinition(attribute);
    bool const isUnnamed = definition == nullptr && attribute.UsesNumericKey() && IsValid() &&
                           GetCard().Find(attribute) != nullptr;
    return isUnnamed ? &Unnamed() : definition;
}

bool CardObject::GetValue(unsigned int attributeHandle, ValuePtr const*& value) const {
    if (!IsValid())
        return false;
    auto const reading = GetCards().Read(*this, attributeHandle - 1);
    if (reading.value != nullptr)
        value = reading.value;
    return reading.value != nullptr;
}

bool CardObject::GetValue(Identifier const& attribute, ValuePtr const*& value) const {
    if (!IsValid())
        return false;
    bool const isElement = attribute.UsesNumericKey() || attribute.GetRow() != Identifier::s_unset;
    if (!isElement)
        return DeckObject::GetValue(attribute, value);
    Value const* const found = GetCard().Find(attribute);
    if (found == nullptr || IsBlank(*found))
        return false;
    value = found->GetValuePtr();
    return true;
}

Origin CardObject::GetOrigin(Identifier const& attribute) const {
    unsigned int const index = P_FindAttribute(attribute);
    if (IsValid() && index != Members::s_none)
        return GetCards().Read(*this, index).origin;
    ValuePtr const* value = nullptr;
    return GetValue(attribute, value) ? Origin::Written : Origin::Nowhere;
}

// --- writing -----------------------------------------------------------------------------------------

/// By what the field is on this card.
std::optional<std::string> CardObject::P_FindFault(Field const* field, Value const& value) const {
    Definition const* const own =
        field == nullptr
            ? nullptr
            : GetPopulation().GetSession().FindOwnDefinition(*this, P_FindAttribute(field->identifier));
    if (own == nullptr)
        return FindFault(field, value);
    Field changed = *field;
    changed.definition = *own;
    return FindFault(&changed, value);
}

bool CardObject::P_SetAllowables(Identifier const& attribute, Allowables const& allowables) {
    unsigned int const index = P_FindAttribute(attribute);
    if (!IsValid() || index == Members::s_none || GetCards().GetField(index) == nullptr)
        return false;
    Definition definition = *GetDefinition(attribute);
    definition.SetAllowables(allowables);
    GetPopulation().GetSession().SetOwnDefinition(*this, index, definition);
    return true;
}

qzReturnStatus CardObject::P_Check(Field const* field, Value const& value) const {
    if (IsBlank(value))
        return field != nullptr && IsRequired(*field) ? Refusal("a required field is blank")
                                                      : qzReturnStatus();
    if (auto fault = P_FindFault(field, value))
        return Refusal(std::move(*fault));
    Family const family = field == nullptr ? Family::None : FamilyOf(*field);
    int id = 0;
    if (family == Family::None || !value.GetValue(id) || IsSpecialReference(*field, WholeNumber(id)))
        return {};
    if (GetPopulation().GetSession().FindMember(family, static_cast<unsigned int>(id)) != nullptr)
        return {};
    return Refusal("there is no " + std::string(TraitsOf(family).noun) + ' ' + std::to_string(id));
}

qzReturnStatus CardObject::P_SetList(Identifier const& attribute, Value const& list) const {
    unsigned int const rows = list.GetArrayDimensionExtent(0);
    if (rows < GetCard().CountRows())
        return Refusal("The card has more rows; a list makes it longer, but not shorter.");
    auto const element = [&](unsigned int row) {
        if (int integer = 0; list.GetValue(integer, row))
            return Value(integer);
        if (double real = 0.0; list.GetValue(real, row))
            return Value(real);
        qzString text;
        return list.GetValue(text, row) ? Value(text) : Value();
    };
    Field const* const field = GetCards().GetField(P_FindAttribute(attribute));
    for (unsigned int row = 0; row < rows; ++row) {
        if (auto status = P_Check(field, element(row)); status.status != 0)
            return status;
    }
    Card changed = GetCard();
    for (unsigned int row = 0; row < rows; ++row) {
        if (!changed.Set(Identifier(attribute.GetNameKey(), 0, row), element(row)))
            return Refusal("The card cannot hold it.");
    }
    auto& self = const_cast<CardObject&>(*this);
    self.GetCard() = std::move(changed);
    GetPopulation().GetSession().TellChange(self, Identifier(attribute.GetNameKey()));
    return {};
}

qzReturnStatus CardObject::SetValue(Identifier const& attribute, Value const& value) const {
    if (!IsValid())
        return Refusal("The object is gone.");
    Definition const* const definition = GetDefinition(attribute);
    unsigned int const index = P_FindAttribute(attribute);
    Field const* const field = index == Members::s_none ? nullptr : GetCards().GetField(index);
    if (field == nullptr && (index != Members::s_none || !attribute.UsesNumericKey()))
        return Refusal(definition == nullptr ? "There is no such attribute."
                                             : "What an object owns is created and deleted.");
    if (field != nullptr && !definition->GetEditable())
        return Refusal("A card keeps its number; properties and materials have the action Renumber.");
    bool const isRepeated = field != nullptr && definition->GetArrayDimension() > 0;
    if (isRepeated && definition->GetArrayDimension() == 1 && value.GetArrayDimension() == 1)
        return P_SetList(attribute, value);
    if (isRepeated && attribute.GetRow() == Identifier::s_unset)
        return Refusal("The card repeats this field: say in which row.");
    if (auto status = P_Check(field, value); status.status != 0)
        return status;
    bool const isReal = field != nullptr && definition->GetValueBasicType() == BT_DOUBLE;
    auto& self = const_cast<CardObject&>(*this);
    int integer = -1;
    if (!self.GetCard().Set(attribute, isReal && value.GetValue(integer) ? Value(0.0) : value))
        return Refusal("The card cannot hold it.");
    GetPopulation().GetSession().TellChange(self, attribute);
    return {};
}

// --- owners ------------------------------------------------------------------------------------------

DeckObject* CardObject::FindOwner(Identifier& attribute) const {
    return GetPopulation().GetSession().FindSetOf(*this, attribute);
}

void CardObject::VisitOwned(OwnedVisitor const& visit) const {
    GetPopulation().GetSession().VisitParts(*this, visit);
}

void CardObject::End() {
    GetPopulation().GetSession().RemoveCard(*this);
    GetCards().Forget(*this);
    m_card = Card::s_noLine;
}

} // namespace qzDeck
