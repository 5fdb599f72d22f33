#pragma once

#include "values/storage/type_traits.h"

/// The kinds of columns, by the list that holds their cells, in the order of every family of operations. The
/// facts of their cells are those of the values that hold them.
// X(List, Name)
#define QZ_COLUMN_VECTORS(X)                                                                                 \
    X(qzStlVector<bool>, BoolList)                                                                           \
    X(qzStlVector<int>, IntList)                                                                             \
    X(qzStlVector<unsigned int>, UIntList)                                                                   \
    X(qzStlVector<double>, DoubleList)                                                                       \
    X(qzStlVector<qzString>, StringList)                                                                     \
    X(qzStlVector<qzTTriple<int>>, TripleIList)                                                              \
    X(qzStlVector<qzTTriple<double>>, TripleList)
#define QZ_COLUMN_TYPES(X) QZ_COLUMN_VECTORS(X) X(EntityList, EntityList)

namespace qzDescriptor {

#define QZ_LIST_ITEM(C, ...) , C
using ColumnTypes = WithoutFirst<TypeList<void QZ_COLUMN_TYPES(QZ_LIST_ITEM)>>::Type;
#undef QZ_LIST_ITEM

template <class List>
using CellOf = typename ContainerTraits<List>::Element;
template <class List>
using CellTraits = ElementTraits<CellOf<List>>;

/// A column in place, or copied out of a store outside memory; empty when the column is of another type.
template <class List>
List const& ReadColumn(Tabular const& table, unsigned int column, List& scratch);

#define QZ_READ_COLUMN(C, Name)                                                                              \
    template <>                                                                                              \
    inline C const& ReadColumn(Tabular const& table, unsigned int column, C& scratch) {                      \
        C const* const shown = table.UsesExternalStorage() ? nullptr : table.GetColumn##Name(column);        \
        if (shown != nullptr)                                                                                \
            return *shown;                                                                                   \
        table.GetColumn(column, scratch);                                                                    \
        return scratch;                                                                                      \
    }
QZ_COLUMN_TYPES(QZ_READ_COLUMN)
#undef QZ_READ_COLUMN

template <class F, class... List>
bool VisitColumn(BasicType basic, CompoundType compound, F&& visitor, TypeList<List...>) {
    return ((CellTraits<List>::s_compound == compound &&
             (CellTraits<List>::s_basic == basic || compound == CT_ENTITY) &&
             (visitor(std::type_identity<List>()), true)) ||
            ...);
}

/// Calls the visitor with std::type_identity of the list that holds cells of a pair; false when no column
/// does. Entities go by any basic type.
template <class F>
bool VisitColumn(BasicType basic, CompoundType compound, F&& visitor) {
    return VisitColumn(basic, compound, visitor, ColumnTypes());
}

} // namespace qzDescriptor
