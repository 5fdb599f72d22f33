#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <memory>
#include <vector>

namespace qzDescriptor {

/// A member set: the attributes and the actions of a metaclass or of one of its configurations, each in an
/// order of its own. An attribute has an identifier, a definition and, if need be, a secondary identifier, a
/// tabular definition and the sub-member sets that show it too.
///
///     Members* const plate = Members::Create("Plate");
///     plate->InsertVariable(Identifier("T"), thickness, Identifier(7), false, Members::s_none, "", {});
///     unsigned int const index = plate->FindVariableIndexFromIdentifier(Identifier("T"), 0, false);
///     Definition const* const definition = plate->GetVariableDefinition(index, 0, false);
///     plate->Destroy();
///
/// Definitions are shared: with the sets that inherit them, with sub-member sets and with whoever asks for a
/// share. References to identifiers and definitions stay valid while members are inserted; a definition that
/// is replaced lives on as long as somebody shares it.
///
/// Not synchronised; any number of threads may read while nobody writes, default values included.
class QZDESCRIPTOR_API Members {
public:
    /// The index of no member. As a place to insert at: behind the last one.
    static constexpr unsigned int s_none = 0xFFFFFFFF;

    /// Makes an empty set, which ends with Destroy. With unique identifiers an identifier that is equal to
    /// one in the set is refused. The capacity is a hint of how many attributes are to come; when there is no
    /// room, it is made for `growth` more, or for as many again when that is 0.
    static Members* Create(qzString const& name, bool uniqueIdentifiers = true, unsigned int capacity = 10,
                           unsigned int growth = 0);
    /// The same with a parent, which is kept for those who ask for it and may be null. The new set is empty:
    /// what it inherits is for the registry to say.
    static Members* CreateWithParent(qzString const& name, Members const* parent, bool uniqueIdentifiers,
                                     unsigned int capacity, unsigned int growth);

    Members(Members const&) = delete;
    Members& operator=(Members const&) = delete;

    virtual void Destroy() = 0;
    /// Members and sub-member sets of its own, definitions shared, the same name and parent.
    virtual Members* Clone() const = 0;

    virtual qzString const& GetName() const = 0;
    virtual Members const* GetParent() const = 0;

    /// @name Inserting attributes
    /// @{

    /// Inserts an attribute, and answers its index or s_none.
    ///
    /// An attribute of an equal identifier is redefined where it stands, under the identifier it has, when it
    /// is inherited or when `replace` is set; otherwise identifiers that have to be unique are refused.
    /// `at` is the place of a new attribute; one behind the end is refused. With a member name the attribute
    /// goes into the sub-member set of that name instead of this one, and the index is one of that set.
    /// The sub-member sets in `configNames` show it too; one that has another attribute of that identifier
    /// refuses. Sets that are missing are made. Nothing is inserted when any of this is refused.
    virtual unsigned int InsertVariable(Identifier const& id, std::shared_ptr<Definition const> definition,
                                        Identifier const& secondaryId, bool replace, unsigned int at,
                                        qzString const& memberName,
                                        qzStlVector<qzString> const& configNames) = 0;
    /// The same with a copy of the definition.
    unsigned int InsertVariable(Identifier const& id, Definition const& definition,
                                Identifier const& secondaryId, bool replace, unsigned int at,
                                qzString const& memberName, qzStlVector<qzString> const& configNames);
    /// Shows an attribute of this set in a sub-member set, which is made when it is missing. Answers the
    /// index there, or s_none when there is no such attribute or the set has one of an equal identifier that
    /// is not inherited.
    virtual unsigned int InsertExistingIntoSubMember(unsigned int index, qzString const& configName,
                                                     unsigned int at) = 0;
    /// @}

    /// @name Changing attributes
    /// False for an index or a definition that does not exist. An inherited attribute becomes one of this set
    /// by that, and what it was inherited from stays as it is.
    /// @{

    /// Ends the default value made from the previous definition.
    virtual bool ReplaceVariableDefinition(unsigned int index,
                                           std::shared_ptr<Definition const> definition) = 0;
    virtual bool SetSecondaryIdentifier(unsigned int index, Identifier const& secondaryId) = 0;
    /// Null takes the tabular definition away.
    virtual bool SetTabularDefinition(unsigned int index,
                                      std::shared_ptr<TabularDefinition const> definition) = 0;
    /// @}

    /// @name Reading attributes
    /// `ownOnly` leaves out what is inherited, `visibleOnly` what its definition hides; indices count what
    /// remains.
    /// @{

    virtual unsigned int GetVariableCount(bool ownOnly = false, bool visibleOnly = false) const = 0;
    /// An empty identifier, the same at every call, when there is no such attribute. The secondary identifier
    /// is empty when the attribute has none.
    virtual Identifier const& GetVariableIdentifier(unsigned int index, bool ownOnly = false,
                                                    bool secondary = false,
                                                    bool visibleOnly = false) const = 0;
    /// Fills the vector anew and answers how many there are.
    virtual unsigned int GetVariableIdentifiers(std::vector<Identifier>& ids, bool ownOnly = false,
                                                bool visibleOnly = false) const = 0;
    /// Null when there is no such attribute. `ofColumn` asks for the definition of a column of the
    /// attribute's tabular definition instead; null without that column.
    virtual Definition const* GetVariableDefinition(unsigned int index, unsigned int column = 0,
                                                    bool ofColumn = false) const = 0;
    virtual std::shared_ptr<Definition const> ShareVariableDefinition(unsigned int index) const = 0;
    virtual std::shared_ptr<TabularDefinition const> GetTabularDefinition(unsigned int index) const = 0;
    /// The value that the definition gives an attribute nobody has set, made when it is first asked for. Null
    /// when there is no such attribute or its type has no values. It lives as long as the definition is not
    /// replaced.
    virtual ValuePtr const* GetDefaultValue(unsigned int index) const = 0;
    virtual bool IsVariableInherited(unsigned int index) const = 0;
    /// Fills the list with the names of the sub-member sets that show the attribute; whether there are any.
    virtual bool GetConfigNames(unsigned int index, qzStlVector<qzString>& names) const = 0;

    /// The first attribute from index `first` on whose identifier is equal, wildcards included, or s_none.
    /// When there is none and `secondary` is set, the first one whose secondary identifier is valid and
    /// equal.
    virtual unsigned int FindVariableIndexFromIdentifier(Identifier const& id, unsigned int first,
                                                         bool secondary) const = 0;
    /// @}

    /// @name Actions
    /// As with attributes.
    /// @{

    virtual unsigned int InsertAction(Identifier const& id,
                                      std::shared_ptr<ActionDefinition const> definition, bool replace,
                                      unsigned int at, qzString const& memberName,
                                      qzStlVector<qzString> const& configNames) = 0;
    unsigned int InsertAction(Identifier const& id, ActionDefinition const& definition, bool replace,
                              unsigned int at, qzString const& memberName,
                              qzStlVector<qzString> const& configNames);
    virtual unsigned int InsertExistingActionIntoSubMember(unsigned int index, qzString const& configName,
                                                           unsigned int at) = 0;
    virtual bool ReplaceActionDefinition(unsigned int index,
                                         std::shared_ptr<ActionDefinition const> definition) = 0;

    virtual unsigned int GetActionCount(bool ownOnly = false) const = 0;
    virtual Identifier const& GetActionIdentifier(unsigned int index) const = 0;
    virtual ActionDefinition const* GetActionDefinition(unsigned int index) const = 0;
    virtual std::shared_ptr<ActionDefinition const> ShareActionDefinition(unsigned int index) const = 0;
    virtual bool IsActionInherited(unsigned int index) const = 0;
    virtual unsigned int FindActionIndexFromIdentifier(Identifier const& id,
                                                       unsigned int first = 0) const = 0;
    /// @}

    /// @name Sub-member sets
    /// Named sets inside this one, which owns them: their Destroy does nothing. They have none of their own.
    /// @{

    /// The set of that name, made when it is missing; null in a sub-member set.
    virtual Members* InsertSubMember(qzString const& name) = 0;
    /// Null when there is none.
    virtual Members const* GetSubMember(qzString const& name) const = 0;
    /// Fills the list with the names in the order of their insertion; whether there are any.
    virtual bool GetSubMemberNames(qzStlVector<qzString>& names) const = 0;
    /// @}

protected:
    virtual ~Members();

private:
    friend class MembersPrivate; // nobody else makes sets: they share their members
    Members() = default;
};

} // namespace qzDescriptor
