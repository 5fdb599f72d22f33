#pragma once

#include "conversions.h"
#include "handles.h"

#include <pybind11/numpy.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>

/// How single elements and lists of them become Python objects (`Give`) and come from them (`Take`, false for
/// an object that is none of the kind).

namespace qzPython {

// --- the tables of types ---------------------------------------------------------------------------------

template <class T, BasicType Basic, CompoundType Compound>
struct ElementRow {
    using Type = T;
    static constexpr BasicType s_basic = Basic;
    static constexpr CompoundType s_compound = Compound;
};

template <class... Row>
struct Rows {};

using ElementRows =
    Rows<ElementRow<double, BT_DOUBLE, CT_SCALAR>, ElementRow<int, BT_INT, CT_SCALAR>,
         ElementRow<qzString, BT_STRING, CT_SCALAR>, ElementRow<bool, BT_BOOL, CT_SCALAR>,
         ElementRow<Entity, BT_UINT, CT_ENTITY>, ElementRow<char, BT_CHAR, CT_SCALAR>,
         ElementRow<unsigned char, BT_UCHAR, CT_SCALAR>, ElementRow<unsigned int, BT_UINT, CT_SCALAR>,
         ElementRow<short, BT_SHORT, CT_SCALAR>, ElementRow<unsigned short, BT_USHORT, CT_SCALAR>,
         ElementRow<long, BT_LONG, CT_SCALAR>, ElementRow<unsigned long, BT_ULONG, CT_SCALAR>,
         ElementRow<float, BT_FLOAT, CT_SCALAR>, ElementRow<qzTCouple<double>, BT_DOUBLE, CT_COUPLE>,
         ElementRow<qzTCouple<float>, BT_FLOAT, CT_COUPLE>, ElementRow<qzTCouple<int>, BT_INT, CT_COUPLE>,
         ElementRow<qzTTriple<double>, BT_DOUBLE, CT_TRIPLE>,
         ElementRow<qzTTriple<float>, BT_FLOAT, CT_TRIPLE>, ElementRow<qzTTriple<int>, BT_INT, CT_TRIPLE>,
         ElementRow<qzTMatrix33<double>, BT_DOUBLE, CT_MATRIX33>,
         ElementRow<qzTMatrix44<double>, BT_DOUBLE, CT_MATRIX44>, ElementRow<Color, BT_UINT, CT_COLOR>,
         ElementRow<Qualifier, BT_OBJECT, CT_QUALIFIER>, ElementRow<Formula, BT_OBJECT, CT_FORMULA>,
         ElementRow<void*, BT_POINTER, CT_SCALAR>, ElementRow<Function, BT_POINTER, CT_FUNCTION>>;

template <class T, BasicType Basic, CompoundType Compound, unsigned int Dimension, auto Pointer>
struct ContainerRow : ElementRow<T, Basic, Compound> {
    static constexpr unsigned int s_dimension = Dimension;
    static T const* Find(ValuePtr const& holder) { return (holder.*Pointer)(); }
};

template <class T>
using Lists = qzStlVector<qzStlVector<T>>;

using ContainerRows = Rows<
    ContainerRow<qzStlVector<double>, BT_DOUBLE, CT_SCALAR, 1, &ValuePtr::GetValuePointerDoubleList>,
    ContainerRow<EntityList, BT_UINT, CT_ENTITY, 1, &ValuePtr::GetValuePointerEntityList>,
    ContainerRow<qzStlVector<int>, BT_INT, CT_SCALAR, 1, &ValuePtr::GetValuePointerIntList>,
    ContainerRow<qzStlVector<qzString>, BT_STRING, CT_SCALAR, 1, &ValuePtr::GetValuePointerStringList>,
    ContainerRow<qzStlVector<bool>, BT_BOOL, CT_SCALAR, 1, &ValuePtr::GetValuePointerBoolList>,
    ContainerRow<qzStlVector<char>, BT_CHAR, CT_SCALAR, 1, &ValuePtr::GetValuePointerCharList>,
    ContainerRow<qzStlVector<unsigned int>, BT_UINT, CT_SCALAR, 1, &ValuePtr::GetValuePointerUIntList>,
    ContainerRow<qzStlVector<long>, BT_LONG, CT_SCALAR, 1, &ValuePtr::GetValuePointerLongList>,
    ContainerRow<qzStlVector<unsigned long>, BT_ULONG, CT_SCALAR, 1, &ValuePtr::GetValuePointerULongList>,
    ContainerRow<qzStlVector<float>, BT_FLOAT, CT_SCALAR, 1, &ValuePtr::GetValuePointerFloatList>,
    ContainerRow<qzStlVector<qzTCouple<double>>, BT_DOUBLE, CT_COUPLE, 1,
                 &ValuePtr::GetValuePointerCoupleList>,
    ContainerRow<qzStlVector<qzTTriple<double>>, BT_DOUBLE, CT_TRIPLE, 1,
                 &ValuePtr::GetValuePointerTripleList>,
    ContainerRow<qzStlVector<qzTTriple<int>>, BT_INT, CT_TRIPLE, 1, &ValuePtr::GetValuePointerTripleIList>,
    ContainerRow<qzStlVector<Qualifier>, BT_OBJECT, CT_QUALIFIER, 1, &ValuePtr::GetValuePointerQualifierList>,
    ContainerRow<qzStlVector<Formula>, BT_OBJECT, CT_FORMULA, 1, &ValuePtr::GetValuePointerFormulaList>,
    ContainerRow<qzStlVector<void*>, BT_POINTER, CT_SCALAR, 1, &ValuePtr::GetValuePointerPointerList>,
    ContainerRow<Lists<int>, BT_INT, CT_SCALAR, 2, &ValuePtr::GetValuePointerIntList2>,
    ContainerRow<Lists<unsigned int>, BT_UINT, CT_SCALAR, 2, &ValuePtr::GetValuePointerUIntList2>,
    ContainerRow<Lists<long>, BT_LONG, CT_SCALAR, 2, &ValuePtr::GetValuePointerLongList2>,
    ContainerRow<Lists<unsigned long>, BT_ULONG, CT_SCALAR, 2, &ValuePtr::GetValuePointerULongList2>,
    ContainerRow<Lists<float>, BT_FLOAT, CT_SCALAR, 2, &ValuePtr::GetValuePointerFloatList2>,
    ContainerRow<Lists<double>, BT_DOUBLE, CT_SCALAR, 2, &ValuePtr::GetValuePointerDoubleList2>,
    ContainerRow<Lists<qzTTriple<double>>, BT_DOUBLE, CT_TRIPLE, 2, &ValuePtr::GetValuePointerTripleList2>,
    ContainerRow<EntityList2, BT_UINT, CT_ENTITY, 2, &ValuePtr::GetValuePointerEntityList2>,
    ContainerRow<EntityListBag, BT_UINT, CT_ENTITY, 3, &ValuePtr::GetValuePointerEntityListBag>,
    ContainerRow<FormulaBag, BT_OBJECT, CT_FORMULA, 3, &ValuePtr::GetValuePointerFormulaBag>,
    ContainerRow<EntityListBagList, BT_UINT, CT_ENTITY, 4, &ValuePtr::GetValuePointerEntityListBagList>,
    ContainerRow<Tabular, BT_OBJECT, CT_TABULAR, 0, &ValuePtr::GetValuePointerTabular>>;

/// Calls the visitor with the row of an element type; false for a pair that is no type.
template <class F, class... Row>
bool VisitElement(BasicType basic, CompoundType compound, F&& visitor, Rows<Row...>) {
    return ((Row::s_basic == basic && Row::s_compound == compound && (visitor(Row()), true)) || ...);
}
template <class F>
bool VisitElement(BasicType basic, CompoundType compound, F&& visitor) {
    return VisitElement(basic, compound, visitor, ElementRows());
}
template <class F, class... Row>
bool VisitContainer(TypeSpec const& type, F&& visitor, Rows<Row...>) {
    return ((TypeSpec{Row::s_basic, Row::s_compound, Row::s_dimension} == type && (visitor(Row()), true)) ||
            ...);
}
template <class F>
bool VisitContainer(TypeSpec const& type, F&& visitor) {
    return VisitContainer(type, visitor, ContainerRows());
}

// --- numbers and texts -----------------------------------------------------------------------------------

template <class T>
concept Integer = std::is_integral_v<T> && !std::is_same_v<T, bool>;

/// In NumPy a `char` is a text; here it is a small number.
template <class T>
using ArrayNumber = std::conditional_t<std::is_same_v<T, char>, signed char, T>;

inline bool IsBool(py::handle object) {
    return PyBool_Check(object.ptr()) || std::strcmp(Py_TYPE(object.ptr())->tp_name, "numpy.bool_") == 0;
}
inline bool IsIndex(py::handle object) { return PyIndex_Check(object.ptr()) && !IsBool(object); }
inline bool IsText(py::handle object) {
    return PyUnicode_Check(object.ptr()) || PyBytes_Check(object.ptr()) || PyByteArray_Check(object.ptr());
}
inline bool IsSequence(py::handle object) {
    return PySequence_Check(object.ptr()) && !IsText(object) && !PyDict_Check(object.ptr());
}

inline py::object Give(bool value) { return py::bool_(value); }
template <Integer T>
py::object Give(T value) {
    return py::int_(value);
}
template <std::floating_point T>
py::object Give(T value) {
    return py::float_(static_cast<double>(value));
}
inline py::object Give(qzString const& value) { return GiveText(value); }
inline py::object Give(void* value) { return py::int_(reinterpret_cast<std::uintptr_t>(value)); }

inline bool Take(py::handle object, bool& value) {
    if (!IsBool(object))
        return false;
    int const is = PyObject_IsTrue(object.ptr());
    ClearRefusal();
    if (is >= 0)
        value = is == 1;
    return is >= 0;
}
template <Integer T>
bool Take(py::handle object, T& value) {
    if (!IsIndex(object))
        return false;
    auto const number = py::reinterpret_steal<py::object>(PyNumber_Index(object.ptr()));
    bool fits = false;
    if (number && std::is_signed_v<T>) {
        long long const wide = PyLong_AsLongLong(number.ptr());
        fits = PyErr_Occurred() == nullptr && std::in_range<ArrayNumber<T>>(wide);
        value = fits ? static_cast<T>(wide) : value;
    } else if (number) {
        unsigned long long const wide = PyLong_AsUnsignedLongLong(number.ptr());
        fits = PyErr_Occurred() == nullptr && std::in_range<ArrayNumber<T>>(wide);
        value = fits ? static_cast<T>(wide) : value;
    }
    ClearRefusal();
    return fits;
}
template <std::floating_point T>
bool Take(py::handle object, T& value) {
    PyNumberMethods const* const methods = Py_TYPE(object.ptr())->tp_as_number;
    if (IsBool(object) || !(IsIndex(object) || (methods != nullptr && methods->nb_float != nullptr)))
        return false;
    auto const number = py::reinterpret_steal<py::object>(PyNumber_Float(object.ptr()));
    ClearRefusal();
    if (!number)
        return false;
    double const wide = PyFloat_AS_DOUBLE(number.ptr());
    if (std::isfinite(wide) && std::abs(wide) > static_cast<double>(std::numeric_limits<T>::max()))
        return false;
    value = static_cast<T>(wide);
    return true;
}
inline bool Take(py::handle object, qzString& value) { return TakeText(object, value); }
inline bool Take(py::handle object, void*& value) {
    std::uintptr_t address = 0;
    if (!Take(object, address))
        return false;
    value = reinterpret_cast<void*>(address);
    return true;
}

// --- tuples and matrices ---------------------------------------------------------------------------------

template <class T>
struct TupleSize;
template <class T>
struct TupleSize<qzTCouple<T>> : std::integral_constant<std::size_t, 2> {
    using Component = T;
};
template <class T>
struct TupleSize<qzTTriple<T>> : std::integral_constant<std::size_t, 3> {
    using Component = T;
};
template <class T>
concept Tuple = requires {
    TupleSize<T>::value;
};

template <class T>
py::object Give(qzTCouple<T> const& value) {
    return py::make_tuple(value.first, value.second);
}
template <class T>
py::object Give(qzTTriple<T> const& value) {
    return py::make_tuple(value.first, value.second, value.third);
}
template <class T, std::size_t Size>
py::object GiveMatrix(T const (&elements)[Size]) {
    py::ssize_t const side = Size == 9 ? 3 : 4;
    return py::array_t<T>({side, side}, elements);
}
template <class T>
py::object Give(qzTMatrix33<T> const& value) {
    return GiveMatrix(value.elements);
}
template <class T>
py::object Give(qzTMatrix44<T> const& value) {
    return GiveMatrix(value.elements);
}

/// The items of a sequence, none for what is no sequence. A copy: the conversion of an item may run code that
/// changes the sequence.
inline std::optional<py::tuple> TakeItems(py::handle object) {
    if (!IsSequence(object))
        return std::nullopt;
    auto items = py::reinterpret_steal<py::object>(PySequence_Tuple(object.ptr()));
    ClearRefusal();
    return items ? std::optional<py::tuple>(std::move(items)) : std::nullopt;
}
/// The same when there are that many.
inline std::optional<py::tuple> TakeItems(py::handle object, std::size_t count) {
    std::optional<py::tuple> items = TakeItems(object);
    return items && items->size() == count ? items : std::nullopt;
}
template <class T>
bool TakeEach(py::handle object, std::initializer_list<T*> places) {
    std::optional<py::tuple> const items = TakeItems(object, places.size());
    if (!items)
        return false;
    std::size_t i = 0;
    for (T* const place : places) {
        if (!Take((*items)[i++], *place))
            return false;
    }
    return true;
}
template <class T>
bool Take(py::handle object, qzTCouple<T>& value) {
    return TakeEach(object, {&value.first, &value.second});
}
template <class T>
bool Take(py::handle object, qzTTriple<T>& value) {
    return TakeEach(object, {&value.first, &value.second, &value.third});
}
template <class T, std::size_t Size>
bool TakeMatrix(py::handle object, T (&elements)[Size]) {
    constexpr std::size_t side = Size == 9 ? 3 : 4;
    std::optional<py::tuple> const rows = TakeItems(object, side);
    for (std::size_t row = 0; rows && row < side; ++row) {
        std::optional<py::tuple> const items = TakeItems((*rows)[row], side);
        for (std::size_t column = 0; column < side; ++column) {
            if (!items || !Take((*items)[column], elements[side * row + column]))
                return false;
        }
    }
    return rows.has_value();
}
template <class T>
bool Take(py::handle object, qzTMatrix33<T>& value) {
    return TakeMatrix(object, value.elements);
}
template <class T>
bool Take(py::handle object, qzTMatrix44<T>& value) {
    return TakeMatrix(object, value.elements);
}

// --- classes of this module ------------------------------------------------------------------------------

template <class T>
concept Class = std::is_same_v<T, Color> || std::is_same_v<T, Qualifier> || std::is_same_v<T, Entity> ||
    std::is_same_v<T, Formula> || std::is_same_v<T, Function> || std::is_same_v<T, EntityList> ||
    std::is_same_v<T, EntityList2> || std::is_same_v<T, EntityListBag> ||
    std::is_same_v<T, EntityListBagList> || std::is_same_v<T, FormulaBag> || std::is_same_v<T, Tabular>;

template <Class T>
py::object Give(T const& value) {
    return py::cast(value, py::return_value_policy::copy);
}
template <Class T>
bool Take(py::handle object, T& value) {
    if constexpr (std::is_same_v<T, Entity>) {
        if (py::isinstance<ObjectHandle>(object)) { // an object stands for its entity
            value = object.cast<ObjectHandle const&>().GetEntity();
            return true;
        }
    }
    if constexpr (std::is_same_v<T, Tabular>) {
        if (!py::isinstance<Tabular>(object))
            return TakeTable(object, value);
    }
    if (py::isinstance<T>(object)) {
        value = object.cast<T const&>();
        return true;
    }
    if constexpr (std::is_same_v<T, EntityList>) { // a list of entities of one type will do
        if (!IsSequence(object))
            return false;
        unsigned int count = 0;
        EntityList list;
        for (py::handle const item : object) {
            Entity entity;
            if (!Take(item, entity) ||
                (count > 0 && !(entity.GetEntityFullType() == list.GetEntityFullType())))
                return false;
            list.SetEntity(entity, count++);
        }
        value = list;
        return count > 0;
    }
    return false;
}

// --- lists -----------------------------------------------------------------------------------------------

/// Numbers and tuples of them lie side by side, and are arrays in Python.
template <class T>
py::object Give(qzStlVector<T> const& list) {
    if constexpr (std::is_arithmetic_v<T>) {
        return py::array_t<ArrayNumber<T>>(static_cast<py::ssize_t>(list.size()),
                                           reinterpret_cast<ArrayNumber<T> const*>(list.data()));
    } else if constexpr (Tuple<T>) {
        using Component = typename TupleSize<T>::Component;
        static_assert(sizeof(T) == TupleSize<T>::value * sizeof(Component));
        return py::array_t<Component>(
            {static_cast<py::ssize_t>(list.size()), static_cast<py::ssize_t>(TupleSize<T>::value)},
            reinterpret_cast<Component const*>(list.data()));
    } else {
        py::list items;
        for (T const& item : list)
            items.append(Give(item));
        return items;
    }
}

/// The array itself when it holds exactly these numbers side by side.
template <class T>
bool TakeArray(py::handle object, qzStlVector<T>& list) {
    if (!HasAttribute(object, "__array_interface__"))
        return false;
    using Array = py::array_t<ArrayNumber<T>, py::array::c_style>;
    if (!Array::check_(object))
        return false;
    auto const array = py::reinterpret_borrow<Array>(object);
    if (array.ndim() != 1)
        return false;
    qzStlVector<T> taken(static_cast<std::size_t>(array.size()));
    if constexpr (std::is_same_v<T, bool>) { // a byte of an array may be any, a bool may not
        auto const* const first = reinterpret_cast<unsigned char const*>(array.data());
        std::transform(first, first + taken.size(), taken.begin(),
                       [](unsigned char byte) { return byte != 0; });
    } else if (!taken.empty()) {
        std::memcpy(taken.data(), array.data(), taken.size() * sizeof(T)); // the array need not be aligned
    }
    list = std::move(taken);
    return true;
}

template <class T>
bool Take(py::handle object, qzStlVector<T>& list) {
    if constexpr (std::is_arithmetic_v<T>) {
        if (TakeArray(object, list))
            return true;
    }
    std::optional<py::tuple> const items = TakeItems(object);
    if (!items)
        return false;
    qzStlVector<T> taken(items->size());
    for (std::size_t i = 0; i < taken.size(); ++i) {
        if (!Take(PyTuple_GET_ITEM(items->ptr(), static_cast<Py_ssize_t>(i)), taken[i]))
            return false;
    }
    list = std::move(taken);
    return true;
}

} // namespace qzPython
