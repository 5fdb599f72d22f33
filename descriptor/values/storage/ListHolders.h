#pragma once

#include "values/storage/HolderPool.h"
#include "values/storage/holder_parts.h"
#include "values/storage/list_access.h"
#include "values/storage/list_text.h"

namespace qzDescriptor {

/// What every list has in common, and element pointers, except for entity lists: they hold ids, and no Entity
/// that a pointer could show.
template <class Container, BasicType B, CompoundType C, unsigned int Dimension>
using ListStorage = ContainerPointerOf<Container, ContainerStorage<Container, B, C, Dimension>>;
template <class T, class Storage>
using WithElementPointer =
    std::conditional_t<std::is_same_v<T, Entity>, Storage, ElementPointerOf<T, Storage>>;

/// A list.
template <class T, class Container, BasicType B, CompoundType C>
class ValuePtrPrivateArray1T : public WithElementPointer<T, ListStorage<Container, B, C, 1>> {
    using Base = WithElementPointer<T, ListStorage<Container, B, C, 1>>;
    using Access = ListAccess<Container>;

public:
    using Base::GetValue;
    using Base::SetValue;
    QZ_USING_TEXT_OVERLOADS

    template <class Data>
    ValuePtrPrivateArray1T(Data&& data, DisplayStatus status) : Base(std::forward<Data>(data), status) {}

    static void* operator new(std::size_t size) { return HolderPool<ValuePtrPrivateArray1T>::Allocate(size); }
    static void operator delete(void* memory, std::size_t size) {
        HolderPool<ValuePtrPrivateArray1T>::Release(memory, size);
    }

    ValuePtr* Clone() const override {
        return new ValuePtrPrivateArray1T(this->m_data, ValuePtr::GetDisplayStatus());
    }
    unsigned int GetArrayDimensionExtent(unsigned int dimension) const override {
        return dimension == 0 ? static_cast<unsigned int>(Access::Count(this->m_data)) : 0;
    }

    bool GetValue(T& value, unsigned int i, unsigned int) const override {
        return Access::Get(this->m_data, i, value);
    }
    bool SetValue(T const& value, unsigned int i, unsigned int) override {
        return Access::Set(this->m_data, i, value);
    }

    bool GetValueAsString(qzString& out, char const* format, unsigned int i, unsigned int) const override {
        if (i == ValuePtr::s_wholeValue)
            return WriteList(out, this->m_data, format);
        T element{};
        return WriteElement(out, Access::Get(this->m_data, i, element), element, format);
    }
    bool SetValueFromString(qzString const& text, char const* format, unsigned int i, unsigned int) override {
        T element{};
        return ReadText(text, format, element) && Access::Set(this->m_data, i, element);
    }

    void const* GetMemoryLocation(unsigned int i, unsigned int) const override {
        return Access::Locate(this->m_data, i);
    }
    void* GetMemoryLocation(unsigned int i, unsigned int j) override {
        return const_cast<void*>(std::as_const(*this).GetMemoryLocation(i, j));
    }
};

/// A two-level list. Rows may differ in length; the inner extent is that of the first one.
template <class T, class Container2, BasicType B, CompoundType C>
class ValuePtrPrivateArray2T : public WithElementPointer<T, ListStorage<Container2, B, C, 2>> {
    using Base = WithElementPointer<T, ListStorage<Container2, B, C, 2>>;
    using Access = GridAccess<Container2>;

public:
    using Base::GetValue;
    using Base::SetValue;
    QZ_USING_TEXT_OVERLOADS

    template <class Data>
    ValuePtrPrivateArray2T(Data&& data, DisplayStatus status) : Base(std::forward<Data>(data), status) {}

    static void* operator new(std::size_t size) { return HolderPool<ValuePtrPrivateArray2T>::Allocate(size); }
    static void operator delete(void* memory, std::size_t size) {
        HolderPool<ValuePtrPrivateArray2T>::Release(memory, size);
    }

    ValuePtr* Clone() const override {
        return new ValuePtrPrivateArray2T(this->m_data, ValuePtr::GetDisplayStatus());
    }
    unsigned int GetArrayDimensionExtent(unsigned int dimension) const override {
        std::size_t const rows = Access::Rows(this->m_data);
        if (dimension == 0)
            return static_cast<unsigned int>(rows);
        return dimension == 1 && rows > 0 ? static_cast<unsigned int>(Access::Columns(this->m_data, 0)) : 0;
    }

    bool GetValue(T& value, unsigned int i, unsigned int j) const override {
        return Access::Get(this->m_data, i, j, value);
    }
    bool SetValue(T const& value, unsigned int i, unsigned int j) override {
        return Access::Set(this->m_data, i, j, value);
    }

    bool GetValueAsString(qzString& out, char const* format, unsigned int i, unsigned int j) const override {
        if (i == ValuePtr::s_wholeValue)
            return WriteGrid(out, this->m_data, format);
        if (j == ValuePtr::s_wholeValue)
            return WriteRow(out, this->m_data, i, format);
        T element{};
        return WriteElement(out, Access::Get(this->m_data, i, j, element), element, format);
    }
    bool SetValueFromString(qzString const& text, char const* format, unsigned int i,
                            unsigned int j) override {
        T element{};
        return ReadText(text, format, element) && Access::Set(this->m_data, i, j, element);
    }

    void const* GetMemoryLocation(unsigned int i, unsigned int j) const override {
        return Access::Locate(this->m_data, i, j);
    }
    void* GetMemoryLocation(unsigned int i, unsigned int j) override {
        return const_cast<void*>(std::as_const(*this).GetMemoryLocation(i, j));
    }
};

template <class Container>
using ListHolder =
    ValuePtrPrivateArray1T<typename ContainerTraits<Container>::Element, Container,
                           ElementTraits<typename ContainerTraits<Container>::Element>::s_basic,
                           ElementTraits<typename ContainerTraits<Container>::Element>::s_compound>;
template <class Container>
using GridHolder =
    ValuePtrPrivateArray2T<typename ContainerTraits<Container>::Element, Container,
                           ElementTraits<typename ContainerTraits<Container>::Element>::s_basic,
                           ElementTraits<typename ContainerTraits<Container>::Element>::s_compound>;

} // namespace qzDescriptor
