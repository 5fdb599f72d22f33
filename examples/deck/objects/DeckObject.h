#pragma once

#include "descriptor/Identifier.h"
#include "descriptor/Metaobject.h"
#include "qzutl/qzStlVector.h"

#include <functional>

namespace qzDeck {

class Population;

/// An object of a deck's session, which is a view: values stay where the model has them. It stays where it is
/// until the session ends, also when it is no longer valid.
class DeckObject : public qzDescriptor::Metaobject {
public:
    using Identifier = qzDescriptor::Identifier;

    DeckObject(Population& population, unsigned int id) : m_population(&population), m_id(id) {}
    DeckObject(DeckObject const&) = delete;
    DeckObject& operator=(DeckObject const&) = delete;

    qzDescriptor::EntityFullType GetEntityFullType() const override;
    qzDescriptor::Entity GetEntity() const override;
    qzDescriptor::ISession* GetSession() const override;
    bool GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const override;
    bool GetActionIdentifiers(qzStlVector<Identifier>& identifiers) const override;
    bool IsActionEnabled(Identifier const& action) const override;
    bool IsActionVisible(Identifier const& action) const override;
    qzDescriptor::Definition const* GetDefinition(Identifier const& attribute) const override;
    bool GetAllowables(Identifier const& attribute, qzDescriptor::Allowables& allowables) const override;
    bool GetValue(Identifier const& attribute, qzDescriptor::ValuePtr const*& value) const override;
    using Metaobject::GetValue;
    bool GetValueAsString(Identifier const& attribute, qzString& text, qzString const& format) const override;
    /// Reads the text as a deck's field has it; a field of real numbers takes integers. The format does not
    /// matter.
    qzDescriptor::qzReturnStatus SetValueFromString(Identifier const& attribute, qzString const& text,
                                                    qzString const& format) const override;
    qzDescriptor::DisplayStatus GetDisplayStatus(Identifier const& attribute) const override;
    /// False: a deck has no place for it.
    bool SetDisplayStatus(Identifier const& attribute, qzDescriptor::DisplayStatus status) const override;
    bool GetOwner(qzDescriptor::Entity& owner, Identifier& ownerAttribute) const override;
    /// Type and number: `CQUAD4 101`.
    qzString GetName() const override;
    qzDescriptor::Content const* GetContent() const override { return nullptr; }
    bool GetDataOperations(qzDescriptor::DataOperationList& operations) const override;

    unsigned int GetId() const { return m_id; }
    Population& GetPopulation() const { return *m_population; }

    using OwnedVisitor = std::function<void(DeckObject&, Identifier const& attribute)>;
    /// Null when nothing owns it.
    virtual DeckObject* FindOwner(Identifier& attribute) const = 0;
    virtual void VisitOwned(OwnedVisitor const& visit) const = 0;
    /// Whether its owner can be without it.
    virtual bool IsDeletable() const { return true; }
    /// Takes what it stands for out of the model, its owner having been taken out before. It is invalid then.
    virtual void End() = 0;

protected:
    bool P_GetActionData(Identifier const& action, qzDescriptor::ActionDefinition& definition) const override;
    /// The index of an attribute in the metaclass; Members::s_none when it has none of that name.
    unsigned int P_FindAttribute(Identifier const& attribute) const;
    void P_SetId(unsigned int id) { m_id = id; }

private:
    Population* m_population;
    unsigned int m_id;
};

} // namespace qzDeck
