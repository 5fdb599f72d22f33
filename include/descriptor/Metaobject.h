#pragma once

#include "descriptor/DataTypes.h"
#include "descriptor/Entity.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"
#include "descriptor/qzReturnStatus.h"

namespace qzDescriptor {

/// One object of a session, as whoever holds it sees it: what it is, what its attributes hold, and what can
/// be done with it. A session hands it out for an entity and keeps it.
///
///     Metaobject const* const part = session->Get(entity);
///     qzReturnStatus const status = part->SetValue(Identifier("T"), Value(2.5));
///     if (status.status != 0)
///         std::cerr << status.message;            // why the value was refused; nothing has changed
///     part->InvokeAction(Identifier("Renumber"));
///
/// What is written through it is the application's object and not the `Metaobject`, which is why writing is
/// const. Operations of an object that is gone, or on an attribute that it does not have, fail and leave
/// their arguments as they were. To be used on the thread of its session.
class QZDESCRIPTOR_API Metaobject {
public:
    // An object is where it is: neither of these copies anything.
    Metaobject(Metaobject const&) noexcept {}
    Metaobject& operator=(Metaobject const&) noexcept { return *this; }

    virtual EntityFullType GetEntityFullType() const = 0;
    virtual Entity GetEntity() const = 0;
    /// The session that holds the object.
    virtual ISession* GetSession() const = 0;
    /// In the order of attribute handles. False when there is none.
    virtual bool GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const = 0;
    virtual bool GetActionIdentifiers(qzStlVector<Identifier>& identifiers) const = 0;
    /// Whether an action can be started on this object now.
    virtual bool IsActionEnabled(Identifier const& action) const = 0;
    virtual bool IsActionVisible(Identifier const& action) const = 0;
    /// What the attribute of this object is, replaced allowed values included; null when it has no such
    /// attribute.
    virtual Definition const* GetDefinition(Identifier const& attribute) const = 0;

    /// Replaces the allowed values of one attribute of this object. A value that they refuse gives way to
    /// their default, when they have one. False when the object does not take them.
    virtual bool SetAllowables(Identifier const& attribute, Allowables const& allowables);
    virtual bool GetAllowables(Identifier const& attribute, Allowables& allowables) const = 0;

    /// Gives a view of the attribute's value, its default when it was never set. The view is good until the
    /// object changes.
    virtual bool GetValue(Identifier const& attribute, ValuePtr const*& value) const = 0;
    /// The same by the attribute's handle in the object's metaclass, without a look-up.
    virtual bool GetValue(unsigned int attributeHandle, ValuePtr const*& value) const = 0;
    /// A value that is refused changes nothing, and the message says why.
    virtual qzReturnStatus SetValue(Identifier const& attribute, Value const& value) const = 0;
    /// An empty format means the standard text of the type.
    virtual bool GetValueAsString(Identifier const& attribute, qzString& text,
                                  qzString const& format) const = 0;
    virtual qzReturnStatus SetValueFromString(Identifier const& attribute, qzString const& text,
                                              qzString const& format) const = 0;
    virtual DisplayStatus GetDisplayStatus(Identifier const& attribute) const = 0;
    virtual bool SetDisplayStatus(Identifier const& attribute, DisplayStatus status) const = 0;

    /// The entity that owns this one, and the attribute under which; false when nothing does.
    virtual bool GetOwner(Entity& owner, Identifier& ownerAttribute) const = 0;
    virtual qzString GetName() const = 0;

    /// Starts an action: calls its native function and returns what that returns, or runs its script function
    /// in the interpreter of its language. Such a script reads the object's session as its current one; what
    /// it prints, or why it failed, goes to the reports of qzInterp. The action may end the object; what
    /// tests whether it is enabled must not.
    virtual qzReturnStatus InvokeAction(Identifier const& action) const;

    /// The object's values; null when it does not keep them in one.
    virtual Content const* GetContent() const = 0;
    /// The menu of operations on this object.
    virtual bool GetDataOperations(DataOperationList& operations) const = 0;
    /// False once the entity is gone.
    virtual bool IsValid() const = 0;

    virtual ~Metaobject();

protected:
    Metaobject() = default;

    /// Stores the allowed values of an attribute; the value is looked after by SetAllowables.
    virtual bool P_SetAllowables(Identifier const& attribute, Allowables const& allowables);
    /// Gives the definition of an action.
    virtual bool P_GetActionData(Identifier const& action, ActionDefinition& definition) const;
};

} // namespace qzDescriptor
