#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "qzutl/qzStlVector.h"

#include <cstdint>
#include <map>
#include <memory>

namespace qzDescriptor {

class MetaclassMgrPrivate;

/// The registry of metaclasses: their members, configurations and ownership rules, and the sessions over the
/// entities that they describe. An application derives its own and says how sessions are made.
///
///     class Registry : public MetaclassMgr {
///         ISession* CreateSession(qzString const& name) override { return new Session(name, this); }
///     };
///
///     Registry registry;
///     unsigned int const part = registry.Insert("Part", version, "", Registry::CONFIG_USAGE_NONE, "");
///     unsigned int const plate = registry.Insert("Plate", version, "Part", Registry::CONFIG_USAGE_NONE, "");
///     unsigned int const t = registry.InsertAttribute(plate, Identifier("T"), thickness, none, {});
///     unsigned int const plates = registry.InsertAttribute(part, Identifier("plates"), list, none, {});
///     registry.SetOwnership(plate, part, plates);
///     registry.GetDefinition(plate, t, 0)->GetDisplayName();
///
/// Handles are numbers from 1 on; 0 means none. They never change and nothing is ever removed, so that member
/// sets, definitions and identifiers that the registry hands out stay valid as long as it lives. Failures are
/// return values: 0, null, false or -1, and outputs stay as they are unless said otherwise.
///
/// A metaclass has every member of its parent, also those that the parent gains later; its own member of an
/// equal identifier takes the place, and the handle, of the inherited one. A configuration has what is
/// inserted into it and what its parent configuration has.
///
/// The registry owns the member sets, and at its end deletes the sessions in its table. It takes no lock:
/// concurrent readers are safe while nobody inserts and no session begins or ends.
class QZDESCRIPTOR_API MetaclassMgr {
public:
    /// Where the members of a metaclass's configurations are. Codes other than these are carried unchanged;
    /// configurations then have no members.
    enum ConfigUsage : std::int32_t {
        CONFIG_USAGE_NONE = 0,       ///< there are no configurations; each has the metaclass's own members
        CONFIG_USAGE_SUBMEMBER = 1,  ///< in sub-member sets of the metaclass's own set
        CONFIG_USAGE_OWN_MEMBERS = 2 ///< in member sets of their own
    };

    MetaclassMgr();

    // Operations that a derived registry may replace. Their order is part of the interface.

    virtual ~MetaclassMgr();

    /// Adds a rule: entities of the child metaclass may be owned through that attribute of an owner. Neither
    /// handles nor repetitions are checked; always true.
    virtual bool SetOwnership(unsigned int child, unsigned int owner, unsigned int ownerAttribute);
    /// The entity type of a metaclass; for applications that keep a table of types.
    virtual EntityFullType RegisterMetaclass(unsigned int metaclass) const;
    /// Whether a metaclass is another one or one of its descendants.
    virtual bool CheckParent(unsigned int metaclass, unsigned int ancestor) const;
    /// Appends the owner attributes of the rules for that child and owner. False when there is no rule for
    /// the child at all, true when there is one, if only for other owners.
    virtual bool GetOwnership(unsigned int child, unsigned int owner,
                              qzStlVector<unsigned int>& ownerAttributes) const;
    /// Replaces the map by the owners of a child, each with its owner attributes.
    virtual bool GetOwnership(unsigned int child,
                              std::map<unsigned int, qzStlVector<unsigned int>>& owners) const;
    virtual bool GetEntityFullTypeFromMetaclass(qzString const& name, EntityFullType& type) const;
    /// Always true; the type of a metaclass that does not exist is empty.
    virtual bool GetEntityFullTypeFromMetaclass(unsigned int metaclass, EntityFullType& type) const;
    /// Appends the type of every metaclass; whether there are any.
    virtual bool GetRegisteredEntityFullTypes(qzStlVector<EntityFullType>& types) const;
    /// The name of the metaclass of an entity type; false for a type without a name.
    virtual bool GetMetaclass(EntityFullType type, qzString& name) const;
    virtual unsigned int GetMetaclassHandle(EntityFullType type) const;
    /// The identifier that names an attribute of an entity of that type. One without a name key is looked up,
    /// among secondary identifiers too; an attribute without any name keeps the identifier that was given.
    virtual Identifier GetNamedIdentifier(EntityFullType type, Identifier identifier) const;

protected:
    /// Makes a session of that name over this registry, or answers null. Not called while the registry ends.
    virtual ISession* CreateSession(qzString const& name) = 0;

public:
    /// @name Metaclasses
    /// @{

    /// Registers a metaclass. It inherits the members that its parent has in the parent's configuration of
    /// that name, or the parent's own without such a configuration. A parent that is not registered makes it
    /// a root. 0 when the name is taken.
    unsigned int Insert(qzString const& name, Version const& version, qzString const& parentName,
                        ConfigUsage usage, qzString const& parentConfigName);
    unsigned int FindHandle(qzString const& name) const;
    unsigned int GetHandlesCount() const;
    bool GetNameAndOfParent(unsigned int metaclass, qzString& name, qzString& parentName) const;
    bool GetVersion(unsigned int metaclass, Version& version) const;
    /// Fills the list with the children, or with all descendants, in handle order. False for a metaclass that
    /// does not exist.
    bool FindChildrenHandles(unsigned int metaclass, qzStlVector<unsigned int>& children, bool recursive,
                             bool includeSelf) const;
    /// CONFIG_USAGE_NONE for a metaclass that does not exist.
    ConfigUsage GetConfigUsage(unsigned int metaclass) const;
    /// @}

    /// @name Configurations
    /// Configuration 0 is the metaclass itself; others have handles from 1 on.
    /// @{

    /// Adds a configuration, which inherits what its parent configuration has when there is one of that name.
    /// Number 0 asks for the smallest that is free. 0 when the metaclass has no configurations, and for a
    /// name or a number that is taken.
    unsigned int InsertConfig(unsigned int metaclass, qzString const& name, qzString const& parentConfigName,
                              unsigned int number);
    unsigned int FindConfigHandle(unsigned int metaclass, qzString const& name) const;
    unsigned int FindConfigHandle(unsigned int metaclass, unsigned int number) const;
    /// Whether there are any; the count of a metaclass that does not exist is 0.
    bool GetConfigHandlesCount(unsigned int metaclass, unsigned int& count) const;
    /// 0 and false for configuration 0 and for one that does not exist.
    bool GetConfigNumber(unsigned int metaclass, unsigned int config, unsigned int& number) const;
    bool GetConfigNameAndOfParent(unsigned int metaclass, unsigned int config, qzString& name,
                                  qzString& parentName) const;
    /// @}

    /// @name Members
    /// The handle of an attribute or action is its index in the member set plus 1; each configuration counts
    /// its own.
    /// @{

    Members const* GetMembers(unsigned int metaclass, unsigned int config) const;

    /// Inserts an attribute into the metaclass's own set and into the configurations listed. 0 when an equal
    /// identifier is there that was not inherited. A configuration that cannot take it makes the answer 0,
    /// too, and with sets of their own the metaclass keeps the attribute nevertheless.
    unsigned int InsertAttribute(unsigned int metaclass, Identifier const& id, Definition const& definition,
                                 Identifier const& secondaryId, qzStlVector<unsigned int> const& configs);
    /// The same without a copy of the definition, for definitions that many attributes share.
    unsigned int InsertAttribute(unsigned int metaclass, Identifier const& id,
                                 std::shared_ptr<Definition const> definition, Identifier const& secondaryId,
                                 qzStlVector<unsigned int> const& configs);
    unsigned int InsertAction(unsigned int metaclass, Identifier const& id,
                              ActionDefinition const& definition, qzStlVector<unsigned int> const& configs);
    unsigned int InsertAction(unsigned int metaclass, Identifier const& id,
                              std::shared_ptr<ActionDefinition const> definition,
                              qzStlVector<unsigned int> const& configs);
    /// Adds members of the metaclass's own set to a configuration, and answers how many it took or
    /// had only by inheritance. 0 for a metaclass that does not exist; -1, and nothing is added, for a
    /// configuration, a list or a member that does not exist.
    int InsertAttributesIntoConfig(unsigned int metaclass, unsigned int config,
                                   qzStlVector<unsigned int> const& attributes);
    int InsertActionsIntoConfig(unsigned int metaclass, unsigned int config,
                                qzStlVector<unsigned int> const& actions);

    /// Says what the columns of a table-valued attribute are; null takes that back. An inherited attribute
    /// becomes the metaclass's own by that. False when there is no such attribute.
    bool SetTabularDefinition(unsigned int metaclass, unsigned int attribute, unsigned int config,
                              std::shared_ptr<TabularDefinition const> definition);

    /// By identifier and, when there is none and `secondary` is set, by secondary identifier.
    unsigned int FindAttributeHandle(unsigned int metaclass, Identifier const& id, unsigned int config,
                                     bool secondary) const;
    unsigned int FindActionHandle(unsigned int metaclass, qzString const& name, unsigned int config) const;
    // These fill the list anew and answer whether there are any.
    bool GetAttributeHandles(unsigned int metaclass, qzStlVector<unsigned int>& attributes,
                             unsigned int config) const;
    bool GetActionHandles(unsigned int metaclass, qzStlVector<unsigned int>& actions,
                          unsigned int config) const;
    /// The attributes through which a rule says that entities of this metaclass own others. A registry that
    /// keeps its rules elsewhere than SetOwnership does here has none.
    bool GetOwnerAttributeHandles(unsigned int metaclass, qzStlVector<unsigned int>& attributes,
                                  unsigned int config) const;
    Definition const* GetDefinition(unsigned int metaclass, unsigned int attribute,
                                    unsigned int config) const;
    ActionDefinition const* GetActionDefinition(unsigned int metaclass, unsigned int action, Identifier& id,
                                                unsigned int config) const;
    /// An empty identifier, the same at every call, when there is no such attribute.
    Identifier const& GetIdentifier(unsigned int metaclass, unsigned int attribute, unsigned int config,
                                    bool secondary) const;
    /// @}

    /// @name Sessions
    /// Sessions enter and leave the table by themselves. The first one is current, and stays so until another
    /// is made current: the end of a session does not change that.
    /// @{

    /// The session of a name, the current one for an empty name; made by CreateSession when there is none.
    ISession* GetSession(qzString const& name);
    bool SetCurrentSession(qzString const& name);
    /// Takes a session out of the table and deletes it. Does nothing for null, nor for a session whose end
    /// has begun.
    void RemoveSession(ISession* session);
    /// @}

private:
    friend class ISession;
    friend QZDESCRIPTOR_API ISession* GetScriptSession();

    MetaclassMgr(MetaclassMgr const&) = delete;
    MetaclassMgr& operator=(MetaclassMgr const&) = delete;

    // For ISession, which tells of its beginning, of its end before it notifies anybody, and again when it
    // has. A session that is not taken into the table has nothing to tell: its name is taken, or it began
    // when the registry had all but ended.
    bool P_SessionCreated(ISession* session);
    void P_SessionEnding(ISession* session);
    void P_SessionDeleted(ISession* session);
    void P_DeleteSessions();
    // Null when the current session has ended.
    ISession* P_FindCurrentSession() const;

    std::unique_ptr<MetaclassMgrPrivate> m_private;
};

} // namespace qzDescriptor
