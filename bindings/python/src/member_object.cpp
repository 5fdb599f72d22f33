#include "member_object.h"

namespace qzPython {

namespace {

char const* ToFormat(qzString const& format) { return format.empty() ? nullptr : format.c_str(); }

} // namespace

MemberObject::MemberObject(SessionHandle session, Entity entity)
    : m_session(std::move(session)), m_entity(std::move(entity)) {
    if (MetaclassMgr const* const registry = m_session.Get().GetMetaclassMgr())
        m_members = registry->GetMembers(registry->GetMetaclassHandle(m_entity.GetEntityFullType()), 0);
    if (m_members == nullptr)
        throw Refused("there is no metaclass of the entity's type");
    m_content.reset(Content::Create(m_members));
}

bool MemberObject::GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const {
    std::vector<Identifier> found;
    bool const some = P_IsAlive() && m_members->GetVariableIdentifiers(found) > 0;
    if (some)
        identifiers = found;
    return some;
}

bool MemberObject::GetActionIdentifiers(qzStlVector<Identifier>& identifiers) const {
    if (!P_IsAlive() || m_members->GetActionCount() == 0)
        return false;
    identifiers.clear();
    for (unsigned int i = 0; i < m_members->GetActionCount(); ++i)
        identifiers.push_back(m_members->GetActionIdentifier(i));
    return true;
}

bool MemberObject::IsActionEnabled(Identifier const& action) const {
    ActionDefinition definition;
    if (!P_GetActionData(action, definition) || !definition.GetEnabled())
        return false;
    return !definition.GetEnabledTest() || definition.GetEnabledTest()(this).status == 0;
}

bool MemberObject::IsActionVisible(Identifier const& action) const {
    ActionDefinition definition;
    return P_GetActionData(action, definition) && definition.GetVisible();
}

bool MemberObject::P_GetActionData(Identifier const& action, ActionDefinition& definition) const {
    ActionDefinition const* const found =
        P_IsAlive() ? m_members->GetActionDefinition(m_members->FindActionIndexFromIdentifier(action))
                    : nullptr;
    if (found != nullptr)
        definition = *found;
    return found != nullptr;
}

unsigned int MemberObject::P_FindIndex(Identifier const& attribute) const {
    return P_IsAlive() ? m_members->FindVariableIndexFromIdentifier(attribute, 0, true) : Members::s_none;
}

Definition const* MemberObject::GetDefinition(Identifier const& attribute) const {
    unsigned int const index = P_FindIndex(attribute);
    return index != Members::s_none ? m_content->GetDefinition(index) : nullptr;
}

bool MemberObject::GetAllowables(Identifier const& attribute, Allowables& allowables) const {
    Definition const* const definition = GetDefinition(attribute);
    if (definition != nullptr)
        allowables = definition->GetAllowables();
    return definition != nullptr;
}

bool MemberObject::P_SetAllowables(Identifier const& attribute, Allowables const& allowables) {
    unsigned int const index = P_FindIndex(attribute);
    return index != Members::s_none && m_content->SetAllowables(index, allowables);
}

bool MemberObject::GetValue(Identifier const& attribute, ValuePtr const*& value) const {
    return P_GetValue(P_FindIndex(attribute), value);
}

bool MemberObject::GetValue(unsigned int attributeHandle, ValuePtr const*& value) const {
    return attributeHandle > 0 && P_GetValue(attributeHandle - 1, value);
}

bool MemberObject::P_GetValue(unsigned int index, ValuePtr const*& value) const {
    return P_IsAlive() && index < m_members->GetVariableCount() && P_Read(index) &&
           m_content->GetValue(index, value);
}

Content const& MemberObject::Refresh(unsigned int index) const {
    ValuePtr const* value = nullptr;
    static_cast<void>(GetValue(index + 1, value));
    m_session.Get(); // with it the content's members may have gone
    return *m_content;
}

qzReturnStatus MemberObject::SetValue(Identifier const& attribute, Value const& value) const {
    unsigned int const index = P_FindIndex(attribute);
    if (index == Members::s_none)
        return {-1, "The object has no such attribute"};
    GetDefinition(attribute); // makes what holds now hold for the content, too
    qzReturnStatus const tested = m_content->TestValue(index, value);
    return tested.status == 0 ? P_Write(index, value) : tested;
}

bool MemberObject::GetValueAsString(Identifier const& attribute, qzString& text,
                                    qzString const& format) const {
    ValuePtr const* value = nullptr;
    qzString written;
    bool const done =
        GetValue(attribute, value) &&
        value->GetValueAsString(written, ToFormat(format), ValuePtr::s_wholeValue, ValuePtr::s_wholeValue);
    if (done)
        text = written;
    return done;
}

qzReturnStatus MemberObject::SetValueFromString(Identifier const& attribute, qzString const& text,
                                                qzString const& format) const {
    ValuePtr const* current = nullptr;
    if (!GetValue(attribute, current))
        return {-1, "The object has no such attribute"};
    Value value(current->Clone());
    if (!value.SetValueFromString(text, ToFormat(format)))
        return {-1, "'" + text + "' does not read as a value of this attribute"};
    return SetValue(attribute, value);
}

DisplayStatus MemberObject::GetDisplayStatus(Identifier const& attribute) const {
    unsigned int const index = P_FindIndex(attribute);
    return index != Members::s_none ? m_content->GetDisplayStatus(index) : DS_DEFAULT;
}

bool MemberObject::SetDisplayStatus(Identifier const& attribute, DisplayStatus status) const {
    unsigned int const index = P_FindIndex(attribute);
    return index != Members::s_none && m_content->SetDisplayStatus(index, status);
}

bool MemberObject::GetOwner(Entity& owner, Identifier& ownerAttribute) const {
    ISession const* const session = GetSession();
    return session != nullptr && session->GetOwner(m_entity, owner, ownerAttribute);
}

bool MemberObject::GetDataOperations(DataOperationList& operations) const {
    static_cast<void>(operations);
    return false;
}

} // namespace qzPython
