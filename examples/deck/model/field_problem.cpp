#include "model/field_problem.h"

#include "reader/latin1.h"
#include "reader/wide_integer.h"

#include <algorithm>

namespace qzDeck {

using qzDescriptor::Value;

namespace {

bool IsString(Value const& value) { return value.GetBasicType() == qzDescriptor::BT_STRING; }

/// Whether a number that is not zero was too small for a double.
bool IsVanished(std::string_view text, Value const& value) {
    double real = 0.0;
    if (!value.GetValue(real) || real != 0.0)
        return false;
    std::string_view const mantissa = text.substr(0, text.find_first_of("eEdD+-", 1));
    return mantissa.find_first_of("123456789") != std::string_view::npos;
}

bool IsNumberWithBlanks(std::string_view text) {
    std::string joined(text);
    std::erase_if(joined, IsBlank);
    if (joined.size() == text.size())
        return false;
    FieldKind const kind = Classify(joined);
    return kind == FieldKind::Integer || kind == FieldKind::Real || kind == FieldKind::RealWithoutPoint;
}

} // namespace

std::optional<Problem> FindProblem(LocatedField const& field, FieldKind kind, Value const& value) {
    constexpr std::size_t longestText = 8;
    std::string_view const text = field.text;
    switch (kind) {
    case FieldKind::Blank:
        return std::nullopt;
    case FieldKind::Integer:
        if (IsString(value))
            return Problem::IntegerOutOfRange;
        return IsWiderThanField(field) ? std::optional(Problem::WideInteger) : std::nullopt;
    case FieldKind::Real:
    case FieldKind::RealWithoutPoint:
        return IsString(value) || IsVanished(text, value) ? std::optional(Problem::RealOutOfRange)
                                                          : std::nullopt;
    case FieldKind::GappedExponent:
        return Problem::BlankInNumber;
    case FieldKind::Text:
        return text.size() > longestText ? std::optional(Problem::LongText) : std::nullopt;
    case FieldKind::Unreadable:
        return IsNumberWithBlanks(text) ? Problem::BlankInNumber : Problem::UnreadableField;
    }
    return std::nullopt;
}

} // namespace qzDeck
