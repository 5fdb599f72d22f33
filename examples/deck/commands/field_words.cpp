#include "commands/field_words.h"

#include "qzutl/qzStlVector.h"
#include "reader/latin1.h"

#include <algorithm>
#include <charconv>

namespace qzDeck {

using qzDescriptor::Identifier;
using qzDescriptor::ValuePtr;

namespace {

/// A number from 1 on that begins at a place and goes up to one of the ends.
unsigned int ReadIndex(std::string const& text, std::size_t& place) {
    unsigned int index = 0;
    auto const read = std::from_chars(text.data() + place, text.data() + text.size(), index);
    place = static_cast<std::size_t>(read.ptr - text.data()) + 1;
    return index == 0 ? Identifier::s_unset : index - 1;
}

std::string ElementText(ValuePtr const& value, unsigned int i, unsigned int j) {
    qzString text;
    value.GetValueAsString(text, nullptr, i, j);
    return text;
}

} // namespace

Identifier FieldNamed(std::string const& label) {
    std::string const name = Upper(label.substr(0, label.find('(')));
    bool const isNumber =
        !name.empty() && std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; });
    if (int number = 0; isNumber) {
        std::from_chars(name.data(), name.data() + name.size(), number);
        return Identifier(number);
    }
    Identifier field{qzString(name)};
    std::size_t place = name.size() + 1;
    if (place < label.size())
        field.SetRow(ReadIndex(label, place));
    if (place < label.size())
        field.SetColumn(ReadIndex(label, place));
    return field;
}

std::string LabelOf(Identifier const& field) {
    return field.UsesNameKey() ? field.GetNameKey() : std::to_string(field.GetNumericKey());
}

std::string TextOf(ValuePtr const& value) {
    std::string text;
    unsigned int const rows = value.GetArrayDimension() > 0 ? value.GetArrayDimensionExtent(0) : 1;
    for (unsigned int row = 0; row < rows; ++row) {
        qzStlVector<qzStlVector<int>> integers;
        qzStlVector<qzStlVector<double>> reals;
        std::size_t columns = 1;
        if (value.GetArrayDimension() > 1)
            columns = value.GetValue(integers) ? integers[row].size()
                      : value.GetValue(reals)  ? reals[row].size()
                                               : 0;
        text += row == 0 ? "" : value.GetArrayDimension() > 1 ? "; " : " ";
        for (unsigned int column = 0; column < columns; ++column)
            text += (column == 0 ? "" : " ") + ElementText(value, row, column);
    }
    return text;
}

} // namespace qzDeck
