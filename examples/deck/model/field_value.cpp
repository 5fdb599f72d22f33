#include "model/field_value.h"

#include <cmath>

namespace qzDeck {

using qzDescriptor::Value;

namespace {

template <class T>
Value Plain(T const& content) {
    Value value;
    value.SetValue(content); // unlike the constructor, it makes no room for an associated string
    return value;
}

Value Marked(FieldKind kind, std::string_view text) { return Value(qzString(text), qzString(NameOf(kind))); }

} // namespace

Value MakeValue(FieldKind kind, std::string_view text) {
    switch (kind) {
    case FieldKind::Blank:
        return Value();
    case FieldKind::Integer:
        if (auto const number = ReadInteger(text))
            return Plain(*number);
        return Marked(kind, text);
    case FieldKind::Real:
    case FieldKind::RealWithoutPoint: {
        double const number = ReadReal(text);
        if (!std::isfinite(number))
            return Marked(kind, text);
        return kind == FieldKind::Real ? Plain(number) : Value(number, qzString(NameOf(kind)));
    }
    case FieldKind::Text:
        return Plain(qzString(text));
    case FieldKind::GappedExponent:
    case FieldKind::Unreadable:
        return Marked(kind, text);
    }
    return Value();
}

FieldKind KindOf(Value const& value) {
    qzString mark;
    if (value.GetAssociatedString(mark)) {
        if (auto const kind = KindNamed(mark))
            return *kind;
    }
    switch (value.GetBasicType()) {
    case qzDescriptor::BT_NONE:
        return FieldKind::Blank;
    case qzDescriptor::BT_INT:
        return FieldKind::Integer;
    case qzDescriptor::BT_DOUBLE:
        return FieldKind::Real;
    default:
        return FieldKind::Text;
    }
}

double RealOf(Value const& value) {
    double real = 0.0;
    if (value.GetValue(real))
        return real;
    if (int integer = 0; value.GetValue(integer))
        return integer;
    qzString const* const text = value.GetValuePointerString();
    return text != nullptr ? ReadReal(*text) : 0.0;
}

WholeNumber WholeOf(Value const& value) {
    if (int number = 0; value.GetValue(number))
        return WholeNumber(number);
    qzString const* const text = value.GetValuePointerString();
    return text != nullptr ? WholeNumber(std::string_view(*text)) : WholeNumber();
}

} // namespace qzDeck
