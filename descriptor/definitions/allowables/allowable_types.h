#pragma once

#include "values/storage/type_traits.h"

/// The types that may be constrained, in the order in which AllowablesData lists its operations. Their facts
/// are those of the values that hold them.
#define QZ_ALLOWABLE_OBJECTS(X)                                                                              \
    X(Qualifier)                                                                                             \
    X(EntityFullType)                                                                                        \
    X(Color)                                                                                                 \
    X(qzTMatrix44<double>)                                                                                   \
    X(qzTMatrix33<double>)                                                                                   \
    X(qzTTriple<int>)                                                                                        \
    X(qzTTriple<float>)                                                                                      \
    X(qzTTriple<double>)                                                                                     \
    X(qzTCouple<int>)                                                                                        \
    X(qzTCouple<float>)                                                                                      \
    X(qzTCouple<double>)                                                                                     \
    X(qzString)
#define QZ_ALLOWABLE_NUMBERS(X)                                                                              \
    X(double)                                                                                                \
    X(float)                                                                                                 \
    X(unsigned long)                                                                                         \
    X(long)                                                                                                  \
    X(unsigned short)                                                                                        \
    X(short)                                                                                                 \
    X(unsigned int)                                                                                          \
    X(int)                                                                                                   \
    X(unsigned char)                                                                                         \
    X(char)
#define QZ_ALLOWABLE_TYPES(X) QZ_ALLOWABLE_OBJECTS(X) QZ_ALLOWABLE_NUMBERS(X) X(bool)

namespace qzDescriptor {

#define QZ_LIST_ITEM(T) , T
using AllowableTypes = WithoutFirst<TypeList<void QZ_ALLOWABLE_TYPES(QZ_LIST_ITEM)>>::Type;
using AllowableNumbers = WithoutFirst<TypeList<void QZ_ALLOWABLE_NUMBERS(QZ_LIST_ITEM)>>::Type;
#undef QZ_LIST_ITEM

/// The type that constrains values of an element type; void where there is none. Entities are constrained by
/// their type.
template <class Element>
struct AllowableOf {
    using Type = Element;
};
template <>
struct AllowableOf<Entity> {
    using Type = EntityFullType;
};
template <>
struct AllowableOf<Formula> {
    using Type = void;
};
template <>
struct AllowableOf<void*> {
    using Type = void;
};
template <>
struct AllowableOf<Function> {
    using Type = void;
};

/// The element type of the values that a type constrains.
template <class T>
struct ConstrainedBy {
    using Element = T;
};
template <>
struct ConstrainedBy<EntityFullType> {
    using Element = Entity;
};

/// The facts of a constraining type.
template <class T>
using AllowableTraits = ElementTraits<typename ConstrainedBy<T>::Element>;

/// Calls the visitor with std::type_identity of the constraining type of a pair; false when it has none.
template <class F>
bool VisitAllowable(BasicType basic, CompoundType compound, F&& visitor) {
    bool visited = false;
    VisitElement(basic, compound, [&]<class Element>(std::type_identity<Element>) {
        using T = typename AllowableOf<Element>::Type;
        if constexpr (!std::is_void_v<T>) {
            visitor(std::type_identity<T>());
            visited = true;
        }
    });
    return visited;
}

} // namespace qzDescriptor
