#include "attribute_values.h"

#include "words.h"

#include "descriptor/Definition.h"
#include "descriptor/EntityList.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/Metaobject.h"
#include "descriptor/Tuples.h"
#include "qzdistribution/Handles.h"

#include <algorithm>
#include <concepts>

namespace qzTcl {

namespace {

// --- from values -----------------------------------------------------------------------------------------

Tcl_Obj* Give(bool value) { return Tcl_NewBooleanObj(value ? 1 : 0); }
Tcl_Obj* Give(std::integral auto value) { return Tcl_NewWideIntObj(value); }
Tcl_Obj* Give(std::floating_point auto value) { return Tcl_NewDoubleObj(static_cast<double>(value)); }
Tcl_Obj* Give(qzString const& value) { return GiveText(value); }
Tcl_Obj* Give(Entity const& value) { return GiveEntity(value); }
template <class T>
Tcl_Obj* Give(qzTCouple<T> const& value) {
    Tcl_Obj* const parts[] = {Give(value.first), Give(value.second)};
    return Tcl_NewListObj(2, parts);
}
template <class T>
Tcl_Obj* Give(qzTTriple<T> const& value) {
    Tcl_Obj* const parts[] = {Give(value.first), Give(value.second), Give(value.third)};
    return Tcl_NewListObj(3, parts);
}

/// Null when the element is of none of these types, or is not there.
template <class... T>
Tcl_Obj* Read(ValuePtr const& value, unsigned int i, unsigned int j) {
    Tcl_Obj* read = nullptr;
    auto const take = [&](auto element) {
        read = value.GetValue(element, i, j) ? Give(element) : nullptr;
        return read != nullptr;
    };
    static_cast<void>((take(T{}) || ...));
    return read;
}

/// Null when there is no such element.
Tcl_Obj* FindElement(ValuePtr const& value, unsigned int i, unsigned int j) {
    if (Tcl_Obj* const element =
            Read<double, int, qzString, Entity, bool, unsigned int, float, char, unsigned char, short,
                 unsigned short, long, qzTCouple<double>, qzTCouple<float>, qzTCouple<int>, qzTTriple<double>,
                 qzTTriple<float>, qzTTriple<int>>(value, i, j))
        return element;
    qzString text;
    return value.GetValueAsString(text, nullptr, i, j) ? GiveText(text) : nullptr;
}

Tcl_Obj* GiveRow(ValuePtr const& value, unsigned int row) {
    Tcl_Obj* const list = Tcl_NewListObj(0, nullptr);
    for (unsigned int j = 0; Tcl_Obj* const element = FindElement(value, row, j); ++j)
        Tcl_ListObjAppendElement(nullptr, list, element);
    return list;
}

Tcl_Obj* GiveWhole(ValuePtr const& value) {
    qzString text;
    value.GetValueAsString(text, nullptr, ValuePtr::s_wholeValue, ValuePtr::s_wholeValue);
    return GiveText(text);
}

// --- to values -------------------------------------------------------------------------------------------

EntityList ToEntityList(Words const& words) {
    EntityList list;
    unsigned int count = 0;
    for (Tcl_Obj* const word : words) {
        if (!list.SetEntity(ToEntity(word), count++))
            throw Failure("a list has entities of one type");
    }
    return list;
}

Value ToListValue(Definition const& definition, Words const& words) {
    if (definition.GetValueCompoundType() == CT_ENTITY)
        return Value(ValuePtr::Create(ToEntityList(words), DS_DEFAULT));
    auto const count = static_cast<unsigned int>(words.size());
    Value list(definition.GetValueBasicType(), definition.GetValueCompoundType(), std::max(count, 1U), 0,
               DS_DEFAULT, QZDT_DBHandle());
    for (unsigned int i = 0; i < count; ++i) {
        if (qzString const text = ToText(words[i]); !list.SetValueFromString(text, nullptr, i))
            throw Failure("'" + text + "' does not fit into the list");
    }
    return list;
}

/// Tcl has many words for true and false.
qzString ToTextFor(Definition const& definition, Tcl_Obj* word) {
    int truth = 0;
    bool const isTruth =
        definition.GetValueBasicType() == BT_BOOL && Tcl_GetBooleanFromObj(nullptr, word, &truth) == TCL_OK;
    return isTruth ? qzString(truth != 0 ? "true" : "false") : ToText(word);
}

} // namespace

Tcl_Obj* GiveValue(ValuePtr const& value) {
    if (EntityListBag bag; value.IsBagType() && value.GetValue(bag))
        return GiveEntities(bag);
    unsigned int const dimension = value.GetArrayDimension();
    if (value.IsBagType() || dimension > 2)
        return GiveWhole(value);
    if (dimension == 0) {
        Tcl_Obj* const element = FindElement(value, 0, 0);
        return element != nullptr ? element : GiveWhole(value);
    }
    Tcl_Obj* const list = Tcl_NewListObj(0, nullptr);
    for (unsigned int i = 0; i < value.GetArrayDimensionExtent(0); ++i)
        Tcl_ListObjAppendElement(nullptr, list, GiveElement(value, i));
    return list;
}

Tcl_Obj* GiveElement(ValuePtr const& value, unsigned int place) {
    bool const isThere = place < value.GetArrayDimensionExtent(0);
    Tcl_Obj* const element = !isThere                         ? nullptr
                             : value.GetArrayDimension() == 2 ? GiveRow(value, place)
                                                              : FindElement(value, place, 0);
    if (element == nullptr)
        throw Failure("there is no element " + std::to_string(place));
    return element;
}

void SetAttribute(Metaobject const& object, Identifier const& attribute, Tcl_Obj* word) {
    Definition const& definition = *object.GetDefinition(attribute);
    if (definition.GetArrayDimension() == 1)
        Check(object.SetValue(attribute, ToListValue(definition, ToList(word))));
    else if (definition.GetValueCompoundType() == CT_ENTITY && definition.GetArrayDimension() == 0)
        Check(object.SetValue(attribute, Value(ToEntity(word))));
    else
        Check(object.SetValueFromString(attribute, ToTextFor(definition, word), qzString()));
}

} // namespace qzTcl
