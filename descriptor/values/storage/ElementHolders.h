#pragma once

#include "values/storage/HolderPool.h"
#include "values/storage/holder_parts.h"
#include "values/storage/list_text.h"

namespace qzDescriptor {

/// One element. Its setters store and answer false, which Value and its callers rely on.
template <class T, BasicType B, CompoundType C>
class ValuePtrPrivateArray0T : public ElementPointerOf<T, ScalarStorage<T>> {
    using Base = ElementPointerOf<T, ScalarStorage<T>>;

public:
    QZ_USING_OVERLOADS

    ValuePtrPrivateArray0T(T const& value, DisplayStatus status) : Base(value, status) {}

    static void* operator new(std::size_t size) { return HolderPool<ValuePtrPrivateArray0T>::Allocate(size); }
    static void operator delete(void* memory, std::size_t size) {
        HolderPool<ValuePtrPrivateArray0T>::Release(memory, size);
    }

    ValuePtr* Clone() const override {
        return new ValuePtrPrivateArray0T(this->m_value, ValuePtr::GetDisplayStatus());
    }
    BasicType GetBasicType() const override { return B; }
    CompoundType GetCompoundType() const override { return C; }

    EntityFullType GetEntityFullType() const override { return EntityTypeOf(this->m_value); }

    bool Equals(ValuePtr const* other) const override {
        T scratch{};
        T const* const theirs = this->P_EqualTypes(other) ? ReadElement(*other, scratch) : nullptr;
        return theirs != nullptr && this->GetDisplayStatus() == other->GetDisplayStatus() &&
               this->m_value == *theirs;
    }
    bool LessThan(ValuePtr const* other) const override {
        T scratch{};
        T const* const theirs = this->P_EqualTypes(other) ? ReadElement(*other, scratch) : nullptr;
        return theirs != nullptr && IsLess(this->m_value, *theirs);
    }

    bool GetValue(T& value, unsigned int, unsigned int) const override {
        value = this->m_value;
        return true;
    }
    bool SetValue(T const& value, unsigned int, unsigned int) override {
        this->m_value = value;
        return false;
    }

    bool GetValueAsString(qzString& out, char const* format, unsigned int, unsigned int) const override {
        return WriteElement(out, true, this->m_value, format);
    }
    bool SetValueFromString(qzString const& text, char const* format, unsigned int, unsigned int) override {
        return ReadText(text, format, this->m_value);
    }

    std::size_t GetValueMemoryUsage() const override { return ByteSize(this->m_value); }
    void const* GetMemoryLocation(unsigned int, unsigned int) const override { return &this->m_value; }
    void* GetMemoryLocation(unsigned int, unsigned int) override { return &this->m_value; }
};

/// One element with a text beside it.
template <class T, BasicType B, CompoundType C>
class ValuePtrPrivateArray0TStr : public ValuePtrPrivateArray0T<T, B, C> {
    using Base = ValuePtrPrivateArray0T<T, B, C>;

public:
    ValuePtrPrivateArray0TStr(T const& value, qzString const& associatedString, DisplayStatus status)
        : Base(value, status), m_associatedString(associatedString) {}

    static void* operator new(std::size_t size) {
        return HolderPool<ValuePtrPrivateArray0TStr>::Allocate(size);
    }
    static void operator delete(void* memory, std::size_t size) {
        HolderPool<ValuePtrPrivateArray0TStr>::Release(memory, size);
    }

    ValuePtr* Clone() const override {
        return new ValuePtrPrivateArray0TStr(this->m_value, m_associatedString, ValuePtr::GetDisplayStatus());
    }
    bool GetAssociatedString(qzString& text) const override {
        text = m_associatedString;
        return true;
    }
    std::size_t GetValueMemoryUsage() const override {
        return Base::GetValueMemoryUsage() + ByteSize(m_associatedString);
    }

private:
    qzString m_associatedString;
};

template <class T>
using ElementHolder = ValuePtrPrivateArray0T<T, ElementTraits<T>::s_basic, ElementTraits<T>::s_compound>;
template <class T>
using ElementHolderWithString =
    ValuePtrPrivateArray0TStr<T, ElementTraits<T>::s_basic, ElementTraits<T>::s_compound>;

} // namespace qzDescriptor
