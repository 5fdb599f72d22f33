#include "objects/list_value.h"

#include "cards/tails.h"
#include "model/field_value.h"
#include "qzutl/qzStlVector.h"

#include <algorithm>
#include <type_traits>

namespace qzDeck {

using namespace qzDescriptor;

namespace {

template <class T>
void ReadElement(Value const& value, T& element) {
    if constexpr (std::is_same_v<T, double>) {
        if (KindOf(value) == FieldKind::Integer)
            element = RealOf(value);
    }
    value.GetValue(element);
}

template <class T>
T BlankElement(Field const& field) {
    T element{};
    DefaultOf(field).GetValue(element);
    return element;
}

/// Writes into a list that grows as far as needed.
template <class T>
T& At(qzStlVector<T>& list, std::size_t index, T const& blank) {
    if (list.size() <= index)
        list.resize(index + 1, blank);
    return list[index];
}

/// Groups are as many as there are weights; in other lists all fields have as many rows.
bool CountsRows(Card const& card, Field const& field, PlacedField const& placed) {
    return placed.row != PlacedField::s_single &&
           (placed.field == &field || card.Kind().definition->GetTail() != &WeightedGroups());
}

template <class T>
qzStlVector<T> MakeList(Card const& card, Field const& field) {
    qzStlVector<T> list;
    T const blank = BlankElement<T>(field);
    PlacedFields placed;
    card.Place(placed);
    for (std::size_t place = 0; place < card.Values().size(); ++place) {
        if (!CountsRows(card, field, placed[place]))
            continue;
        T& element = At(list, placed[place].row, blank);
        if (placed[place].field == &field)
            ReadElement(card.Values()[place], element);
    }
    return list;
}

template <class T>
qzStlVector<qzStlVector<T>> MakeRows(Card const& card, Field const& field) {
    qzStlVector<qzStlVector<T>> rows;
    T const blank = BlankElement<T>(field);
    PlacedFields placed;
    card.Place(placed);
    for (std::size_t place = 0; place < card.Values().size(); ++place) {
        if (!CountsRows(card, field, placed[place]))
            continue;
        qzStlVector<T>& row = At(rows, placed[place].row, {});
        if (placed[place].field == &field)
            ReadElement(card.Values()[place], At(row, placed[place].column, blank));
    }
    return rows;
}

template <class T>
Value Hold(T list) {
    return Value(ValuePtr::Create(std::move(list), DS_DEFAULT));
}

} // namespace

Value MakeListValue(Card const& card, Field const& field) {
    bool const hasRows = field.definition.GetArrayDimension() > 1;
    switch (field.definition.GetValueBasicType()) {
    case BT_INT:
        return hasRows ? Hold(MakeRows<int>(card, field)) : Hold(MakeList<int>(card, field));
    case BT_DOUBLE:
        return hasRows ? Hold(MakeRows<double>(card, field)) : Hold(MakeList<double>(card, field));
    default:
        return Hold(MakeList<qzString>(card, field));
    }
}

Value MakeRowListValue(Card const& card, Field const& field, unsigned int row) {
    auto const rowOf = [row](auto const& rows) { return row < rows.size() ? Hold(rows[row]) : Value(); };
    return field.definition.GetValueBasicType() == BT_INT ? rowOf(MakeRows<int>(card, field))
                                                          : rowOf(MakeRows<double>(card, field));
}

} // namespace qzDeck
