#include "operations/query_values.h"

#include "descriptor/DataTypeUtils.h"
#include "descriptor/ScalarStorage.h"
#include "descriptor/ValuePtr.h"
#include "qzutl/qzVariant.h"

#include <algorithm>
#include <string_view>

namespace qzDescriptor {

namespace {

using namespace ui::selexpr;

// How an element of each type is handed on by name.
void Put(qzVariant& out, bool value) { out.SetBoolean(value); }
void Put(qzVariant& out, int value) { out.SetInteger(value); }
void Put(qzVariant& out, unsigned int value) { out.SetLong64(static_cast<int>(value)); }
void Put(qzVariant& out, float value) { out.SetFloat(value); }
void Put(qzVariant& out, double value) { out.SetDouble(value); }
void Put(qzVariant& out, char value) { out.SetString(qzString(1, value)); }
void Put(qzVariant& out, unsigned char value) { out.SetString(qzString(1, static_cast<char>(value))); }
void Put(qzVariant& out, qzString const& value) { out.SetString(value); }

// Lists have no value, even where a definition leads to expect one element.
bool IsOneElement(ValuePtr const& value) { return value.GetArrayDimension() == 0; }

template <class T>
bool ReadVariant(ValuePtr const& value, qzVariant& out) {
    T element{};
    bool const isRead = value.GetValue(element, 0u, 0u);
    if (isRead)
        Put(out, element);
    return isRead;
}

template <class T>
bool ReadNumber(ValuePtr const& value, Scalar& out, [[maybe_unused]] qzString& scratch) {
    T number{};
    if (auto const* const scalar = ScalarStorage<T>::Of(&value))
        number = scalar->m_value;
    else if (!IsOneElement(value) || !value.GetValue(number, 0u, 0u))
        return false;
    PutNumber(out, number);
    return true;
}

template <class T>
bool ReadCharacter(ValuePtr const& value, Scalar& out, qzString& scratch) {
    T character{};
    if (!IsOneElement(value) || !value.GetValue(character, 0u, 0u))
        return false;
    scratch.assign(1, static_cast<char>(character));
    out.SetText(scratch);
    return true;
}

bool ReadText(ValuePtr const& value, Scalar& out, qzString& scratch) {
    if (auto const* const text = ScalarStorage<qzString>::Of(&value)) {
        out.SetText(text->m_value);
        return true;
    }
    bool const isRead = IsOneElement(value) && value.GetValue(scratch, 0u, 0u);
    if (isRead)
        out.SetText(scratch);
    return isRead;
}

struct Row {
    DATA_TYPE type;
    QueryType meaning;
};
constexpr Row s_rows[] = {
    {DT_BOOL, {VALUE_BOOLEAN, true, ReadNumber<bool>, ReadVariant<bool>}},
    {DT_CHAR, {VALUE_TEXT, true, ReadCharacter<char>, ReadVariant<char>}},
    {DT_DOUBLE, {VALUE_NUMBER, true, ReadNumber<double>, ReadVariant<double>}},
    {DT_FLOAT, {VALUE_NUMBER, true, ReadNumber<float>, ReadVariant<float>}},
    {DT_INT, {VALUE_INTEGER, true, ReadNumber<int>, ReadVariant<int>}},
    {DT_STRING, {VALUE_TEXT, true, ReadText, ReadVariant<qzString>}},
    {DT_UCHAR, {VALUE_TEXT, true, ReadCharacter<unsigned char>, ReadVariant<unsigned char>}},
    {DT_UINT, {VALUE_INTEGER, true, ReadNumber<unsigned int>, ReadVariant<unsigned int>}},
    {DT_UNKNOWN, {VALUE_ANY, false}},
};
constexpr QueryType s_withoutValue;

} // namespace

QueryType const& GetQueryType(Definition const* definition) {
    auto const row = std::ranges::find(s_rows, DataTypeUtils::GetValueDataType(definition), &Row::type);
    return row != std::end(s_rows) ? row->meaning : s_withoutValue;
}

bool IsIdProperty(qzString const& property) {
    return property.size() == 2 && (property[0] | 0x20) == 'i' && (property[1] | 0x20) == 'd';
}

} // namespace qzDescriptor
