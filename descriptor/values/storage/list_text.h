#pragma once

#include "values/storage/list_access.h"
#include "values/text/ElementText.h"

#include <utility>

namespace qzDescriptor {

// Lists as text: "{1 2 3}", two-level ones "{{1 2} {3}}". What cannot be written leaves an empty text.

/// Appends `count` items between braces; append(k) appends one of them and is false when it cannot.
template <class Append>
bool AppendBraced(qzString& out, std::size_t count, Append&& append) {
    out += '{';
    for (std::size_t k = 0; k < count; ++k) {
        if (k > 0)
            out += ' ';
        if (!append(static_cast<unsigned int>(k)))
            return false;
    }
    out += '}';
    return true;
}

/// Writes what append(text) appends; an empty text when that fails. The format in use may lie in `out`.
template <class Append>
bool WriteOrEmpty(qzString& out, Append&& append) {
    qzString text;
    bool const written = append(text);
    if (written)
        out = std::move(text);
    else
        out.clear();
    return written;
}

template <class T>
bool WriteElement(qzString& out, bool exists, T const& element, char const* format) {
    return WriteOrEmpty(out, [&](qzString& text) { return exists && AppendText(text, element, format); });
}

template <class T>
bool AppendList(qzString& out, qzStlVector<T> const& list, char const* format) {
    return AppendBraced(out, list.size(), [&](unsigned int k) { return AppendText(out, list[k], format); });
}

template <class Get>
bool AppendEntities(qzString& out, std::size_t count, char const* format, Get&& get) {
    return AppendBraced(out, count, [&](unsigned int k) {
        Entity entity;
        return get(entity, k) && AppendText(out, entity, format);
    });
}

inline bool AppendList(qzString& out, EntityList const& list, char const* format) {
    return AppendEntities(out, list.GetIdListCount(), format,
                          [&](Entity& entity, unsigned int k) { return list.GetEntity(entity, k); });
}

template <class T>
bool AppendRow(qzString& out, qzStlVector<qzStlVector<T>> const& grid, unsigned int i, char const* format) {
    return AppendList(out, grid[i], format);
}

inline bool AppendRow(qzString& out, EntityList2 const& grid, unsigned int i, char const* format) {
    return AppendEntities(out, grid.GetIdListCount(i), format,
                          [&](Entity& entity, unsigned int k) { return grid.GetEntity(entity, i, k); });
}

// Bags: the lists, or formulas, of all their types; a register of bags: key, name and bag of each.

inline bool AppendBag(qzString& out, EntityListBag const& bag, char const* format) {
    qzStlVector<EntityFullType> types;
    bag.GetEntityFullTypeList(types);
    return AppendBraced(out, types.size(), [&](unsigned int k) {
        EntityList list;
        return bag.GetList(types[k], list) && AppendList(out, list, format);
    });
}

inline bool AppendBag(qzString& out, FormulaBag const& bag, char const* format) {
    qzStlVector<EntityFullType> types;
    bag.GetEntityFullTypeList(types);
    return AppendBraced(out, types.size(), [&](unsigned int k) {
        Formula formula;
        return bag.GetFormula(types[k], formula) && AppendText(out, formula, format);
    });
}

inline bool AppendBag(qzString& out, EntityListBagList const& bags, char const* format) {
    qzStlVector<std::pair<unsigned int, qzString>> pairs;
    bags.GetRegisteredPairs(pairs);
    return AppendBraced(out, pairs.size(), [&](unsigned int k) {
        auto const& [key, name] = pairs[k];
        AppendText(out, key, nullptr);
        out += ' ' + name + ' ';
        return AppendBag(out, bags.Query(bags.Find(key, name)), format);
    });
}

template <class List>
bool WriteList(qzString& out, List const& list, char const* format) {
    return WriteOrEmpty(out, [&](qzString& text) { return AppendList(text, list, format); });
}

template <class Grid>
bool WriteGrid(qzString& out, Grid const& grid, char const* format) {
    return WriteOrEmpty(out, [&](qzString& text) {
        return AppendBraced(text, GridAccess<Grid>::Rows(grid),
                            [&](unsigned int i) { return AppendRow(text, grid, i, format); });
    });
}

template <class Grid>
bool WriteRow(qzString& out, Grid const& grid, unsigned int i, char const* format) {
    return WriteOrEmpty(out, [&](qzString& text) {
        return i < GridAccess<Grid>::Rows(grid) && AppendRow(text, grid, i, format);
    });
}

} // namespace qzDescriptor
