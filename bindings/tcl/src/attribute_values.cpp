#include "attribute_values.h"

#include "words.h"

#include "descriptor/Content.h"
#include "descriptor/Definition.h"
#include "descriptor/EntityList.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/Metaobject.h"
#include "descriptor/Tabular.h"
#include "descriptor/Tuples.h"
#include "qzdistribution/Handles.h"

#include <algorithm>
#include <concepts>
#include <iterator>
#include <optional>
#include <vector>

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
    NewList parts;
    parts.Append(Give(value.first));
    parts.Append(Give(value.second));
    return parts.Give();
}
template <class T>
Tcl_Obj* Give(qzTTriple<T> const& value) {
    NewList parts;
    parts.Append(Give(value.first));
    parts.Append(Give(value.second));
    parts.Append(Give(value.third));
    return parts.Give();
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
    NewList list;
    for (unsigned int j = 0; Tcl_Obj* const element = FindElement(value, row, j); ++j)
        list.Append(element);
    return list.Give();
}

/// A row has a cell for each column, an empty one where the column is shorter.
Tcl_Obj* GiveRow(Tabular const& table, unsigned int row) {
    NewList list;
    for (unsigned int column = 0; column < table.GetColumnCount(); ++column) {
        Value cell;
        bool const isThere = table.GetCellValue(row, column, cell) && cell.GetValuePtr() != nullptr;
        list.Append(isThere ? GiveValue(*cell.GetValuePtr()) : Tcl_NewObj());
    }
    return list.Give();
}

Tcl_Obj* GiveTable(Tabular const& table) {
    NewList list;
    for (unsigned int row = 0; row < table.GetRowCount(); ++row)
        list.Append(GiveRow(table, row));
    return list.Give();
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

EntityListBag ToBag(Words const& words) {
    std::vector<EntityList> lists;
    for (Tcl_Obj* const word : words) {
        Entity const entity = ToEntity(word);
        auto list = std::ranges::find(lists, entity.GetEntityFullType(), &EntityList::GetEntityFullType);
        if (list == lists.end())
            list = lists.insert(list, EntityList(entity.GetEntityFullType(), {}, {}));
        list->GetList().push_back(entity.GetId());
    }
    EntityListBag bag;
    for (EntityList const& list : lists)
        bag.SetList(list);
    return bag;
}

bool IsWhole(BasicType type) {
    constexpr BasicType whole[] = {BT_INT, BT_UINT, BT_SHORT, BT_USHORT, BT_LONG, BT_ULONG};
    return std::ranges::find(whole, type) != std::end(whole);
}

/// A whole number in decimals; none for other words. Tcl gives what needs 64 bits and a sign modulo 2^64.
std::optional<qzString> ToWholeText(Tcl_Obj* word) {
    Tcl_WideInt number = 0;
    if (Tcl_GetWideIntFromObj(nullptr, word, &number) != TCL_OK)
        return std::nullopt;
    bool const isSigned = ToText(word).find('-') != qzString::npos;
    if (isSigned && number > 0)
        return std::nullopt;
    return isSigned ? std::to_string(number) : std::to_string(static_cast<Tcl_WideUInt>(number));
}

/// A number as it is written; none for other words, such as several numbers.
std::optional<qzString> ToNumberText(Tcl_Obj* word) {
    double number = 0;
    return Tcl_GetDoubleFromObj(nullptr, word, &number) == TCL_OK ? std::optional(ToText(word))
                                                                  : std::nullopt;
}

/// The text that a couple or triple is read from.
qzString ToMembersText(bool areWhole, Tcl_Obj* word, std::size_t count) {
    Words const members = ToList(word);
    bool fits = members.size() == count;
    qzString text;
    for (Tcl_Obj* const member : members) {
        std::optional<qzString> const written = areWhole ? ToWholeText(member) : ToNumberText(member);
        fits = fits && written;
        text += (text.empty() ? "" : " ") + written.value_or("");
    }
    if (!fits)
        throw Failure("'" + ToText(word) + "' is no list of " + std::to_string(count) +
                      (areWhole ? " whole numbers" : " numbers"));
    return text;
}

/// The text that an element is read from. Tcl has many words for true and false; and where the library takes
/// as much of a text as it needs, nothing of a word is left out here.
qzString ToElementText(Definition const& definition, Tcl_Obj* word) {
    BasicType const type = definition.GetValueBasicType();
    CompoundType const compound = definition.GetValueCompoundType();
    int truth = 0;
    if (compound == CT_COUPLE || compound == CT_TRIPLE)
        return ToMembersText(IsWhole(type), word, compound == CT_COUPLE ? 2 : 3);
    if (compound == CT_SCALAR && IsWhole(type)) {
        std::optional<qzString> const text = ToWholeText(word);
        if (!text)
            throw Failure("'" + ToText(word) + "' is no whole number");
        return *text;
    }
    if (type == BT_BOOL && Tcl_GetBooleanFromObj(nullptr, word, &truth) == TCL_OK)
        return truth != 0 ? "true" : "false";
    return ToText(word);
}

void SetElement(Value& list, Definition const& definition, Tcl_Obj* word, unsigned int i, unsigned int j) {
    if (qzString const text = ToElementText(definition, word); !list.SetValueFromString(text, nullptr, i, j))
        throw Failure("'" + text + "' does not fit into the list");
}

Value ToListValue(Definition const& definition, Words const& words) {
    if (definition.GetValueCompoundType() == CT_ENTITY)
        return Value(ValuePtr::Create(ToEntityList(words), DS_DEFAULT));
    auto const count = static_cast<unsigned int>(words.size());
    Value list(definition.GetValueBasicType(), definition.GetValueCompoundType(), std::max(count, 1U), 0,
               DS_DEFAULT, QZDT_DBHandle());
    for (unsigned int i = 0; i < count; ++i)
        SetElement(list, definition, words[i], i, 0);
    return list;
}

/// The value that a word stands for; null where it is text to be read.
std::optional<Value> ToValue(Definition const& definition, Tcl_Obj* word) {
    bool const isEntity = definition.GetValueCompoundType() == CT_ENTITY;
    switch (definition.GetArrayDimension()) {
    case 0:
        return isEntity ? std::optional<Value>(ToEntity(word)) : std::nullopt;
    case 1:
        return ToListValue(definition, ToList(word));
    case 3:
        if (isEntity)
            return Content::MakeValue(ToBag(ToList(word)));
        break;
    default:
        break;
    }
    throw Failure("values of this kind are set in C++ and Python");
}

} // namespace

Tcl_Obj* GiveValue(ValuePtr const& value) {
    if (Tabular table; value.GetCompoundType() == CT_TABULAR && value.GetValue(table))
        return GiveTable(table);
    if (EntityListBag bag; value.IsBagType() && value.GetValue(bag))
        return GiveEntities(bag);
    unsigned int const dimension = value.GetArrayDimension();
    if (value.IsBagType() || dimension > 2)
        return GiveWhole(value);
    if (dimension == 0) {
        Tcl_Obj* const element = FindElement(value, 0, 0);
        return element != nullptr ? element : GiveWhole(value);
    }
    NewList list;
    for (unsigned int i = 0; i < value.GetArrayDimensionExtent(0); ++i)
        list.Append(GiveElement(value, i));
    return list.Give();
}

Tcl_Obj* GiveElement(ValuePtr const& value, unsigned int place) {
    if (Tabular table;
        value.GetCompoundType() == CT_TABULAR && value.GetValue(table) && place < table.GetRowCount())
        return GiveRow(table, place);
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
    if (std::optional<Value> const value = ToValue(definition, word))
        Check(object.SetValue(attribute, *value));
    else if (definition.GetValueCompoundType() == CT_TABULAR)
        throw Failure("tables are set in C++ and Python");
    else
        Check(object.SetValueFromString(attribute, ToElementText(definition, word), qzString()));
}

} // namespace qzTcl
