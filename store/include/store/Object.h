#pragma once

#include "descriptor/Metaobject.h"
#include "store/Export.h"

#include <memory>
#include <vector>

namespace qzDescriptor::store {

class Population;
class Session;

/// An object that is kept in memory: its values in a `Content`, its place in the tree of owners.
///
/// An attribute that is written is tested first, and its change told to the listeners of the session; what
/// they do, ending the object or its session included, is done when the write returns. Objects are made and
/// ended by their session alone. To be used as the session is: by one thread, or by any number while nothing
/// changes.
class QZSTORE_API Object final : public Metaobject {
public:
    Object(Object const&) = delete;
    Object& operator=(Object const&) = delete;

    qzDescriptor::EntityFullType GetEntityFullType() const override;
    Entity GetEntity() const override;
    ISession* GetSession() const override;
    bool GetAttributeIdentifiers(qzStlVector<Identifier>& identifiers) const override;
    bool GetActionIdentifiers(qzStlVector<Identifier>& identifiers) const override;
    bool IsActionEnabled(Identifier const& action) const override;
    bool IsActionVisible(Identifier const& action) const override;
    Definition const* GetDefinition(Identifier const& attribute) const override;
    bool SetAllowables(Identifier const& attribute, Allowables const& allowables) override;
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
    /// The value of the session's name attribute as text; empty when the object has no such attribute.
    qzString GetName() const override;
    Content const* GetContent() const override { return m_content.get(); }
    bool GetDataOperations(DataOperationList& operations) const override;
    /// True for as long as there is an object.
    bool IsValid() const override { return true; }

    ~Object() override;

    // Objects lie side by side, and what they hold does too.
    static void* operator new(std::size_t size);
    static void operator delete(void* memory);

protected:
    bool P_SetAllowables(Identifier const& attribute, Allowables const& allowables) override;
    bool P_GetActionData(Identifier const& action, ActionDefinition& definition) const override;

private:
    friend class Population;
    friend class Session;

    struct EndContent {
        void operator()(Content* content) const;
    };
    /// What an object owns, in the order in which it came to own it. Places of what is gone are null until
    /// they are more than half of all.
    struct Owned {
        std::vector<Object*> objects;
        unsigned int gone = 0;
    };

    Object(Population& population, unsigned int id, unsigned int place);

    static constexpr unsigned int s_none = 0xFFFFFFFF;

    unsigned int P_FindAttribute(Identifier const& attribute) const;
    unsigned int P_FindAction(Identifier const& action) const;
    void P_Own(Object& owned, unsigned int attribute);
    void P_Disown(Object& owned);

    Population* m_population;
    std::unique_ptr<Content, EndContent> m_content;
    std::unique_ptr<Owned> m_owned;
    Object* m_owner = nullptr;
    unsigned int m_ownerAttribute = 0; // a handle in the owner's metaclass
    unsigned int m_placeInOwner = 0;
    unsigned int m_id;
    unsigned int m_place; // in the population
};

} // namespace qzDescriptor::store
