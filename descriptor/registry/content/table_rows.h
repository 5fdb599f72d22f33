#pragma once

#include "tabular/column_types.h"

namespace qzDescriptor {

inline void Resize(EntityList& list, unsigned int count) { list.Resize(count); }
template <class T>
void Resize(qzStlVector<T>& list, unsigned int count) {
    list.resize(count);
}

/// The first rows of a column, filled up with default cells where it is shorter.
template <class List>
List ReadRows(Tabular const& table, unsigned int column, unsigned int rows) {
    List scratch;
    List list = ReadColumn(table, column, scratch);
    Resize(list, rows);
    return list;
}

} // namespace qzDescriptor
