// Attributes and actions of metaclasses and of their configurations.

#include "descriptor/MetaclassMgr.h"
#include "registry/MetaclassMgrPrivate.h"

#include <algorithm>
#include <utility>

namespace qzDescriptor {

namespace {

using Handles = qzStlVector<unsigned int>;

/// What the operations for attributes and those for actions differ in.
struct Attributes {
    static unsigned int GetCount(Members const& members) { return members.GetVariableCount(false, false); }
    static unsigned int Show(Members& members, unsigned int index, qzString const& configName) {
        return members.InsertExistingIntoSubMember(index, configName, Members::s_none);
    }
    static unsigned int Copy(Members& members, Members const& from, unsigned int index) {
        unsigned int const copy = members.InsertVariable(
            from.GetVariableIdentifier(index), from.ShareVariableDefinition(index),
            from.GetVariableIdentifier(index, false, true), false, Members::s_none, qzString(), {});
        if (auto table = from.GetTabularDefinition(index))
            members.SetTabularDefinition(copy, std::move(table));
        return copy;
    }
};

struct Actions {
    static unsigned int GetCount(Members const& members) { return members.GetActionCount(false); }
    static unsigned int Show(Members& members, unsigned int index, qzString const& configName) {
        return members.InsertExistingActionIntoSubMember(index, configName, Members::s_none);
    }
    static unsigned int Copy(Members& members, Members const& from, unsigned int index) {
        return members.InsertAction(from.GetActionIdentifier(index), from.ShareActionDefinition(index), false,
                                    Members::s_none, qzString(), {});
    }
};

/// Inserts into the metaclass's own set and into configurations: `insert` takes a set and the names of the
/// sub-member sets that are to show the member, and answers an index.
unsigned int InsertMember(MetaclassRecord& record, Handles const& configs, auto const& insert) {
    qzStlVector<qzString> names;
    if (record.usage == MetaclassMgr::CONFIG_USAGE_SUBMEMBER) {
        for (unsigned int const config : configs) {
            if (!record.HasConfig(config))
                return 0;
            names.push_back(record.configs[config].name);
        }
    }
    unsigned int const index = insert(*record.members, names);
    if (index == Members::s_none)
        return 0;
    if (record.usage == MetaclassMgr::CONFIG_USAGE_OWN_MEMBERS) {
        for (unsigned int const config : configs) {
            // What stands in the metaclass's own set stays there.
            if (!record.HasConfig(config) ||
                insert(*record.FindMembers(config), qzStlVector<qzString>()) == Members::s_none)
                return 0;
        }
    }
    return index + 1;
}

template <class Kind>
int InsertIntoConfig(MetaclassRecord* record, unsigned int config, Handles const& handles) {
    if (record == nullptr)
        return 0;
    Members* const members = record->HasConfig(config) ? record->FindMembers(config) : nullptr;
    if (record->usage == MetaclassMgr::CONFIG_USAGE_NONE || handles.empty() || members == nullptr)
        return -1;
    unsigned int const count = Kind::GetCount(*record->members);
    if (std::ranges::any_of(handles, [&](unsigned int handle) { return handle == 0 || handle > count; }))
        return -1;
    int added = 0;
    for (unsigned int const handle : handles) {
        unsigned int const index =
            record->usage == MetaclassMgr::CONFIG_USAGE_SUBMEMBER
                ? Kind::Show(*record->members, handle - 1, record->configs[config].name)
                : Kind::Copy(*members, *record->members, handle - 1);
        added += index == Members::s_none ? 0 : 1;
    }
    return added;
}

template <class Kind>
bool FillHandles(Members const* members, Handles& handles) {
    handles.clear();
    unsigned int const count = members == nullptr ? 0 : Kind::GetCount(*members);
    handles.reserve(count);
    for (unsigned int handle = 1; handle <= count; ++handle)
        handles.push_back(handle);
    return !handles.empty();
}

/// Members::s_none becomes 0.
unsigned int ToHandle(unsigned int index) { return index + 1; }

} // namespace

Members const* MetaclassMgr::GetMembers(unsigned int metaclass, unsigned int config) const {
    return m_private->FindMembers(metaclass, config);
}

unsigned int MetaclassMgr::InsertAttribute(unsigned int metaclass, Identifier const& id,
                                           Definition const& definition, Identifier const& secondaryId,
                                           Handles const& configs) {
    return InsertAttribute(metaclass, id, std::make_shared<Definition const>(definition), secondaryId,
                           configs);
}

unsigned int MetaclassMgr::InsertAttribute(unsigned int metaclass, Identifier const& id,
                                           std::shared_ptr<Definition const> definition,
                                           Identifier const& secondaryId, Handles const& configs) {
    MetaclassRecord* const record = m_private->Find(metaclass);
    if (record == nullptr)
        return 0;
    return InsertMember(*record, configs, [&](Members& members, qzStlVector<qzString> const& names) {
        return members.InsertVariable(id, definition, secondaryId, false, Members::s_none, qzString(), names);
    });
}

unsigned int MetaclassMgr::InsertAction(unsigned int metaclass, Identifier const& id,
                                        ActionDefinition const& definition, Handles const& configs) {
    return InsertAction(metaclass, id, std::make_shared<ActionDefinition const>(definition), configs);
}

unsigned int MetaclassMgr::InsertAction(unsigned int metaclass, Identifier const& id,
                                        std::shared_ptr<ActionDefinition const> definition,
                                        Handles const& configs) {
    MetaclassRecord* const record = m_private->Find(metaclass);
    if (record == nullptr)
        return 0;
    return InsertMember(*record, configs, [&](Members& members, qzStlVector<qzString> const& names) {
        return members.InsertAction(id, definition, false, Members::s_none, qzString(), names);
    });
}

int MetaclassMgr::InsertAttributesIntoConfig(unsigned int metaclass, unsigned int config,
                                             Handles const& attributes) {
    return InsertIntoConfig<Attributes>(m_private->Find(metaclass), config, attributes);
}

int MetaclassMgr::InsertActionsIntoConfig(unsigned int metaclass, unsigned int config,
                                          Handles const& actions) {
    return InsertIntoConfig<Actions>(m_private->Find(metaclass), config, actions);
}

bool MetaclassMgr::SetTabularDefinition(unsigned int metaclass, unsigned int attribute, unsigned int config,
                                        std::shared_ptr<TabularDefinition const> definition) {
    Members* const members = m_private->FindMembers(metaclass, config);
    return attribute != 0 && members != nullptr &&
           members->SetTabularDefinition(attribute - 1, std::move(definition));
}

unsigned int MetaclassMgr::FindAttributeHandle(unsigned int metaclass, Identifier const& id,
                                               unsigned int config, bool secondary) const {
    Members const* const members = m_private->FindMembers(metaclass, config);
    return members == nullptr ? 0 : ToHandle(members->FindVariableIndexFromIdentifier(id, 0, secondary));
}

unsigned int MetaclassMgr::FindActionHandle(unsigned int metaclass, qzString const& name,
                                            unsigned int config) const {
    Members const* const members = m_private->FindMembers(metaclass, config);
    return members == nullptr ? 0 : ToHandle(members->FindActionIndexFromIdentifier(Identifier(name)));
}

bool MetaclassMgr::GetAttributeHandles(unsigned int metaclass, Handles& attributes,
                                       unsigned int config) const {
    return FillHandles<Attributes>(m_private->FindMembers(metaclass, config), attributes);
}

bool MetaclassMgr::GetActionHandles(unsigned int metaclass, Handles& actions, unsigned int config) const {
    return FillHandles<Actions>(m_private->FindMembers(metaclass, config), actions);
}

Definition const* MetaclassMgr::GetDefinition(unsigned int metaclass, unsigned int attribute,
                                              unsigned int config) const {
    Members const* const members = m_private->FindMembers(metaclass, config);
    if (attribute == 0 || members == nullptr)
        return nullptr;
    return members->GetVariableDefinition(attribute - 1, 0, false);
}

ActionDefinition const* MetaclassMgr::GetActionDefinition(unsigned int metaclass, unsigned int action,
                                                          Identifier& id, unsigned int config) const {
    Members const* const members = m_private->FindMembers(metaclass, config);
    if (action == 0 || members == nullptr)
        return nullptr;
    ActionDefinition const* const definition = members->GetActionDefinition(action - 1);
    if (definition != nullptr)
        id = members->GetActionIdentifier(action - 1);
    return definition;
}

Identifier const& MetaclassMgr::GetIdentifier(unsigned int metaclass, unsigned int attribute,
                                              unsigned int config, bool secondary) const {
    if (m_private->Find(metaclass) == nullptr) {
        static Identifier const s_noMetaclass;
        return s_noMetaclass;
    }
    Members const* const members = m_private->FindMembers(metaclass, config);
    if (attribute == 0 || members == nullptr) {
        static Identifier const s_noAttribute;
        return s_noAttribute;
    }
    return members->GetVariableIdentifier(attribute - 1, false, secondary, false);
}

} // namespace qzDescriptor
