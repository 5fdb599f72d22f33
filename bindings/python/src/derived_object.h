#pragma once

#include "member_object.h"

#include <memory>

namespace qzPython {

/// The object behind a `CustomObject`, which owns it: what the Python class overrides is asked there. What
/// fails there is reported, and answered as a failure or as C++ would by itself.
class DerivedObject final : public MemberObject {
public:
    DerivedObject(SessionHandle session, Entity entity, py::handle self)
        : MemberObject(std::move(session), std::move(entity)), m_self(self) {}

    py::object GetSelf() const { return py::reinterpret_borrow<py::object>(m_self); }

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
    qzString GetName() const override;
    qzReturnStatus InvokeAction(Identifier const& action) const override;
    bool GetDataOperations(DataOperationList& operations) const override;
    bool IsValid() const override;

    /// What the object does by itself, for a method that was put in the place of it.
    bool StoreAllowables(Identifier const& attribute, Allowables const& allowables) {
        return MemberObject::P_SetAllowables(attribute, allowables);
    }
    bool FindAction(Identifier const& action, ActionDefinition& definition) const {
        return MemberObject::P_GetActionData(action, definition);
    }

protected:
    bool P_SetAllowables(Identifier const& attribute, Allowables const& allowables) override;
    bool P_GetActionData(Identifier const& action, ActionDefinition& definition) const override;
    bool P_Read(unsigned int index) const override;
    qzReturnStatus P_Write(unsigned int index, Value const& value) const override;

private:
    /// The value of an attribute by its identifier or its handle, unless its session ended with being asked.
    template <class Key>
    bool P_GetValueOf(Key const& attribute, ValuePtr const*& value) const;
    void P_ReadDefinition(Identifier const& attribute) const;
    /// As AskOverride.
    template <class Take, class... Argument>
    bool P_AskFor(Take&& take, char const* name, Argument const&... arguments) const;
    /// The same where the answer goes into its place.
    template <class T, class... Argument>
    bool P_Ask(T& answer, char const* name, Argument const&... arguments) const;
    /// The same where refusals have a message; no status when there is nobody to ask.
    template <class Take, class... Argument>
    std::optional<qzReturnStatus> P_AskStatus(char const* failure, Take&& take, char const* name,
                                              Argument const&... arguments) const;

    py::handle m_self;
};

/// `CustomObject` in Python. Copies as an `Object` know when it has ended.
class CustomObjectHandle : public ObjectHandle {
public:
    explicit CustomObjectHandle(std::unique_ptr<DerivedObject> object)
        : CustomObjectHandle(std::make_shared<Metaobject const*>(object.get()), std::move(object)) {}
    ~CustomObjectHandle() { *m_place = nullptr; }
    CustomObjectHandle(CustomObjectHandle const&) = delete;
    CustomObjectHandle& operator=(CustomObjectHandle const&) = delete;

    DerivedObject& GetOwn() const { return *m_object; }

private:
    CustomObjectHandle(std::shared_ptr<Metaobject const*> const& place,
                       std::unique_ptr<DerivedObject>&& object)
        : ObjectHandle(place, object->GetSessionHandle(), object->GetEntity()),
          m_place(place),
          m_object(std::move(object)) {}

    std::shared_ptr<Metaobject const*> m_place;
    std::unique_ptr<DerivedObject> m_object;
};

} // namespace qzPython
