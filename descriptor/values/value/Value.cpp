#include "descriptor/Value.h"

#include "values/storage/type_traits.h"

#include <utility>

namespace qzDescriptor {

#define QZ_CONSTRUCT_false(T)
#define QZ_CONSTRUCT_true(T)                                                                                 \
    Value::Value(T const& value, qzString const& associatedString, DisplayStatus status)                     \
        : m_holder(ValuePtr::Create(value, associatedString, status)) {}
#define QZ_CONSTRUCT(T, Name, Basic, Compound, Strings) QZ_CONSTRUCT_##Strings(T)
QZ_ELEMENT_TYPES(QZ_CONSTRUCT)
#undef QZ_CONSTRUCT
#undef QZ_CONSTRUCT_true
#undef QZ_CONSTRUCT_false

Value::Value(BasicType basic, CompoundType compound, qzString const& text, char const* format,
             DisplayStatus status)
    : m_holder(ValuePtr::Create(basic, compound, text, format, status)) {}

Value::Value(BasicType basic, CompoundType compound, unsigned int count, unsigned int columns,
             DisplayStatus status, QZDT_DBHandle const& database)
    : m_holder(ValuePtr::Create(basic, compound, count, columns, status, database)) {}

Value::Value(Value const& other) : m_holder(other.m_holder != nullptr ? other.m_holder->Clone() : nullptr) {}

Value::Value(Value&& other) noexcept { *this = std::move(other); }

Value::~Value() { ValuePtr::Destroy(m_holder); }

// The new holder stands before the old one goes: what is copied may be part of this very value.
void Value::P_Replace(ValuePtr* holder) { ValuePtr::Destroy(std::exchange(m_holder, holder)); }

Value& Value::operator=(Value const& other) {
    if (this != &other)
        P_Replace(other.m_holder != nullptr ? other.m_holder->Clone() : nullptr);
    return *this;
}

Value& Value::operator=(Value&& other) noexcept {
    if (this == &other)
        return *this;
    if (other.m_holder != nullptr && other.m_holder->IsMemoryExternallyManaged())
        P_Replace(other.m_holder->Clone());
    else
        P_Replace(std::exchange(other.m_holder, nullptr));
    return *this;
}

Value& Value::operator=(ValuePtr const& holder) {
    P_Replace(holder.Clone());
    return *this;
}

void Value::MoveValue(Value& source) {
    if (m_holder != source.m_holder)
        P_Replace(source.m_holder);
}

BasicType Value::GetBasicType() const { return m_holder != nullptr ? m_holder->GetBasicType() : BT_NONE; }

CompoundType Value::GetCompoundType() const {
    return m_holder != nullptr ? m_holder->GetCompoundType() : CT_NONE;
}

unsigned int Value::GetArrayDimension() const {
    return m_holder != nullptr ? m_holder->GetArrayDimension() : 0;
}

unsigned int Value::GetArrayDimensionExtent(unsigned int dimension) const {
    return m_holder != nullptr ? m_holder->GetArrayDimensionExtent(dimension) : 0;
}

unsigned int Value::GetArrayDimensionExtent(EntityFullType const& type) const {
    return m_holder != nullptr ? m_holder->GetArrayDimensionExtent(type) : 0;
}

bool Value::IsBagType() const { return m_holder != nullptr && m_holder->IsBagType(); }

EntityFullType Value::GetEntityFullType() const {
    return m_holder != nullptr ? m_holder->GetEntityFullType() : EntityFullType();
}

std::size_t Value::GetValueMemoryUsage() const {
    return m_holder != nullptr ? m_holder->GetValueMemoryUsage() : 0;
}

DisplayStatus Value::GetDisplayStatus() const {
    return m_holder != nullptr ? m_holder->GetDisplayStatus() : DisplayStatus();
}

void Value::SetDisplayStatus(DisplayStatus status) {
    if (m_holder != nullptr)
        m_holder->SetDisplayStatus(status);
}

bool Value::GetCorrespondsToEntityType() const {
    return m_holder != nullptr && m_holder->GetCorrespondsToEntityType();
}

void Value::SetCorrespondsToEntityType(bool corresponds) {
    if (m_holder != nullptr)
        m_holder->SetCorrespondsToEntityType(corresponds);
}

bool Value::GetAssociatedString(qzString& text) const {
    return m_holder != nullptr && m_holder->GetAssociatedString(text);
}

template <class T>
bool Value::P_SetElement(T const& value, unsigned int i, unsigned int j) {
    if (m_holder != nullptr && m_holder->GetBasicType() == ElementTraits<T>::s_basic &&
        m_holder->GetCompoundType() == ElementTraits<T>::s_compound)
        return m_holder->SetValue(value, i, j);
    P_Replace(ValuePtr::Create(value, DS_DEFAULT));
    return true;
}

// Numbers have inline accessors, which come here for what is not a plain scalar of their type.
#define QZ_FORWARD_NUMBER(T, ...)                                                                            \
    template QZDESCRIPTOR_API bool Value::P_SetElement(T const&, unsigned int, unsigned int);
#define QZ_FORWARD_OBJECT(T, ...)                                                                            \
    bool Value::GetValue(T& value, unsigned int i, unsigned int j) const {                                   \
        return m_holder != nullptr && m_holder->GetValue(value, i, j);                                       \
    }                                                                                                        \
    bool Value::SetValue(T const& value, unsigned int i, unsigned int j) { return P_SetElement(value, i, j); }
#define QZ_FORWARD_POINTER(T, Name, ...)                                                                     \
    T const* Value::GetValuePointer##Name(unsigned int i, unsigned int j) const {                            \
        return m_holder != nullptr ? m_holder->GetValuePointer##Name(i, j) : nullptr;                        \
    }
#define QZ_FORWARD_CONTAINER(C, Name, ...)                                                                   \
    bool Value::GetValue(C& value) const { return m_holder != nullptr && m_holder->GetValue(value); }        \
    bool Value::SetValue(C const& value) { return m_holder != nullptr && m_holder->SetValue(value); }        \
    C const* Value::GetValuePointer##Name() const {                                                          \
        return m_holder != nullptr ? m_holder->GetValuePointer##Name() : nullptr;                            \
    }
QZ_NUMBER_TYPES(QZ_FORWARD_NUMBER)
QZ_OBJECT_TYPES(QZ_FORWARD_OBJECT)
QZ_ELEMENT_TYPES(QZ_FORWARD_POINTER)
QZ_CONTAINER_TYPES(QZ_FORWARD_CONTAINER)
#undef QZ_FORWARD_CONTAINER
#undef QZ_FORWARD_POINTER
#undef QZ_FORWARD_OBJECT
#undef QZ_FORWARD_NUMBER

bool Value::GetValue(Entity& value, EntityFullType const& type, unsigned int index) const {
    return m_holder != nullptr && m_holder->GetValue(value, type, index);
}

bool Value::GetValue(Formula& value, EntityFullType const& type) const {
    return m_holder != nullptr && m_holder->GetValue(value, type);
}

Entity const* Value::GetValuePointerEntity(EntityFullType const& type, unsigned int index) const {
    return m_holder != nullptr ? m_holder->GetValuePointerEntity(type, index) : nullptr;
}

Formula const* Value::GetValuePointerFormula(EntityFullType const& type) const {
    return m_holder != nullptr ? m_holder->GetValuePointerFormula(type) : nullptr;
}

bool Value::SetValue(Entity const& value, EntityFullType const& type, unsigned int index) {
    return m_holder != nullptr && m_holder->SetValue(value, type, index);
}

bool Value::SetValue(Formula const& value, EntityFullType const& type) {
    return m_holder != nullptr && m_holder->SetValue(value, type);
}

bool Value::GetValueAsString(qzString& out, char const* format, unsigned int i, unsigned int j) const {
    if (m_holder != nullptr)
        return m_holder->GetValueAsString(out, format, i, j);
    out.clear();
    return false;
}

bool Value::GetValueAsString(qzString& out, EntityFullType const& type, unsigned int index,
                             char const* format) const {
    if (m_holder != nullptr)
        return m_holder->GetValueAsString(out, type, index, format);
    out.clear();
    return false;
}

bool Value::SetValueFromString(qzString const& text, char const* format, unsigned int i, unsigned int j) {
    return m_holder != nullptr && m_holder->SetValueFromString(text, format, i, j);
}

bool Value::SetValueFromString(qzString const& text, EntityFullType const& type, unsigned int index,
                               char const* format) {
    return m_holder != nullptr && m_holder->SetValueFromString(text, type, index, format);
}

bool operator==(Value const& a, Value const& b) {
    if (a.m_holder == nullptr || b.m_holder == nullptr)
        return a.m_holder == b.m_holder;
    return a.m_holder->Equals(b.m_holder);
}

bool operator<(Value const& a, Value const& b) {
    return a.m_holder != nullptr && b.m_holder != nullptr && a.m_holder->LessThan(b.m_holder);
}

} // namespace qzDescriptor
