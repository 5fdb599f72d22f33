#include "descriptor/Attribute.h"

#include "descriptor/DataOperationList.h"
#include "descriptor/Definition.h"
#include "descriptor/Members.h"
#include "registry/content/check_value.h"
#include "registry/content/identifier_name.h"

namespace qzDescriptor {

namespace {

Identifier const& NoIdentifier() {
    static Identifier const s_none;
    return s_none;
}

Definition const& NoDefinition() {
    static Definition const s_none;
    return s_none;
}

} // namespace

Attribute::Attribute(Members const* members, unsigned int index) : m_members(members), m_index(index) {}

Attribute::Attribute(Content const* content, unsigned int index)
    : m_members(content != nullptr ? content->GetMembers() : nullptr), m_content(content), m_index(index) {}

Attribute::Attribute(Content* content, unsigned int index)
    : Attribute(static_cast<Content const*>(content), index) {
    m_writable = content;
}

Identifier const& Attribute::GetIdentifier() const {
    return m_members != nullptr ? m_members->GetVariableIdentifier(m_index) : NoIdentifier();
}

Identifier const& Attribute::GetSecondaryIdentifier() const {
    return m_members != nullptr ? m_members->GetVariableIdentifier(m_index, false, true) : NoIdentifier();
}

qzString Attribute::GetName() const { return NameOf(GetIdentifier()); }

qzString Attribute::GetDisplayName() const {
    qzString const displayName = P_Define().GetDisplayName();
    return displayName.empty() ? GetName() : displayName;
}

Definition const* Attribute::GetDefinition() const {
    if (m_content != nullptr)
        return m_content->GetDefinition(m_index);
    return m_members != nullptr ? m_members->GetVariableDefinition(m_index) : nullptr;
}

Definition const& Attribute::P_Define() const {
    Definition const* const definition = GetDefinition();
    return definition != nullptr ? *definition : NoDefinition();
}

Allowables const& Attribute::GetAllowables() const { return P_Define().GetAllowables(); }

Content::AttributeType Attribute::GetType() const { return TypeOfAttribute(GetDefinition()); }

bool Attribute::IsVisible() const { return P_Define().GetVisible(); }

bool Attribute::IsEditable() const { return P_Define().GetEditable(); }

qzString const& Attribute::GetDimensionality(unsigned int pair) const {
    return P_Define().GetUnitsDimensionality().GetDimensionality(pair);
}

qzString const& Attribute::GetDimensionalityDisplayName(unsigned int pair) const {
    return P_Define().GetUnitsDimensionality().GetDimensionalityDisplayName(pair);
}

DisplayStatus Attribute::GetDisplayStatus() const {
    return m_content != nullptr ? m_content->GetDisplayStatus(m_index)
                                : P_Define().GetUserParams().GetDefaultDisplayStatus();
}

bool Attribute::SetDisplayStatus(DisplayStatus status) {
    return m_writable != nullptr && m_writable->SetDisplayStatus(m_index, status);
}

DataOperationList const& Attribute::GetDataOperationList() const {
    static DataOperationList const s_none;
    return m_content != nullptr ? m_content->GetDataOperationList(m_index) : s_none;
}

bool Attribute::GetValue(ValuePtr const*& value) const {
    ValuePtr const* const found = P_GetValue();
    if (found != nullptr)
        value = found;
    return found != nullptr;
}

bool Attribute::GetValue(Value& value) const {
    ValuePtr const* const found = P_GetValue();
    if (found != nullptr)
        value = *found;
    return found != nullptr;
}

ValuePtr const* Attribute::P_GetValue() const {
    ValuePtr const* value = nullptr;
    if (m_content == nullptr)
        return GetDefaultValue();
    m_content->GetValue(m_index, value);
    return value;
}

ValuePtr const* Attribute::GetDefaultValue() const {
    if (m_content != nullptr)
        return m_content->GetDefaultValue(m_index);
    return m_members != nullptr ? m_members->GetDefaultValue(m_index) : nullptr;
}

TabularDefinition const* Attribute::P_GetTabularDefinition() const {
    if (m_content != nullptr)
        return m_content->GetTabularDefinition(m_index);
    return m_members != nullptr ? m_members->GetTabularDefinition(m_index).get() : nullptr;
}

bool Attribute::IsAtDefault() const {
    return m_content != nullptr ? m_content->IsAtDefault(m_index) : IsValid();
}

bool Attribute::GetValueAsString(qzString& out, char const* format, unsigned int i, unsigned int j) const {
    ValuePtr const* const value = P_GetValue();
    out.clear();
    return value != nullptr && value->GetValueAsString(out, format, i, j);
}

qzReturnStatus Attribute::SetValue(Value const& value) {
    return m_writable != nullptr ? m_writable->SetValue(m_index, value) : P_CannotWrite();
}

qzReturnStatus Attribute::SetValue(Value&& value) {
    return m_writable != nullptr ? m_writable->SetValue(m_index, std::move(value)) : P_CannotWrite();
}

qzReturnStatus Attribute::SetValueFromString(qzString const& text, char const* format, unsigned int i,
                                             unsigned int j) {
    return m_writable != nullptr ? m_writable->SetValueFromString(m_index, text, format, i, j)
                                 : P_CannotWrite();
}

qzReturnStatus Attribute::TestValue(Value const& value) const {
    return CheckAttributeValue(GetDefinition(), value.GetValuePtr());
}

bool Attribute::Reset() { return m_writable != nullptr && m_writable->Reset(m_index); }

qzReturnStatus Attribute::P_CannotWrite() const {
    return IsValid() ? Refusal("The attribute can only be read.") : TestValue(Value());
}

} // namespace qzDescriptor
