#include "descriptor/ValuePtr.h"

#include "values/storage/type_traits.h"

namespace qzDescriptor {

// The base is the holder of no type: it answers every question with a refusal.

ValuePtr::ValuePtr(ValuePtr const& other)
    : m_displayStatus(other.m_displayStatus),
      m_memoryExternallyManaged(other.m_memoryExternallyManaged),
      m_correspondsToEntityType(other.m_correspondsToEntityType) {}

// The tag stays: it tells what this object is, not what it holds.
ValuePtr& ValuePtr::operator=(ValuePtr const& other) {
    m_displayStatus = other.m_displayStatus;
    m_memoryExternallyManaged = other.m_memoryExternallyManaged;
    m_correspondsToEntityType = other.m_correspondsToEntityType;
    return *this;
}

ValuePtr* ValuePtr::Clone() const { return nullptr; }
BasicType ValuePtr::GetBasicType() const { return BT_NONE; }
CompoundType ValuePtr::GetCompoundType() const { return CT_NONE; }
unsigned int ValuePtr::GetArrayDimension() const { return 0; }
unsigned int ValuePtr::GetArrayDimensionExtent(EntityFullType const&) const { return 0; }
unsigned int ValuePtr::GetArrayDimensionExtent(unsigned int) const { return 0; }
EntityFullType ValuePtr::GetEntityFullType() const { return EntityFullType(); }
bool ValuePtr::IsBagType() const { return false; }
bool ValuePtr::Equals(ValuePtr const*) const { return false; }
bool ValuePtr::LessThan(ValuePtr const*) const { return false; }

#define QZ_REFUSE_ELEMENT(T, Name, ...)                                                                      \
    bool ValuePtr::GetValue(T&, unsigned int, unsigned int) const { return false; }                          \
    bool ValuePtr::SetValue(T const&, unsigned int, unsigned int) { return false; }                          \
    T const* ValuePtr::GetValuePointer##Name(unsigned int, unsigned int) const { return nullptr; }
QZ_ELEMENT_TYPES(QZ_REFUSE_ELEMENT)
#undef QZ_REFUSE_ELEMENT

#define QZ_REFUSE_CONTAINER(C, Name, ...)                                                                    \
    bool ValuePtr::GetValue(C&) const { return false; }                                                      \
    bool ValuePtr::SetValue(C const&) { return false; }                                                      \
    C const* ValuePtr::GetValuePointer##Name() const { return nullptr; }
QZ_CONTAINER_TYPES(QZ_REFUSE_CONTAINER)
#undef QZ_REFUSE_CONTAINER

bool ValuePtr::GetValue(Formula&, EntityFullType const&) const { return false; }
bool ValuePtr::GetValue(Entity&, EntityFullType const&, unsigned int) const { return false; }
Entity const* ValuePtr::GetValuePointerEntity(EntityFullType const&, unsigned int) const { return nullptr; }
Formula const* ValuePtr::GetValuePointerFormula(EntityFullType const&) const { return nullptr; }
bool ValuePtr::SetValue(Formula const&, EntityFullType const&) { return false; }
bool ValuePtr::SetValue(Entity const&, EntityFullType const&, unsigned int) { return false; }

bool ValuePtr::GetValueAsString(qzString& out, EntityFullType const&, unsigned int, char const*) const {
    out.clear();
    return false;
}

bool ValuePtr::GetValueAsString(qzString& out, char const*, unsigned int, unsigned int) const {
    out.clear();
    return false;
}

bool ValuePtr::SetValueFromString(qzString const&, EntityFullType const&, unsigned int, char const*) {
    return false;
}

bool ValuePtr::SetValueFromString(qzString const&, char const*, unsigned int, unsigned int) { return false; }

std::size_t ValuePtr::GetValueMemoryUsage() const { return 0; }
void const* ValuePtr::GetMemoryLocation(unsigned int, unsigned int) const { return nullptr; }
void* ValuePtr::GetMemoryLocation(unsigned int, unsigned int) { return nullptr; }
bool ValuePtr::GetAssociatedString(qzString&) const { return false; }

bool ValuePtr::P_EqualTypes(ValuePtr const* other) const {
    return other != nullptr && GetBasicType() == other->GetBasicType() &&
           GetCompoundType() == other->GetCompoundType() &&
           GetArrayDimension() == other->GetArrayDimension() &&
           GetArrayDimensionExtent(0u) == other->GetArrayDimensionExtent(0u) &&
           GetArrayDimensionExtent(1u) == other->GetArrayDimensionExtent(1u);
}

void ValuePtr::Destroy(ValuePtr* holder) {
    if (holder != nullptr && !holder->m_memoryExternallyManaged)
        delete holder;
}

} // namespace qzDescriptor
