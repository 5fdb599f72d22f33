#pragma once

#include "descriptor/Content.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"

namespace qzDescriptor {

/// One attribute of one object, or of a member set without an object: what the object's content and its
/// member set know of it, in one small value to pass around.
///
///     Attribute thickness(plate, 0);               // plate: a Content*
///     thickness.GetDisplayName();                  // "Thickness"
///     thickness.SetValue(2.5);                     // status 0
///     thickness.IsAtDefault();                     // false
///
/// A view of a constant content, or of a member set, which shows the defaults, refuses to write. Every
/// operation of a view of nothing fails. A view owns nothing: content and member set have to outlive it, and
/// may be used on whichever threads they may.
class QZDESCRIPTOR_API Attribute {
public:
    /// A view of nothing.
    Attribute() = default;
    Attribute(Members const* members, unsigned int index);
    Attribute(Content const* content, unsigned int index);
    Attribute(Content* content, unsigned int index);

    /// Whether there is such an attribute.
    bool IsValid() const { return GetDefinition() != nullptr; }
    bool IsReadOnly() const { return m_writable == nullptr; }
    Content const* GetContent() const { return m_content; }
    unsigned int GetIndex() const { return m_index; }
    /// The index plus one; 0 for a view of nothing.
    unsigned int GetHandle() const { return IsValid() ? m_index + 1 : 0; }

    /// Empty ones where there is none.
    Identifier const& GetIdentifier() const;
    Identifier const& GetSecondaryIdentifier() const;
    /// The identifier's name, else its number.
    qzString GetName() const;
    /// The definition's display name, else the name.
    qzString GetDisplayName() const;

    /// The definition that holds for the object; null for a view of nothing.
    Definition const* GetDefinition() const;
    /// As Content::GetAllowables.
    Allowables const& GetAllowables() const;
    Content::AttributeType GetType() const;
    /// Whether a user interface is to show it, and to let it be changed.
    bool IsVisible() const;
    bool IsEditable() const;
    /// What the value measures, for a unit system (pair 0 or 1) and as text; empty ones where there is none.
    qzString const& GetDimensionality(unsigned int pair = 0) const;
    qzString const& GetDimensionalityDisplayName(unsigned int pair = 0) const;
    /// As Content::GetDisplayStatus.
    DisplayStatus GetDisplayStatus() const;
    bool SetDisplayStatus(DisplayStatus status);
    /// As Content::GetDataOperationList.
    DataOperationList const& GetDataOperationList() const;

    // As the operations of Content with these names.
    bool GetValue(ValuePtr const*& value) const;
    bool GetValue(Value& value) const;
    template <ValueType T>
    bool GetValue(T& value) const {
        return Content::Read(P_GetValue(), value);
    }
    /// Null where there is no value.
    ValuePtr const* GetDefaultValue() const;
    bool IsSet() const { return m_content != nullptr && m_content->IsSet(m_index); }
    bool IsAtDefault() const;
    bool GetValueAsString(qzString& out, char const* format = nullptr,
                          unsigned int i = ValuePtr::s_wholeValue,
                          unsigned int j = ValuePtr::s_wholeValue) const;

    qzReturnStatus SetValue(Value const& value);
    qzReturnStatus SetValue(Value&& value);
    template <ValueType T>
    qzReturnStatus SetValue(T const& value) {
        return m_writable != nullptr ? m_writable->SetValue(m_index, value) : P_CannotWrite();
    }
    qzReturnStatus SetValueFromString(qzString const& text, char const* format = nullptr, unsigned int i = 0,
                                      unsigned int j = 0);
    /// Whether a value would be accepted, also by a view that does not write.
    qzReturnStatus TestValue(Value const& value) const;
    template <ValueType T>
    qzReturnStatus TestValue(T const& value) const {
        return TestValue(Content::MakeValue(value));
    }
    bool Reset();

    /// Views of the same attribute of the same object, or of the same member set without one.
    friend bool operator==(Attribute const&, Attribute const&) = default;

protected:
    Content* P_GetWritable() const { return m_writable; }
    ValuePtr const* P_GetValue() const;
    TabularDefinition const* P_GetTabularDefinition() const;
    qzReturnStatus P_CannotWrite() const;

private:
    /// The definition, or a default one.
    Definition const& P_Define() const;

    Members const* m_members = nullptr;
    Content const* m_content = nullptr;
    Content* m_writable = nullptr; ///< the content, unless it is constant
    unsigned int m_index = 0xFFFFFFFF;
};

} // namespace qzDescriptor
