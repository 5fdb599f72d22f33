#pragma once

#include "descriptor/qzdescriptor.h"
#include "tabular/column_types.h"
#include "values/storage/type_traits.h"

#include <gtest/gtest.h>

#include <limits>

namespace qzDescriptor::test {

/// Three different values of every element type, in rising order where the type has one.
template <class T>
struct Samples;

template <class T>
requires std::is_arithmetic_v<T>
struct Samples<T> {
    static T Make(int k) {
        T const values[] = {static_cast<T>(3), std::numeric_limits<T>::max() / 2,
                            std::numeric_limits<T>::max()};
        return values[k];
    }
};

// Two values are all there are.
template <>
struct Samples<bool> {
    static bool Make(int k) { return k != 0; }
};

template <>
struct Samples<float> {
    static float Make(int k) { return 0.5f * static_cast<float>(k) - 1.25f; }
};

template <>
struct Samples<double> {
    static double Make(int k) { return 0.5 * k - 1.25; }
};

template <>
struct Samples<qzString> {
    static qzString Make(int k) {
        return k == 0 ? qzString() : k == 1 ? qzString("a \0b", 4) : qzString(100, 'z');
    }
};

template <class T>
struct Samples<qzTCouple<T>> {
    static qzTCouple<T> Make(int k) { return {static_cast<T>(7), static_cast<T>(k - 1)}; }
};

template <class T>
struct Samples<qzTTriple<T>> {
    static qzTTriple<T> Make(int k) { return {static_cast<T>(7), static_cast<T>(-2), static_cast<T>(k)}; }
};

template <class T>
struct Samples<qzTMatrix33<T>> {
    static qzTMatrix33<T> Make(int k) {
        qzTMatrix33<T> matrix;
        matrix(2, 1) = 0.25 * k;
        return matrix;
    }
};

template <class T>
struct Samples<qzTMatrix44<T>> {
    static qzTMatrix44<T> Make(int k) {
        qzTMatrix44<T> matrix;
        matrix(3, 1) = 0.25 * k;
        return matrix;
    }
};

template <>
struct Samples<Color> {
    static Color Make(int k) {
        return k == 0 ? Color(3) : Color(10, static_cast<unsigned char>(20 * k), 255);
    }
};

template <>
struct Samples<Qualifier> {
    static Qualifier Make(int k) {
        return k == 0 ? Qualifier(-7, EntityFullType(4), 1, 2, 3, 0)
                      : Qualifier("T", EntityFullType("PSHELL", static_cast<unsigned int>(k - 1)), 0,
                                  Identifier::s_unset, 5, 0);
    }
};

template <>
struct Samples<Entity> {
    static Entity Make(int k) { return Entity(EntityFullType("GRID"), 10 + static_cast<unsigned int>(k)); }
};

template <>
struct Samples<EntityFullType> {
    static EntityFullType Make(int k) {
        return k == 0 ? EntityFullType(4) : EntityFullType("GRID", static_cast<unsigned int>(k - 1));
    }
};

template <>
struct Samples<Formula> {
    static Formula Make(int k) {
        Formula formula{EntityFullType("GRID")};
        formula.PushBackClause(Clause::FromIdRange(1, 10 + static_cast<unsigned int>(k)),
                               EntityFullType("SET"), true);
        return formula;
    }
};

template <>
struct Samples<void*> {
    static void* Make(int k) {
        static char targets[3];
        return &targets[k];
    }
};

template <>
struct Samples<Function> {
    static Function Make(int k) { return Function(Function::USAGE_NONE, "f" + std::to_string(k)); }
};

template <class List>
struct TypesOf;
template <class... T>
struct TypesOf<TypeList<T...>> {
    using Type = testing::Types<T...>;
    static void ForEach(auto&& visitor) { (visitor(std::type_identity<T>()), ...); }
};

/// A container of a kind with `count` elements made from the samples; bags hold what their type allows, and
/// tables have a column of every type.
template <class C>
C MakeContainer(int first, unsigned int count = 3) {
    using T = typename ContainerTraits<C>::Element;
    if constexpr (std::is_same_v<C, FormulaBag>) {
        FormulaBag bag;
        bag.SetFormula(Samples<Formula>::Make(first));
        return bag;
    } else if constexpr (std::is_same_v<C, EntityListBag>) {
        EntityListBag bag;
        bag.SetList(MakeContainer<EntityList>(first, count));
        return bag;
    } else if constexpr (std::is_same_v<C, EntityListBagList>) {
        EntityListBagList bags;
        bags.Modify(bags.Register(7, "set")) = MakeContainer<EntityListBag>(first, count);
        return bags;
    } else if constexpr (std::is_same_v<C, Tabular>) {
        Tabular table;
        TypesOf<ColumnTypes>::ForEach([&]<class List>(std::type_identity<List>) {
            table.InsertColumn(MakeContainer<List>(first, count), table.GetColumnCount());
        });
        return table;
    } else if constexpr (ContainerTraits<C>::s_kind == Kind::Array1) {
        C list;
        Value value(ValuePtr::Create(C(), DS_DEFAULT));
        for (unsigned int i = 0; i < count; ++i)
            value.SetValue(Samples<T>::Make((first + static_cast<int>(i)) % 3), i, 0);
        value.GetValue(list);
        return list;
    } else {
        C grid;
        Value value(ValuePtr::Create(C(), DS_DEFAULT));
        for (unsigned int i = 0; i < count; ++i)
            value.SetValue(Samples<T>::Make((first + static_cast<int>(i)) % 3), i / 2, i % 2);
        value.GetValue(grid);
        return grid;
    }
}

/// Calls the visitor with every element type.
void ForEachElementType(auto&& visitor) { TypesOf<ElementTypes>::ForEach(visitor); }

} // namespace qzDescriptor::test
