#include "store/Object.h"

#include "Population.h"
#include "descriptor/ActionDefinition.h"
#include "descriptor/Allowables.h"
#include "descriptor/Content.h"
#include "descriptor/Definition.h"
#include "descriptor/Members.h"
#include "descriptor/MetaclassMgr.h"
#include "qzutl/qzFixedSizeAllocatorND.h"
#include "store/Registry.h"
#include "store/Session.h"

#include <algorithm>

namespace qzDescriptor::store {

namespace {

/// An empty format stands for the standard text.
char const* Format(qzString const& format) { return format.empty() ? nullptr : format.c_str(); }

} // namespace

void Object::EndContent::operator()(Content* content) const { content->Destroy(); }

Object::Object(Population& population, unsigned int id, unsigned int place)
    : m_population(&population),
      m_content(Content::Create(population.GetMembers())),
      m_id(id),
      m_place(place) {}

Object::~Object() = default;

namespace {

using Pool = qzStaticPool<qzFixedSizeAllocatorND<Object>>;
constinit Pool s_pool;
Pool::Closer s_closer{s_pool};

} // namespace

void* Object::operator new([[maybe_unused]] std::size_t size) { return s_pool.Get().Allocate(); }
void Object::operator delete(void* memory) { s_pool.Get().Release(memory); }

EntityFullType Object::GetEntityFullType() const { return m_population->GetType(); }
Entity Object::GetEntity() const { return Entity(m_population->GetType(), m_id); }
ISession* Object::GetSession() const { return &m_population->GetSession(); }

unsigned int Object::P_FindAttribute(Identifier const& attribute) const {
    return m_population->GetMembers()->FindVariableIndexFromIdentifier(attribute, 0, true);
}

unsigned int Object::P_FindAction(Identifier const& action) const {
    return m_population->GetMembers()->FindActionIndexFromIdentifier(action);
}

// --- attributes --------------------------------------------------------------------------------------

bool Object::GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const {
    Members const& members = *m_population->GetMembers();
    identifiers.clear();
    for (unsigned int index = 0; index < members.GetVariableCount(false, false); ++index)
        identifiers.push_back(members.GetVariableIdentifier(index, false, false, false));
    return !identifiers.empty();
}

Definition const* Object::GetDefinition(Identifier const& attribute) const {
    return m_content->GetDefinition(P_FindAttribute(attribute));
}

bool Object::GetAllowables(Identifier const& attribute, Allowables& allowables) const {
    Definition const* const definition = GetDefinition(attribute);
    if (definition != nullptr)
        allowables = definition->GetAllowables();
    return definition != nullptr;
}

// The content itself gives way to the default. Whether the value became another is for the listeners.
bool Object::SetAllowables(Identifier const& attribute, Allowables const& allowables) {
    unsigned int const index = P_FindAttribute(attribute);
    Value before, after;
    m_content->GetValue(index, before);
    if (!P_SetAllowables(attribute, Allowables(allowables)))
        return false;
    m_content->GetValue(index, after);
    if (!(before == after))
        m_population->GetSession().P_EmitChanged(*this, index);
    return true;
}

bool Object::P_SetAllowables(Identifier const& attribute, Allowables const& allowables) {
    return m_content->SetAllowables(P_FindAttribute(attribute), allowables);
}

bool Object::GetValue(Identifier const& attribute, ValuePtr const*& value) const {
    return m_content->GetValue(P_FindAttribute(attribute), value);
}

bool Object::GetValue(unsigned int attributeHandle, ValuePtr const*& value) const {
    return m_content->GetValue(attributeHandle - 1, value);
}

qzReturnStatus Object::SetValue(Identifier const& attribute, Value const& value) const {
    unsigned int const index = P_FindAttribute(attribute);
    qzReturnStatus const status = m_content->SetValue(index, value);
    if (status.status == 0)
        m_population->GetSession().P_EmitChanged(*this, index);
    return status;
}

bool Object::GetValueAsString(Identifier const& attribute, qzString& text, qzString const& format) const {
    return m_content->GetValueAsString(P_FindAttribute(attribute), text, Format(format));
}

qzReturnStatus Object::SetValueFromString(Identifier const& attribute, qzString const& text,
                                          qzString const& format) const {
    unsigned int const index = P_FindAttribute(attribute);
    qzReturnStatus const status = m_content->SetValueFromString(index, text, Format(format));
    if (status.status == 0)
        m_population->GetSession().P_EmitChanged(*this, index);
    return status;
}

DisplayStatus Object::GetDisplayStatus(Identifier const& attribute) const {
    return m_content->GetDisplayStatus(P_FindAttribute(attribute));
}

bool Object::SetDisplayStatus(Identifier const& attribute, DisplayStatus status) const {
    return m_content->SetDisplayStatus(P_FindAttribute(attribute), status);
}

qzString Object::GetName() const {
    qzString name;
    m_content->GetValueAsString(P_FindAttribute(m_population->GetSession().GetNameAttribute()), name);
    return name;
}

// --- actions and menus -------------------------------------------------------------------------------

bool Object::GetActionIdentifiers(qzStlVector<Identifier>& identifiers) const {
    Members const& members = *m_population->GetMembers();
    identifiers.clear();
    for (unsigned int index = 0; index < members.GetActionCount(false); ++index)
        identifiers.push_back(members.GetActionIdentifier(index));
    return !identifiers.empty();
}

bool Object::P_GetActionData(Identifier const& action, ActionDefinition& definition) const {
    ActionDefinition const* const found =
        m_population->GetMembers()->GetActionDefinition(P_FindAction(action));
    if (found != nullptr)
        definition = *found;
    return found != nullptr;
}

bool Object::IsActionEnabled(Identifier const& action) const {
    ActionDefinition definition;
    if (!P_GetActionData(action, definition) || !definition.GetEnabled())
        return false;
    ActionDefinition::Function const& test = definition.GetEnabledTest();
    return !test || test(this).status == 0;
}

bool Object::IsActionVisible(Identifier const& action) const {
    ActionDefinition definition;
    return P_GetActionData(action, definition) && definition.GetVisible();
}

bool Object::GetDataOperations(DataOperationList& operations) const {
    auto const* const registry = dynamic_cast<Registry const*>(m_population->GetSession().GetMetaclassMgr());
    return registry != nullptr && registry->GetDataOperations(m_population->GetMetaclass(), operations);
}

// --- owners ------------------------------------------------------------------------------------------

bool Object::GetOwner(Entity& owner, Identifier& ownerAttribute) const {
    if (m_owner == nullptr)
        return false;
    owner = m_owner->GetEntity();
    ownerAttribute = m_population->GetSession().GetMetaclassMgr()->GetIdentifier(
        m_owner->m_population->GetMetaclass(), m_ownerAttribute, 0, false);
    return true;
}

void Object::P_Own(Object& owned, unsigned int attribute) {
    if (m_owned == nullptr)
        m_owned = std::make_unique<Owned>();
    owned.m_owner = this;
    owned.m_ownerAttribute = attribute;
    owned.m_placeInOwner = static_cast<unsigned int>(m_owned->objects.size());
    m_owned->objects.push_back(&owned);
}

void Object::P_Disown(Object& owned) {
    owned.m_owner = nullptr;
    m_owned->objects[owned.m_placeInOwner] = nullptr;
    if (++m_owned->gone <= m_owned->objects.size() / 2)
        return;
    std::erase(m_owned->objects, nullptr);
    m_owned->gone = 0;
    for (std::size_t place = 0; place < m_owned->objects.size(); ++place)
        m_owned->objects[place]->m_placeInOwner = static_cast<unsigned int>(place);
}

} // namespace qzDescriptor::store
