#pragma once

#include "qzdistribution/QZ_DT_Variant.h"

#include <type_traits>

/// The types of cells: X(type, code).
#define QZDT_CELL_TYPES(X)                                                                                   \
    X(bool, QZDT_BOOL)                                                                                       \
    X(int, QZDT_INT)                                                                                         \
    X(unsigned int, QZDT_UINT)                                                                               \
    X(double, QZDT_DOUBLE)                                                                                   \
    X(qzString, QZDT_STRING)                                                                                 \
    X(qzTTriple<int>, QZDT_TRIPLE_I)                                                                         \
    X(qzTTriple<double>, QZDT_TRIPLE)                                                                        \
    X(QZDT_Id, QZDT_ID)

namespace qzdt {

template <class T>
inline constexpr QZDT_Type s_typeOf = QZDT_NONE;
#define QZDT_TYPE_OF(T, code)                                                                                \
    template <>                                                                                              \
    inline constexpr QZDT_Type s_typeOf<T> = code;
QZDT_CELL_TYPES(QZDT_TYPE_OF)
#undef QZDT_TYPE_OF

/// Calls visit(std::type_identity<T>) with the C++ type of a code and answers what it answers; false for
/// none.
template <class Visit>
bool VisitType(QZDT_Type type, Visit&& visit) {
    switch (type) {
#define QZDT_VISIT(T, code)                                                                                  \
    case code:                                                                                               \
        return visit(std::type_identity<T>{});
        QZDT_CELL_TYPES(QZDT_VISIT)
#undef QZDT_VISIT
    default:
        return false;
    }
}

inline bool IsCellType(QZDT_Type type) {
    return VisitType(type, [](auto) { return true; });
}

} // namespace qzdt
