#pragma once

#include "descriptor/Members.h"
#include "qzutl/qzStlVector.h"
#include "registry/HashIndex.h"
#include "registry/Member.h"
#include "registry/MemberList.h"

#include <memory>
#include <vector>

namespace qzDescriptor {

/// The one kind of member set. Members are shared by pointer: an heir has those of its base, marked as
/// inherited, a sub-member set those of its owner. What is inserted or redefined later is passed on to all of
/// them.
class MembersPrivate final : public Members {
public:
    using ConfigNames = qzStlVector<qzString>;

    MembersPrivate(qzString const& name, Members const* parent, bool uniqueIdentifiers, unsigned int growth);
    /// A sub-member set.
    MembersPrivate(qzString const& name, MembersPrivate& owner);

    static MembersPrivate& Of(Members& members) { return static_cast<MembersPrivate&>(members); }
    static MembersPrivate const& Of(Members const& members) {
        return static_cast<MembersPrivate const&>(members);
    }

    void Reserve(unsigned int variableCount) { m_variables.Reserve(variableCount); }
    /// Has every member of the base from now on. The base must live as long, and inherit nothing from this.
    void InheritFrom(MembersPrivate& base);

    /// Null when there is no such attribute.
    Variable const* FindVariable(unsigned int index) const { return m_variables.Get(index); }

    void Destroy() override;
    Members* Clone() const override;
    qzString const& GetName() const override { return m_name; }
    Members const* GetParent() const override { return m_parent; }

    unsigned int InsertVariable(Identifier const& id, std::shared_ptr<Definition const> definition,
                                Identifier const& secondaryId, bool replace, unsigned int at,
                                qzString const& memberName, ConfigNames const& configNames) override;
    unsigned int InsertExistingIntoSubMember(unsigned int index, qzString const& configName,
                                             unsigned int at) override;
    bool ReplaceVariableDefinition(unsigned int index, std::shared_ptr<Definition const> definition) override;
    bool SetSecondaryIdentifier(unsigned int index, Identifier const& secondaryId) override;
    bool SetTabularDefinition(unsigned int index,
                              std::shared_ptr<TabularDefinition const> definition) override;

    unsigned int GetVariableCount(bool ownOnly, bool visibleOnly) const override;
    Identifier const& GetVariableIdentifier(unsigned int index, bool ownOnly, bool secondary,
                                            bool visibleOnly) const override;
    unsigned int GetVariableIdentifiers(std::vector<Identifier>& ids, bool ownOnly,
                                        bool visibleOnly) const override;
    Definition const* GetVariableDefinition(unsigned int index, unsigned int column,
                                            bool ofColumn) const override;
    std::shared_ptr<Definition const> ShareVariableDefinition(unsigned int index) const override;
    std::shared_ptr<TabularDefinition const> GetTabularDefinition(unsigned int index) const override;
    ValuePtr const* GetDefaultValue(unsigned int index) const override;
    bool IsVariableInherited(unsigned int index) const override { return m_variables.IsInherited(index); }
    bool GetConfigNames(unsigned int index, ConfigNames& names) const override;
    unsigned int FindVariableIndexFromIdentifier(Identifier const& id, unsigned int first,
                                                 bool secondary) const override;

    unsigned int InsertAction(Identifier const& id, std::shared_ptr<ActionDefinition const> definition,
                              bool replace, unsigned int at, qzString const& memberName,
                              ConfigNames const& configNames) override;
    unsigned int InsertExistingActionIntoSubMember(unsigned int index, qzString const& configName,
                                                   unsigned int at) override;
    bool ReplaceActionDefinition(unsigned int index,
                                 std::shared_ptr<ActionDefinition const> definition) override;
    unsigned int GetActionCount(bool ownOnly) const override;
    Identifier const& GetActionIdentifier(unsigned int index) const override;
    ActionDefinition const* GetActionDefinition(unsigned int index) const override;
    std::shared_ptr<ActionDefinition const> ShareActionDefinition(unsigned int index) const override;
    bool IsActionInherited(unsigned int index) const override { return m_actions.IsInherited(index); }
    unsigned int FindActionIndexFromIdentifier(Identifier const& id, unsigned int first) const override;

    MembersPrivate* InsertSubMember(qzString const& name) override;
    MembersPrivate* GetSubMember(qzString const& name) const override;
    bool GetSubMemberNames(qzStlVector<qzString>& names) const override;

private:
    // What is the same for attributes and actions.
    template <class Member>
    MemberList<Member>& P_List();
    template <class Member>
    MemberList<Member> const& P_List() const;
    template <class Member>
    unsigned int P_Insert(std::shared_ptr<Member> member, bool replace, unsigned int at,
                          qzString const& memberName, ConfigNames const& configNames);
    template <class Member>
    unsigned int P_Append(std::shared_ptr<Member> const& member, unsigned int at);
    template <class Member>
    bool P_CanShow(Member const& member) const;
    template <class Member>
    unsigned int P_Show(std::shared_ptr<Member> const& member, unsigned int at);
    template <class Member>
    unsigned int P_ShowExisting(unsigned int index, qzString const& configName, unsigned int at);
    template <class Member>
    void P_Replace(unsigned int index, std::shared_ptr<Member> const& member, bool inherited);
    template <class Member>
    MembersPrivate& P_Home(Member const* member);
    template <class Member>
    void P_Change(unsigned int index, auto const& change);
    template <class Member>
    bool P_Inherit(std::shared_ptr<Member> const& member);
    template <class Member>
    void P_PassOn(std::shared_ptr<Member> const& member);
    template <class Member>
    void P_CopyMembers(MembersPrivate const& other, auto& copies);

    Variable const* P_FindFiltered(unsigned int index, bool ownOnly, bool visibleOnly) const;
    bool P_IsShown(unsigned int index, bool ownOnly, bool visibleOnly) const;

    qzString m_name;
    Members const* m_parent;
    bool m_uniqueIdentifiers;
    unsigned int m_growth;
    MembersPrivate* m_owner = nullptr; ///< of a sub-member set
    MemberList<Variable> m_variables;
    MemberList<Action> m_actions;
    std::vector<std::unique_ptr<MembersPrivate>> m_subMembers;
    HashIndex m_subMemberIndex;
    std::vector<MembersPrivate*> m_heirs; ///< not owned
};

} // namespace qzDescriptor
