#pragma once

#include "handles.h"

#include "descriptor/Content.h"
#include "descriptor/Members.h"

#include <memory>

namespace qzPython {

/// An object that has the attributes and actions of its metaclass, and whose values are somewhere else. What
/// it is asked about them it works out itself.
class MemberObject : public Metaobject {
public:
    qzDescriptor::EntityFullType GetEntityFullType() const override { return m_entity.GetEntityFullType(); }
    Entity GetEntity() const override { return m_entity; }
    ISession* GetSession() const override { return m_session.Find(); }
    SessionHandle const& GetSessionHandle() const { return m_session; }
    bool GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const override;
    bool GetActionIdentifiers(qzStlVector<Identifier>& identifiers) const override;
    bool IsActionEnabled(Identifier const& action) const override;
    bool IsActionVisible(Identifier const& action) const override;
    Definition const* GetDefinition(Identifier const& attribute) const override;
    bool GetAllowables(Identifier const& attribute, Allowables& allowables) const override;
    bool GetValue(Identifier const& attribute, ValuePtr const*& value) const override;
    bool GetValue(unsigned int attributeHandle, ValuePtr const*& value) const override;
    qzReturnStatus SetValue(Identifier const& attribute, Value const& value) const override;
    bool GetValueAsString(Identifier const& attribute, qzString& text, qzString const& format) const override;
    qzReturnStatus SetValueFromString(Identifier const& attribute, qzString const& text,
                                      qzString const& format) const override;
    DisplayStatus GetDisplayStatus(Identifier const& attribute) const override;
    bool SetDisplayStatus(Identifier const& attribute, DisplayStatus status) const override;
    bool GetOwner(Entity& owner, Identifier& ownerAttribute) const override;
    Content const* GetContent() const override { return nullptr; }
    bool GetDataOperations(DataOperationList& operations) const override;
    bool IsValid() const override { return P_IsAlive(); }

    /// The definition of the metaclass; null when there is no such attribute.
    Definition const* GetSharedDefinition(Identifier const& attribute) const {
        return P_IsAlive() ? m_members->GetVariableDefinition(P_FindIndex(attribute)) : nullptr;
    }
    /// What the object keeps of its attributes: the values that were read last.
    Content const& GetKept() const { return *m_content; }
    /// The same with the value of one attribute in it that was read just now. Throws Ended.
    Content const& Refresh(unsigned int index) const;

protected:
    MemberObject(SessionHandle session, Entity entity);

    bool P_SetAllowables(Identifier const& attribute, Allowables const& allowables) override;
    bool P_GetActionData(Identifier const& action, ActionDefinition& definition) const override;

    /// Puts the value of an attribute into the content; false when it cannot be read.
    virtual bool P_Read(unsigned int index) const = 0;
    /// Writes a value that the attribute's definition allows.
    virtual qzReturnStatus P_Write(unsigned int index, Value const& value) const = 0;

    bool P_IsAlive() const { return m_session.Find() != nullptr; }
    /// Members::s_none when there is no such attribute.
    unsigned int P_FindIndex(Identifier const& attribute) const;
    /// Reads a value and gives it.
    bool P_GetValue(unsigned int index, ValuePtr const*& value) const;
    Identifier const& P_Identify(unsigned int index) const { return m_members->GetVariableIdentifier(index); }
    Content& P_GetContent() const { return *m_content; }

private:
    struct EndContent {
        void operator()(Content* content) const { content->Destroy(); }
    };

    SessionHandle m_session;
    Entity m_entity;
    Members const* m_members = nullptr; // the registry's, which outlives its sessions
    // The values that were read last, and what holds for the attributes of this object alone.
    std::unique_ptr<Content, EndContent> m_content;
};

} // namespace qzPython
