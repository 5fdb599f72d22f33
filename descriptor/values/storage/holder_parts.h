#pragma once

#include "values/storage/type_traits.h"
#include "values/text/ElementText.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace qzDescriptor {

// What the holder templates are assembled from.

/// Each holder overrides some of many overloads; these keep the others visible.
#define QZ_USING_TEXT_OVERLOADS                                                                              \
    using ValuePtr::GetArrayDimensionExtent;                                                                 \
    using ValuePtr::GetValueAsString;                                                                        \
    using ValuePtr::SetValueFromString;
#define QZ_USING_OVERLOADS                                                                                   \
    QZ_USING_TEXT_OVERLOADS                                                                                  \
    using ValuePtr::GetValue;                                                                                \
    using ValuePtr::SetValue;

/// Answers the element pointer of T with the address of the element.
template <class T, class Base>
class ElementPointerOf;

#define QZ_ELEMENT_POINTER(T, Name, ...)                                                                     \
    template <class Base>                                                                                    \
    class ElementPointerOf<T, Base> : public Base {                                                          \
    public:                                                                                                  \
        using Base::GetValuePointer##Name;                                                                   \
        T const* GetValuePointer##Name(unsigned int i, unsigned int j) const override {                      \
            return static_cast<T const*>(this->GetMemoryLocation(i, j));                                     \
        }                                                                                                    \
                                                                                                             \
    protected:                                                                                               \
        template <class... Arguments>                                                                        \
        explicit ElementPointerOf(Arguments&&... arguments) : Base(std::forward<Arguments>(arguments)...) {} \
    };
QZ_ELEMENT_TYPES(QZ_ELEMENT_POINTER)
#undef QZ_ELEMENT_POINTER

// Bytes that data occupy: the objects, and for texts the characters.

template <class T>
std::size_t ByteSize(T const&) {
    return sizeof(T);
}
inline std::size_t ByteSize(qzString const& text) { return sizeof(qzString) + text.size(); }
template <class T>
std::size_t ByteSize(qzStlVector<T> const& list) {
    if constexpr (std::is_trivially_copyable_v<T>) {
        return list.size() * sizeof(T);
    } else {
        std::size_t bytes = 0;
        for (T const& element : list)
            bytes += ByteSize(element);
        return bytes;
    }
}
inline std::size_t ByteSize(EntityList const& list) {
    return ByteSize(list.GetList()) + ByteSize(list.GetTopologyIndexList());
}
inline std::size_t ByteSize(EntityList2 const& list) { return ByteSize(list.GetList()); }

inline std::size_t ByteSize(EntityListBag const& bag) {
    qzStlVector<EntityFullType> types;
    bag.GetEntityFullTypeList(types);
    std::size_t bytes = 0;
    for (EntityFullType const& type : types)
        bytes += ByteSize(bag.GetList(type));
    return bytes;
}
inline std::size_t ByteSize(FormulaBag const& bag) {
    return bag.GetEntityFullTypeListCount() * sizeof(Formula);
}
inline std::size_t ByteSize(EntityListBagList const& bags) {
    qzStlVector<std::pair<unsigned int, qzString>> pairs;
    bags.GetRegisteredPairs(pairs);
    std::size_t bytes = 0;
    for (auto const& [key, name] : pairs)
        bytes += ByteSize(bags.Query(bags.Find(key, name)));
    return bytes;
}

template <class T>
EntityFullType EntityTypeOf(T const&) {
    return EntityFullType();
}
inline EntityFullType EntityTypeOf(Entity const& entity) { return entity.GetEntityFullType(); }
inline EntityFullType EntityTypeOf(EntityList const& list) { return list.GetEntityFullType(); }
inline EntityFullType EntityTypeOf(EntityList2 const& list) { return list.GetEntityFullType(); }

template <class T>
bool IsLess(T const& a, T const& b) {
    if constexpr (std::is_same_v<T, void*>)
        return std::less<void*>()(a, b);
    else if constexpr (s_ordered<T>)
        return a < b;
    else
        return false;
}
template <class T>
bool IsLess(qzStlVector<T> const& a, qzStlVector<T> const& b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](T const& x, T const& y) { return IsLess(x, y); });
}

// The data of any holder of the type, in place where the holder shows it, else by a copy; null when it has
// none.

template <class T>
T const* ReadElement(ValuePtr const& holder, T& scratch) {
    if (T const* const shown = ElementTraits<T>::Pointer(holder, 0, 0))
        return shown;
    return holder.GetValue(scratch, 0, 0) ? &scratch : nullptr;
}

template <class C>
C const* ReadContainer(ValuePtr const& holder, C& scratch) {
    if (C const* const shown = ContainerTraits<C>::Pointer(holder))
        return shown;
    return holder.GetValue(scratch) ? &scratch : nullptr;
}

/// Holds a container, and answers everything about it that does not depend on how it keeps its elements.
template <class Container, BasicType B, CompoundType C, unsigned int Dimension>
class ContainerStorage : public ValuePtr {
public:
    QZ_USING_OVERLOADS

    BasicType GetBasicType() const override { return B; }
    CompoundType GetCompoundType() const override { return C; }
    unsigned int GetArrayDimension() const override { return Dimension; }
    EntityFullType GetEntityFullType() const override { return EntityTypeOf(m_data); }
    std::size_t GetValueMemoryUsage() const override { return ByteSize(m_data); }

    bool Equals(ValuePtr const* other) const override {
        Container scratch;
        Container const* const theirs = P_EqualTypes(other) ? ReadContainer(*other, scratch) : nullptr;
        return theirs != nullptr && GetDisplayStatus() == other->GetDisplayStatus() && m_data == *theirs;
    }
    bool LessThan(ValuePtr const* other) const override {
        Container scratch;
        Container const* const theirs = P_EqualTypes(other) ? ReadContainer(*other, scratch) : nullptr;
        return theirs != nullptr && IsLess(m_data, *theirs);
    }

    bool GetValue(Container& value) const override {
        value = m_data;
        return true;
    }
    bool SetValue(Container const& value) override {
        m_data = value;
        return true;
    }

protected:
    template <class Data>
    ContainerStorage(Data&& data, DisplayStatus status)
        : ValuePtr(status, false), m_data(std::forward<Data>(data)) {}

    Container m_data;
};

/// Answers the container pointer of C with the address of the container.
template <class C, class Base>
class ContainerPointerOf;

#define QZ_CONTAINER_POINTER(C, Name, ...)                                                                   \
    template <class Base>                                                                                    \
    class ContainerPointerOf<C, Base> : public Base {                                                        \
    public:                                                                                                  \
        C const* GetValuePointer##Name() const override { return &this->m_data; }                            \
                                                                                                             \
    protected:                                                                                               \
        template <class... Arguments>                                                                        \
        explicit ContainerPointerOf(Arguments&&... arguments)                                                \
            : Base(std::forward<Arguments>(arguments)...) {}                                                 \
    };
QZ_CONTAINER_TYPES(QZ_CONTAINER_POINTER)
#undef QZ_CONTAINER_POINTER

} // namespace qzDescriptor
