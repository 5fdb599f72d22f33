#include "objects/DeckObject.h"

#include "descriptor/ActionDefinition.h"
#include "descriptor/Allowables.h"
#include "descriptor/Definition.h"
#include "descriptor/Members.h"
#include "descriptor/Value.h"
#include "model/field_value.h"
#include "objects/DeckRegistry.h"
#include "objects/DeckSession.h"
#include "objects/Population.h"

#include <cmath>

namespace qzDeck {

using namespace qzDescriptor;

EntityFullType DeckObject::GetEntityFullType() const { return m_population->GetType(); }
Entity DeckObject::GetEntity() const { return Entity(m_population->GetType(), m_id); }
ISession* DeckObject::GetSession() const { return &m_population->GetSession(); }

unsigned int DeckObject::P_FindAttribute(Identifier const& attribute) const {
    return m_population->GetMembers().FindVariableIndexFromIdentifier(attribute, 0, false);
}

bool DeckObject::GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const {
    Members const& members = m_population->GetMembers();
    identifiers.clear();
    for (unsigned int index = 0; index < members.GetVariableCount(); ++index)
        identifiers.push_back(members.GetVariableIdentifier(index));
    return !identifiers.empty();
}

Definition const* DeckObject::GetDefinition(Identifier const& attribute) const {
    unsigned int const index = P_FindAttribute(attribute);
    Definition const* const own = m_population->GetSession().FindOwnDefinition(*this, index);
    return own != nullptr ? own : m_population->GetMembers().GetVariableDefinition(index);
}

bool DeckObject::GetAllowables(Identifier const& attribute, Allowables& allowables) const {
    Definition const* const definition = GetDefinition(attribute);
    if (definition != nullptr)
        allowables = definition->GetAllowables();
    return definition != nullptr;
}

bool DeckObject::GetValue(Identifier const& attribute, ValuePtr const*& value) const {
    unsigned int const index = P_FindAttribute(attribute);
    return index != Members::s_none && GetValue(index + 1, value);
}

bool DeckObject::GetValueAsString(Identifier const& attribute, qzString& text, qzString const& format) const {
    ValuePtr const* value = nullptr;
    return GetValue(attribute, value) && value != nullptr &&
           value->GetValueAsString(text, format.empty() ? nullptr : format.c_str(), 0U, 0U);
}

qzReturnStatus DeckObject::SetValueFromString(Identifier const& attribute, qzString const& text,
                                              [[maybe_unused]] qzString const& format) const {
    Definition const* const definition = GetDefinition(attribute);
    FieldKind const kind = Classify(text);
    bool const isReal = definition != nullptr && definition->GetValueBasicType() == BT_DOUBLE;
    if (isReal && kind == FieldKind::Integer && std::isfinite(ReadReal(text)))
        return SetValue(attribute, Value(ReadReal(text)));
    return SetValue(attribute, MakeValue(kind, text));
}

DisplayStatus DeckObject::GetDisplayStatus(Identifier const& attribute) const {
    ValuePtr const* value = nullptr;
    return GetValue(attribute, value) && value != nullptr ? value->GetDisplayStatus() : DS_DEFAULT;
}

bool DeckObject::SetDisplayStatus([[maybe_unused]] Identifier const& attribute,
                                  [[maybe_unused]] DisplayStatus status) const {
    return false;
}

bool DeckObject::GetOwner(Entity& owner, Identifier& ownerAttribute) const {
    Identifier attribute;
    DeckObject const* const object = IsValid() ? FindOwner(attribute) : nullptr;
    if (object == nullptr)
        return false;
    owner = object->GetEntity();
    ownerAttribute = attribute;
    return true;
}

qzString DeckObject::GetName() const {
    return m_population->GetType().GetTypeNamed() + ' ' + std::to_string(m_id);
}

// --- actions and menus -------------------------------------------------------------------------------

bool DeckObject::GetActionIdentifiers(qzStlVector<Identifier>& identifiers) const {
    Members const& members = m_population->GetMembers();
    identifiers.clear();
    for (unsigned int index = 0; index < members.GetActionCount(); ++index)
        identifiers.push_back(members.GetActionIdentifier(index));
    return !identifiers.empty();
}

bool DeckObject::P_GetActionData(Identifier const& action, ActionDefinition& definition) const {
    Members const& members = m_population->GetMembers();
    auto const* const found = members.GetActionDefinition(members.FindActionIndexFromIdentifier(action));
    if (found != nullptr)
        definition = *found;
    return found != nullptr;
}

bool DeckObject::IsActionEnabled(Identifier const& action) const {
    ActionDefinition definition;
    if (!IsValid() || !P_GetActionData(action, definition) || !definition.GetEnabled())
        return false;
    auto const& test = definition.GetEnabledTest();
    return !test || test(this).status == 0;
}

bool DeckObject::IsActionVisible(Identifier const& action) const {
    ActionDefinition definition;
    return P_GetActionData(action, definition) && definition.GetVisible();
}

bool DeckObject::GetDataOperations(DataOperationList& operations) const {
    return m_population->GetSession().GetRegistry().GetDataOperations(m_population->GetMetaclass(),
                                                                      operations);
}

} // namespace qzDeck
