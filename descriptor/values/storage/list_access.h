#pragma once

#include "descriptor/qzdescriptor.h"

#include <cstddef>

namespace qzDescriptor {

// Lists and two-level lists seen alike, whether they hold their elements or, as entity lists, only ids.
//
// Set grows a list as far as the place needs, the new places zero or empty; the place ValuePtr::s_wholeValue
// is refused, since no list is that long. The value may be an element of the list itself.

template <class List>
struct ListAccess;

template <class T>
struct ListAccess<qzStlVector<T>> {
    using List = qzStlVector<T>;

    static std::size_t Count(List const& list) { return list.size(); }

    static bool Get(List const& list, unsigned int i, T& value) {
        if (i >= list.size())
            return false;
        value = list[i];
        return true;
    }

    static bool Set(List& list, unsigned int i, T const& value) {
        if (i == ValuePtr::s_wholeValue)
            return false;
        if (i < list.size()) {
            list[i] = value;
            return true;
        }
        T copy(value); // growing may move the element that `value` refers to
        list.resize(std::size_t{i} + 1);
        list[i] = std::move(copy);
        return true;
    }

    static T const* Locate(List const& list, unsigned int i) { return i < list.size() ? &list[i] : nullptr; }
};

template <>
struct ListAccess<EntityList> {
    static std::size_t Count(EntityList const& list) { return list.GetList().size(); }
    static bool Get(EntityList const& list, unsigned int i, Entity& value) {
        return list.GetEntity(value, i);
    }
    static bool Set(EntityList& list, unsigned int i, Entity const& value) {
        return i != ValuePtr::s_wholeValue && list.SetEntity(value, i);
    }
    static unsigned int const* Locate(EntityList const& list, unsigned int i) {
        return ListAccess<qzStlVector<unsigned int>>::Locate(list.GetList(), i);
    }
};

template <class Grid>
struct GridAccess;

template <class T>
struct GridAccess<qzStlVector<qzStlVector<T>>> {
    using Grid = qzStlVector<qzStlVector<T>>;

    static std::size_t Rows(Grid const& grid) { return grid.size(); }
    static std::size_t Columns(Grid const& grid, std::size_t i) { return grid[i].size(); }

    static bool Get(Grid const& grid, unsigned int i, unsigned int j, T& value) {
        return i < grid.size() && ListAccess<qzStlVector<T>>::Get(grid[i], j, value);
    }

    static bool Set(Grid& grid, unsigned int i, unsigned int j, T const& value) {
        if (i == ValuePtr::s_wholeValue || j == ValuePtr::s_wholeValue)
            return false;
        if (i < grid.size())
            return ListAccess<qzStlVector<T>>::Set(grid[i], j, value);
        T const copy(value);
        grid.resize(std::size_t{i} + 1);
        return ListAccess<qzStlVector<T>>::Set(grid[i], j, copy);
    }

    static T const* Locate(Grid const& grid, unsigned int i, unsigned int j) {
        return i < grid.size() ? ListAccess<qzStlVector<T>>::Locate(grid[i], j) : nullptr;
    }
};

template <>
struct GridAccess<EntityList2> {
    using Ids = GridAccess<qzStlVector<qzStlVector<unsigned int>>>;

    static std::size_t Rows(EntityList2 const& grid) { return grid.GetList().size(); }
    static std::size_t Columns(EntityList2 const& grid, std::size_t i) { return grid.GetList()[i].size(); }
    static bool Get(EntityList2 const& grid, unsigned int i, unsigned int j, Entity& value) {
        return grid.GetEntity(value, i, j);
    }
    static bool Set(EntityList2& grid, unsigned int i, unsigned int j, Entity const& value) {
        return i != ValuePtr::s_wholeValue && j != ValuePtr::s_wholeValue && grid.SetEntity(value, i, j);
    }
    static unsigned int const* Locate(EntityList2 const& grid, unsigned int i, unsigned int j) {
        return Ids::Locate(grid.GetList(), i, j);
    }
};

} // namespace qzDescriptor
