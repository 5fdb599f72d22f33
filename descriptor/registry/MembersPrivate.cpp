#include "registry/MembersPrivate.h"

#include "descriptor/TabularDefinition.h"

#include <type_traits>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace qzDescriptor {

namespace {

Identifier const& NoIdentifier() {
    static Identifier const s_identifier;
    return s_identifier;
}

} // namespace

MembersPrivate::MembersPrivate(qzString const& name, Members const* parent, bool uniqueIdentifiers,
                               unsigned int growth)
    : m_name(name), m_parent(parent), m_uniqueIdentifiers(uniqueIdentifiers), m_growth(growth) {}

MembersPrivate::MembersPrivate(qzString const& name, MembersPrivate& owner)
    : m_name(name),
      m_parent(&owner),
      m_uniqueIdentifiers(owner.m_uniqueIdentifiers),
      m_growth(owner.m_growth),
      m_owner(&owner) {}

void MembersPrivate::Destroy() {
    if (m_owner == nullptr)
        delete this;
}

// --- what is the same for attributes and actions --------------------------------------------------------

template <class Member>
MemberList<Member>& MembersPrivate::P_List() {
    if constexpr (std::is_same_v<Member, Variable>)
        return m_variables;
    else
        return m_actions;
}

template <class Member>
MemberList<Member> const& MembersPrivate::P_List() const {
    return const_cast<MembersPrivate*>(this)->P_List<Member>();
}

template <class Member>
unsigned int MembersPrivate::P_Insert(std::shared_ptr<Member> member, bool replace, unsigned int at,
                                      qzString const& memberName, ConfigNames const& configNames) {
    bool const needsSubMembers = !memberName.empty() || !configNames.empty();
    if (!member->GetDefinition() || (needsSubMembers && m_owner != nullptr))
        return s_none;
    MembersPrivate& set = memberName.empty() ? *this : *InsertSubMember(memberName);
    MemberList<Member> const& list = set.P_List<Member>();
    unsigned int existing = s_none;
    if (set.m_uniqueIdentifiers || replace)
        existing = list.Find(member->GetId());
    if (existing != s_none && !replace && !list.IsInherited(existing))
        return s_none;
    if (existing == s_none && at != s_none && at > list.GetCount())
        return s_none;
    Member const& shown = existing == s_none ? *member : *list.Get(existing);
    for (qzString const& name : configNames) {
        MembersPrivate const* const subMember = GetSubMember(name);
        if (subMember != nullptr && !replace && !subMember->P_CanShow(shown))
            return s_none;
    }

    unsigned int index = existing;
    if (existing != s_none)
        set.P_Change<Member>(existing, [&](Member& changed) { changed.Redefine(*member); });
    else
        index = set.P_Append(member, at);
    std::shared_ptr<Member> const inserted = list.Share(index);
    for (qzString const& name : configNames)
        InsertSubMember(name)->P_Show(inserted, s_none);
    return index;
}

/// Whether there is no other member of that identifier, but inherited ones.
template <class Member>
bool MembersPrivate::P_CanShow(Member const& member) const {
    MemberList<Member> const& list = P_List<Member>();
    unsigned int const index = m_uniqueIdentifiers ? list.Find(member.GetId()) : s_none;
    return index == s_none || list.IsInherited(index) || list.Get(index) == &member;
}

template <class Member>
unsigned int MembersPrivate::P_Show(std::shared_ptr<Member> const& member, unsigned int at) {
    MemberList<Member>& list = P_List<Member>();
    unsigned int const index = m_uniqueIdentifiers ? list.Find(member->GetId()) : list.Find(member.get());
    if (index != s_none) {
        P_Replace(index, member, false);
        P_PassOn(member);
        return index;
    }
    return P_Append(member, at);
}

template <class Member>
unsigned int MembersPrivate::P_Append(std::shared_ptr<Member> const& member, unsigned int at) {
    MemberList<Member>& list = P_List<Member>();
    unsigned int const index = at == s_none ? list.GetCount() : at;
    list.Insert(index, member, false, m_growth);
    P_PassOn(member);
    return index;
}

template <class Member>
unsigned int MembersPrivate::P_ShowExisting(unsigned int index, qzString const& configName, unsigned int at) {
    MemberList<Member> const& list = P_List<Member>();
    if (index >= list.GetCount())
        return s_none;
    std::shared_ptr<Member> const member = list.Share(index);
    MembersPrivate* const subMember = InsertSubMember(configName);
    if (subMember == nullptr)
        return s_none;
    MemberList<Member> const& shown = subMember->P_List<Member>();
    unsigned int const existing =
        m_uniqueIdentifiers ? shown.Find(member->GetId()) : shown.Find(member.get());
    if (existing != s_none ? !shown.IsInherited(existing) : at != s_none && at > shown.GetCount())
        return s_none;
    return subMember->P_Show(member, at);
}

/// Sub-member sets that show the previous member show the new one.
template <class Member>
void MembersPrivate::P_Replace(unsigned int index, std::shared_ptr<Member> const& member, bool inherited) {
    MemberList<Member>& list = P_List<Member>();
    std::shared_ptr<Member> const previous = list.Share(index);
    list.Replace(index, member, inherited);
    if (previous == member)
        return;
    for (auto const& subMember : m_subMembers) {
        MemberList<Member>& shown = subMember->P_List<Member>();
        unsigned int const place = shown.Find(previous.get());
        if (place != s_none)
            shown.Replace(place, member, shown.IsInherited(place));
    }
}

/// The set that a member belongs to: a sub-member set shows those of its owner.
template <class Member>
MembersPrivate& MembersPrivate::P_Home(Member const* member) {
    return m_owner != nullptr && m_owner->P_List<Member>().Find(member) != s_none ? *m_owner : *this;
}

/// Changes a member, which is no longer inherited by that if it was.
template <class Member>
void MembersPrivate::P_Change(unsigned int index, auto const& change) {
    MemberList<Member> const& list = P_List<Member>();
    MembersPrivate& home = list.IsInherited(index) ? *this : P_Home(list.Get(index));
    if (&home != this)
        return home.P_Change<Member>(home.P_List<Member>().Find(list.Get(index)), change);
    if (list.IsInherited(index))
        P_Replace(index, std::make_shared<Member>(*list.Get(index)), false);
    std::shared_ptr<Member> const member = list.Share(index);
    change(*member);
    P_Replace(index, member, false);
    P_PassOn(member);
}

// --- inheriting -----------------------------------------------------------------------------------------

void MembersPrivate::InheritFrom(MembersPrivate& base) {
    m_variables.Reserve(base.m_variables.GetCount());
    for (unsigned int index = 0; index < base.m_variables.GetCount(); ++index)
        P_Inherit(base.m_variables.Share(index));
    m_actions.Reserve(base.m_actions.GetCount());
    for (unsigned int index = 0; index < base.m_actions.GetCount(); ++index)
        P_Inherit(base.m_actions.Share(index));
    base.m_heirs.push_back(this);
}

/// Whether the set has the base's member now: its own of an equal identifier stays.
template <class Member>
bool MembersPrivate::P_Inherit(std::shared_ptr<Member> const& member) {
    MemberList<Member>& list = P_List<Member>();
    unsigned int const index = list.Find(member->GetId());
    if (index == s_none)
        list.Insert(list.GetCount(), member, true, m_growth);
    else if (list.IsInherited(index))
        P_Replace(index, member, true);
    else
        return false;
    return true;
}

/// Gives a member of this set, new or redefined, to the heirs of the set and of the sub-member sets that show
/// it, and to theirs. A queue: chains of heirs may be longer than the stack.
template <class Member>
void MembersPrivate::P_PassOn(std::shared_ptr<Member> const& member) {
    if (m_heirs.empty() && m_subMembers.empty())
        return;
    std::vector<MembersPrivate*> reached{this};
    std::unordered_set<MembersPrivate*> known{this};
    for (std::size_t i = 0; i < reached.size(); ++i) {
        MembersPrivate const& set = *reached[i];
        for (MembersPrivate* const heir : set.m_heirs) {
            if (heir->P_Inherit(member) && known.insert(heir).second)
                reached.push_back(heir);
        }
        for (auto const& subMember : set.m_subMembers) {
            MemberList<Member>& shown = subMember->P_List<Member>();
            unsigned int const place = shown.Find(member.get());
            if (place == s_none || !known.insert(subMember.get()).second)
                continue;
            shown.Replace(place, member, shown.IsInherited(place));
            reached.push_back(subMember.get());
        }
    }
}

// --- attributes -----------------------------------------------------------------------------------------

unsigned int MembersPrivate::InsertVariable(Identifier const& id,
                                            std::shared_ptr<Definition const> definition,
                                            Identifier const& secondaryId, bool replace, unsigned int at,
                                            qzString const& memberName, ConfigNames const& configNames) {
    return P_Insert(std::make_shared<Variable>(id, std::move(definition), secondaryId), replace, at,
                    memberName, configNames);
}

unsigned int MembersPrivate::InsertExistingIntoSubMember(unsigned int index, qzString const& configName,
                                                         unsigned int at) {
    return P_ShowExisting<Variable>(index, configName, at);
}

bool MembersPrivate::ReplaceVariableDefinition(unsigned int index,
                                               std::shared_ptr<Definition const> definition) {
    if (index >= m_variables.GetCount() || !definition)
        return false;
    P_Change<Variable>(index, [&](Variable& variable) { variable.SetDefinition(definition); });
    return true;
}

bool MembersPrivate::SetSecondaryIdentifier(unsigned int index, Identifier const& secondaryId) {
    if (index >= m_variables.GetCount())
        return false;
    P_Change<Variable>(index, [&](Variable& variable) { variable.SetSecondaryId(secondaryId); });
    return true;
}

bool MembersPrivate::SetTabularDefinition(unsigned int index,
                                          std::shared_ptr<TabularDefinition const> definition) {
    if (index >= m_variables.GetCount())
        return false;
    P_Change<Variable>(index, [&](Variable& variable) { variable.SetTabularDefinition(definition); });
    return true;
}

bool MembersPrivate::P_IsShown(unsigned int index, bool ownOnly, bool visibleOnly) const {
    return !(ownOnly && m_variables.IsInherited(index)) &&
           !(visibleOnly && !m_variables.Get(index)->GetDefinition()->GetVisible());
}

Variable const* MembersPrivate::P_FindFiltered(unsigned int index, bool ownOnly, bool visibleOnly) const {
    if (!ownOnly && !visibleOnly)
        return m_variables.Get(index);
    for (unsigned int i = 0; i < m_variables.GetCount(); ++i) {
        if (P_IsShown(i, ownOnly, visibleOnly) && index-- == 0)
            return m_variables.Get(i);
    }
    return nullptr;
}

unsigned int MembersPrivate::GetVariableCount(bool ownOnly, bool visibleOnly) const {
    if (!ownOnly && !visibleOnly)
        return m_variables.GetCount();
    unsigned int count = 0;
    for (unsigned int index = 0; index < m_variables.GetCount(); ++index)
        count += P_IsShown(index, ownOnly, visibleOnly) ? 1 : 0;
    return count;
}

Identifier const& MembersPrivate::GetVariableIdentifier(unsigned int index, bool ownOnly, bool secondary,
                                                        bool visibleOnly) const {
    Variable const* const variable = P_FindFiltered(index, ownOnly, visibleOnly);
    if (variable == nullptr)
        return NoIdentifier();
    return secondary ? variable->GetSecondaryId() : variable->GetId();
}

unsigned int MembersPrivate::GetVariableIdentifiers(std::vector<Identifier>& ids, bool ownOnly,
                                                    bool visibleOnly) const {
    ids.clear();
    for (unsigned int index = 0; index < m_variables.GetCount(); ++index) {
        if (P_IsShown(index, ownOnly, visibleOnly))
            ids.push_back(m_variables.Get(index)->GetId());
    }
    return static_cast<unsigned int>(ids.size());
}

Definition const* MembersPrivate::GetVariableDefinition(unsigned int index, unsigned int column,
                                                        bool ofColumn) const {
    Variable const* const variable = m_variables.Get(index);
    if (variable == nullptr)
        return nullptr;
    if (!ofColumn)
        return variable->GetDefinition().get();
    auto const table = variable->GetTabularDefinition();
    return table && column < table->GetColumnCount() ? &table->GetColumnDefinition(column) : nullptr;
}

std::shared_ptr<Definition const> MembersPrivate::ShareVariableDefinition(unsigned int index) const {
    Variable const* const variable = m_variables.Get(index);
    return variable == nullptr ? nullptr : variable->GetDefinition();
}

std::shared_ptr<TabularDefinition const> MembersPrivate::GetTabularDefinition(unsigned int index) const {
    Variable const* const variable = m_variables.Get(index);
    return variable == nullptr ? nullptr : variable->GetTabularDefinition();
}

ValuePtr const* MembersPrivate::GetDefaultValue(unsigned int index) const {
    Variable const* const variable = m_variables.Get(index);
    return variable == nullptr ? nullptr : variable->GetDefaultValue();
}

bool MembersPrivate::GetConfigNames(unsigned int index, ConfigNames& names) const {
    names.clear();
    if (Variable const* const variable = m_variables.Get(index)) {
        for (auto const& subMember : m_subMembers) {
            if (subMember->m_variables.Find(variable) != s_none)
                names.push_back(subMember->m_name);
        }
    }
    return !names.empty();
}

unsigned int MembersPrivate::FindVariableIndexFromIdentifier(Identifier const& id, unsigned int first,
                                                             bool secondary) const {
    unsigned int const index = m_variables.Find(id, first);
    return index == s_none && secondary ? m_variables.FindSecondary(id, first) : index;
}

// --- actions --------------------------------------------------------------------------------------------

unsigned int MembersPrivate::InsertAction(Identifier const& id,
                                          std::shared_ptr<ActionDefinition const> definition, bool replace,
                                          unsigned int at, qzString const& memberName,
                                          ConfigNames const& configNames) {
    return P_Insert(std::make_shared<Action>(id, std::move(definition)), replace, at, memberName,
                    configNames);
}

unsigned int MembersPrivate::InsertExistingActionIntoSubMember(unsigned int index, qzString const& configName,
                                                               unsigned int at) {
    return P_ShowExisting<Action>(index, configName, at);
}

bool MembersPrivate::ReplaceActionDefinition(unsigned int index,
                                             std::shared_ptr<ActionDefinition const> definition) {
    if (index >= m_actions.GetCount() || !definition)
        return false;
    P_Change<Action>(index, [&](Action& action) { action.SetDefinition(definition); });
    return true;
}

unsigned int MembersPrivate::GetActionCount(bool ownOnly) const {
    unsigned int count = m_actions.GetCount();
    for (unsigned int index = 0; ownOnly && index < m_actions.GetCount(); ++index)
        count -= m_actions.IsInherited(index) ? 1 : 0;
    return count;
}

Identifier const& MembersPrivate::GetActionIdentifier(unsigned int index) const {
    Action const* const action = m_actions.Get(index);
    return action == nullptr ? NoIdentifier() : action->GetId();
}

ActionDefinition const* MembersPrivate::GetActionDefinition(unsigned int index) const {
    Action const* const action = m_actions.Get(index);
    return action == nullptr ? nullptr : action->GetDefinition().get();
}

std::shared_ptr<ActionDefinition const> MembersPrivate::ShareActionDefinition(unsigned int index) const {
    Action const* const action = m_actions.Get(index);
    return action == nullptr ? nullptr : action->GetDefinition();
}

unsigned int MembersPrivate::FindActionIndexFromIdentifier(Identifier const& id, unsigned int first) const {
    return m_actions.Find(id, first);
}

// --- sub-member sets ------------------------------------------------------------------------------------

MembersPrivate* MembersPrivate::InsertSubMember(qzString const& name) {
    if (m_owner != nullptr)
        return nullptr;
    if (MembersPrivate* const existing = GetSubMember(name))
        return existing;
    auto const position = static_cast<unsigned int>(m_subMembers.size());
    m_subMemberIndex.Reserve(m_subMembers.size() + 1);
    m_subMembers.push_back(std::make_unique<MembersPrivate>(name, *this));
    m_subMemberIndex.Insert(HashOf(name), position);
    return m_subMembers.back().get();
}

MembersPrivate* MembersPrivate::GetSubMember(qzString const& name) const {
    unsigned int const position =
        m_subMemberIndex.Find(HashOf(name), [&](unsigned int i) { return m_subMembers[i]->m_name == name; });
    return position == s_none ? nullptr : m_subMembers[position].get();
}

bool MembersPrivate::GetSubMemberNames(qzStlVector<qzString>& names) const {
    names.clear();
    for (auto const& subMember : m_subMembers)
        names.push_back(subMember->m_name);
    return !names.empty();
}

// --- copying --------------------------------------------------------------------------------------------

/// A member that the copies have already is shared with them, as the originals share it.
template <class Member>
void MembersPrivate::P_CopyMembers(MembersPrivate const& other, auto& copies) {
    MemberList<Member> const& list = other.P_List<Member>();
    for (unsigned int index = 0; index < list.GetCount(); ++index) {
        std::shared_ptr<Member>& copy = copies[list.Get(index)];
        if (!copy)
            copy = std::make_shared<Member>(*list.Get(index));
        P_List<Member>().Insert(index, copy, list.IsInherited(index), m_growth);
    }
}

Members* MembersPrivate::Clone() const {
    auto clone = std::make_unique<MembersPrivate>(m_name, m_parent, m_uniqueIdentifiers, m_growth);
    std::unordered_map<Variable const*, std::shared_ptr<Variable>> variables;
    std::unordered_map<Action const*, std::shared_ptr<Action>> actions;
    auto const copy = [&](MembersPrivate& to, MembersPrivate const& from) {
        to.P_CopyMembers<Variable>(from, variables);
        to.P_CopyMembers<Action>(from, actions);
    };
    copy(*clone, *this);
    for (auto const& subMember : m_subMembers)
        copy(*clone->InsertSubMember(subMember->m_name), *subMember);
    return clone.release();
}

} // namespace qzDescriptor
