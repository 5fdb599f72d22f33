#pragma once

#include "handles.h"

#include "descriptor/Content.h"

#include <memory>
#include <unordered_map>

/// Sessions and objects that are written in Python: C++ calls what a Python class overrides. What fails there
/// is reported, and answered as a failure.

namespace qzPython {

/// `CustomSession` in Python, which C++ keeps for as long as there is the session behind it.
class CustomSessionHandle : public SessionHandle {
public:
    using SessionHandle::SessionHandle;
};

/// The session behind a `CustomSession`. It belongs to its registry.
class DerivedSession final : public ISession {
public:
    DerivedSession(qzString const& name, MetaclassMgr& registry, py::object self);
    ~DerivedSession() override;

    py::object GetSelf() const { return m_self.Get(); }

    qzReturnStatus Delete(Entity const& entity) override;
    bool Find(EntityFullType const& type, qzString const& name, Entity& entity) const override;
    void GetOwnedEntities(EntityListBag& owned, Entity const& owner,
                          Identifier const& ownerAttribute) const override;
    bool GetOwner(Entity const& entity, Entity& owner, Identifier& ownerAttribute) const override;

protected:
    Metaobject const* GetMetaobject(Entity const& entity) const override;
    qzReturnStatus P_CreateEntity(EntityFullType const& type, Entity& created, Entity const& owner,
                                  Identifier const& ownerAttribute) const override;
    void P_CollectAll(EntityList& out, EntityFullType const& type, std::string const& query) const override;

private:
    struct Hash {
        std::size_t operator()(Entity const& entity) const {
            return EntityFullType::hash()(entity.GetEntityFullType()) * 31 + entity.GetId();
        }
    };

    Kept m_self;
    std::shared_ptr<SessionToken> m_token; // for hooks that end the session
    // What was handed out lives on until the entity is deleted or has another object.
    mutable std::unordered_map<Entity, Kept, Hash> m_handedOut;
};

/// The object behind a `CustomObject`, which owns it. Its definitions are those of its metaclass.
class DerivedObject final : public Metaobject {
public:
    DerivedObject(SessionHandle session, Entity entity, py::handle self);

    py::object GetSelf() const { return py::reinterpret_borrow<py::object>(m_self); }
    SessionHandle const& GetSessionHandle() const { return m_session; }

    qzDescriptor::EntityFullType GetEntityFullType() const override { return m_entity.GetEntityFullType(); }
    Entity GetEntity() const override { return m_entity; }
    ISession* GetSession() const override { return m_session.Find(); }
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
    qzString GetName() const override;
    Content const* GetContent() const override { return nullptr; }
    bool GetDataOperations(DataOperationList& operations) const override;
    bool IsValid() const override { return m_session.Find() != nullptr; }

protected:
    bool P_GetActionData(Identifier const& action, ActionDefinition& definition) const override;

private:
    struct EndContent {
        void operator()(Content* content) const { content->Destroy(); }
    };

    ActionDefinition const* P_FindAction(Identifier const& action) const;
    unsigned int P_FindIndex(Identifier const& attribute) const;
    bool P_Read(unsigned int index, ValuePtr const*& value) const;

    SessionHandle m_session;
    Entity m_entity;
    py::handle m_self;
    Members const* m_members = nullptr; // the registry's, which outlives its sessions
    // Holds the values that were read last, and tests those that are to be written.
    std::unique_ptr<Content, EndContent> m_content;
};

/// `CustomObject` in Python.
class CustomObjectHandle : public ObjectHandle {
public:
    explicit CustomObjectHandle(std::unique_ptr<DerivedObject> object)
        : ObjectHandle(std::make_shared<Metaobject const*>(object.get()), object->GetSessionHandle(),
                       object->GetEntity()),
          m_object(std::move(object)) {}

private:
    std::unique_ptr<DerivedObject> m_object;
};

} // namespace qzPython
