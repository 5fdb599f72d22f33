#pragma once

#include "descriptor/qzdescriptor.h"
#include "values/storage/type_table.h"

#include <type_traits>

namespace qzDescriptor {

// The only place that turns the tables into types; everything else asks these traits and visitors.

template <class... T>
struct TypeList {};

/// How a container holds its elements.
enum class Kind { Array1, Array2, Bag, BagList, Table };

/// The facts of an element type: s_basic, s_compound, s_strings, and the address of an element in a holder.
template <class T>
struct ElementTraits;

/// The facts of a container: s_kind, Element, and its address in a holder.
template <class C>
struct ContainerTraits;

/// The container of a kind for an element type; void where there is none.
template <class T, Kind K>
struct ContainerFor {
    using Type = void;
};

#define QZ_ELEMENT_TRAITS(T, Name, Basic, Compound, Strings)                                                 \
    template <>                                                                                              \
    struct ElementTraits<T> {                                                                                \
        static constexpr BasicType s_basic = Basic;                                                          \
        static constexpr CompoundType s_compound = Compound;                                                 \
        static constexpr bool s_strings = Strings;                                                           \
        static T const* Pointer(ValuePtr const& holder, unsigned int i, unsigned int j) {                    \
            return holder.GetValuePointer##Name(i, j);                                                       \
        }                                                                                                    \
    };
QZ_ELEMENT_TYPES(QZ_ELEMENT_TRAITS)
#undef QZ_ELEMENT_TRAITS

#define QZ_CONTAINER_TRAITS(C, Name, ItsKind, ItsElement)                                                    \
    template <>                                                                                              \
    struct ContainerTraits<C> {                                                                              \
        using Element = ItsElement;                                                                          \
        static constexpr Kind s_kind = Kind::ItsKind;                                                        \
        static C const* Pointer(ValuePtr const& holder) { return holder.GetValuePointer##Name(); }           \
    };                                                                                                       \
    template <>                                                                                              \
    struct ContainerFor<ItsElement, Kind::ItsKind> {                                                         \
        using Type = C;                                                                                      \
    };
QZ_CONTAINER_TYPES(QZ_CONTAINER_TRAITS)
#undef QZ_CONTAINER_TRAITS

template <class List>
struct WithoutFirst;
template <class First, class... Rest>
struct WithoutFirst<TypeList<First, Rest...>> {
    using Type = TypeList<Rest...>;
};

#define QZ_LIST_ITEM(T, ...) , T
/// Every element type, in table order.
using ElementTypes = WithoutFirst<TypeList<void QZ_ELEMENT_TYPES(QZ_LIST_ITEM)>>::Type;
/// Every container, in table order.
using ContainerTypes = WithoutFirst<TypeList<void QZ_CONTAINER_TYPES(QZ_LIST_ITEM)>>::Type;
#undef QZ_LIST_ITEM

template <class T, class... Others>
inline constexpr bool s_isOneOf = (std::is_same_v<T, Others> || ...);

/// Whether values of the type have an order; the others are never less than one another.
template <class T>
inline constexpr bool s_ordered = !s_isOneOf<T, Color, Qualifier, Formula, Function, EntityList, EntityList2,
                                             EntityListBag, EntityListBagList, FormulaBag, Tabular>;

template <class F, class... T>
constexpr bool VisitElement(BasicType basic, CompoundType compound, F&& visitor, TypeList<T...>) {
    return ((ElementTraits<T>::s_basic == basic && ElementTraits<T>::s_compound == compound &&
             (visitor(std::type_identity<T>()), true)) ||
            ...);
}

/// Calls the visitor with std::type_identity of the element type of a pair; false for a pair that is no type.
template <class F>
constexpr bool VisitElement(BasicType basic, CompoundType compound, F&& visitor) {
    return VisitElement(basic, compound, std::forward<F>(visitor), ElementTypes());
}

} // namespace qzDescriptor
