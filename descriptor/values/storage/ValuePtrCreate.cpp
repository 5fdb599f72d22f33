#include "values/storage/BagHolders.h"
#include "values/storage/CreateTable.h"
#include "values/storage/ElementHolders.h"
#include "values/storage/ListHolders.h"

#include <memory>

namespace qzDescriptor {

// The factories, and with them every holder class that exists.

#define QZ_CREATE_WITH_STRING_false(T)
#define QZ_CREATE_WITH_STRING_true(T)                                                                        \
    ValuePtr* ValuePtr::Create(T const& value, qzString const& associatedString, DisplayStatus status) {     \
        return new ElementHolderWithString<T>(value, associatedString, status);                              \
    }
#define QZ_CREATE_ELEMENT(T, Name, Basic, Compound, Strings)                                                 \
    ValuePtr* ValuePtr::Create(T const& value, DisplayStatus status) {                                       \
        return new ElementHolder<T>(value, status);                                                          \
    }                                                                                                        \
    QZ_CREATE_WITH_STRING_##Strings(T)
QZ_ELEMENT_TYPES(QZ_CREATE_ELEMENT)
#undef QZ_CREATE_ELEMENT
#undef QZ_CREATE_WITH_STRING_true
#undef QZ_CREATE_WITH_STRING_false

#define QZ_CREATE_Array1(C)                                                                                  \
    ValuePtr* ValuePtr::Create(C&& value, DisplayStatus status) {                                            \
        return new ListHolder<C>(std::move(value), status);                                                  \
    }
#define QZ_CREATE_Array2(C)                                                                                  \
    ValuePtr* ValuePtr::Create(C&& value, DisplayStatus status) {                                            \
        return new GridHolder<C>(std::move(value), status);                                                  \
    }
#define QZ_CREATE_Bag(C)
#define QZ_CREATE_BagList(C)
#define QZ_CREATE_Table(C)
#define QZ_CREATE_CONTAINER(C, Name, ItsKind, ...) QZ_CREATE_##ItsKind(C)
QZ_CONTAINER_TYPES(QZ_CREATE_CONTAINER)
#undef QZ_CREATE_CONTAINER
#undef QZ_CREATE_Table
#undef QZ_CREATE_BagList
#undef QZ_CREATE_Bag
#undef QZ_CREATE_Array2
#undef QZ_CREATE_Array1

namespace {

/// The types whose values can be made from text.
template <class T>
inline constexpr bool s_madeFromText = (ElementTraits<T>::s_compound <= CT_ENTITY) &&
                                       (ElementTraits<T>::s_basic <= BT_STRING);

ValuePtr* CreateEntityCollection(unsigned int selector, DisplayStatus status) {
    switch (selector) {
    case 1:
        return ValuePtr::Create(EntityList(), status);
    case 3:
        return new ValuePtrEntityListBag(EntityListBag(), status);
    case 4:
        return new ValuePtrEntityListBagList(EntityListBagList(), status);
    default:
        return nullptr;
    }
}

/// An empty container of a kind with room for `count` elements or rows.
template <class T, Kind K>
ValuePtr* CreateWithRoom(unsigned int count, DisplayStatus status) {
    using Container = typename ContainerFor<T, K>::Type;
    if constexpr (std::is_void_v<Container>) {
        return nullptr;
    } else {
        Container container;
        container.reserve(count);
        return ValuePtr::Create(std::move(container), status);
    }
}

} // namespace

ValuePtr* ValuePtr::Create(BasicType basic, CompoundType compound, qzString const& text, char const* format,
                           DisplayStatus status) {
    std::unique_ptr<ValuePtr> holder;
    VisitElement(basic, compound, [&]<class T>(std::type_identity<T>) {
        if constexpr (s_madeFromText<T>)
            holder.reset(Create(T(), status));
    });
    if (holder != nullptr)
        holder->SetValueFromString(text, format, 0, 0);
    return holder.release();
}

ValuePtr* ValuePtr::Create(BasicType basic, CompoundType compound, unsigned int count, unsigned int columns,
                           DisplayStatus status, QZDT_DBHandle const& database) {
    if (compound == CT_TABULAR)
        return CreateTable(database, status);
    if (count == 0)
        return nullptr;
    if (compound == CT_ENTITY)
        return columns == 0 ? CreateEntityCollection(count, status)
                            : Create(EntityList2(count, columns), status);
    ValuePtr* holder = nullptr;
    VisitElement(basic, compound, [&]<class T>(std::type_identity<T>) {
        if constexpr (!std::is_same_v<T, Entity>)
            holder = columns == 0 ? CreateWithRoom<T, Kind::Array1>(count, status)
                                  : CreateWithRoom<T, Kind::Array2>(count, status);
    });
    return holder;
}

} // namespace qzDescriptor
