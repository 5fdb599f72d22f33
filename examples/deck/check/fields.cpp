#include "check/Finding.h"
#include "model/field_problem.h"
#include "model/field_value.h"
#include "reader/latin1.h"

#include <optional>

namespace qzDeck {

using qzDescriptor::Allowables;
using qzDescriptor::BasicType;
using qzDescriptor::Value;

namespace {

/// Digits 1 to 6, each at most once, or 0.
bool AreComponents(int digits) {
    if (digits == 0)
        return true;
    unsigned seen = 0;
    for (; digits > 0; digits /= 10) {
        unsigned const bit = 1U << (digits % 10);
        constexpr unsigned components = 0b1111110;
        if ((bit & components) == 0 || (seen & bit) != 0)
            return false;
        seen |= bit;
    }
    return digits == 0;
}

std::string_view NounFor(BasicType type) {
    switch (type) {
    case qzDescriptor::BT_INT:
        return "an integer";
    case qzDescriptor::BT_DOUBLE:
        return "a real number";
    default:
        return "a text";
    }
}

std::string WrongType(BasicType found, BasicType expected) {
    return std::string(NounFor(found)).append(" where ").append(NounFor(expected)).append(" belongs");
}

template <class T>
std::optional<std::string> Test(Allowables const& allowables, T const& value) {
    constexpr int refused = 1;
    if (allowables.Test(value) != refused)
        return std::nullopt;
    return allowables.GetFailureMessage();
}

std::optional<std::string> CheckInteger(Field const& field, int integer) {
    Allowables const& allowables = field.definition.GetAllowables();
    switch (field.definition.GetValueBasicType()) {
    case qzDescriptor::BT_INT:
        if (HasFlag(field, FIELD_IS_COMPONENTS) && !AreComponents(integer))
            return "components are digits 1 to 6, each at most once, or 0";
        return Test(allowables, integer);
    case qzDescriptor::BT_DOUBLE:
        if (integer == 0) // as many write 0.0
            return Test(allowables, 0.0);
        return WrongType(qzDescriptor::BT_INT, qzDescriptor::BT_DOUBLE);
    case qzDescriptor::BT_STRING:
        return WrongType(qzDescriptor::BT_INT, qzDescriptor::BT_STRING);
    default:
        return std::nullopt;
    }
}

std::optional<std::string> CheckReal(Field const& field, double real) {
    BasicType const type = field.definition.GetValueBasicType();
    if (type == qzDescriptor::BT_DOUBLE)
        return Test(field.definition.GetAllowables(), real);
    return type == qzDescriptor::BT_NONE ? std::nullopt
                                         : std::optional(WrongType(qzDescriptor::BT_DOUBLE, type));
}

/// Words are allowed in any case.
std::optional<std::string> CheckText(Field const& field, qzString const& text) {
    BasicType const type = field.definition.GetValueBasicType();
    if (type == qzDescriptor::BT_NONE)
        return std::nullopt;
    if (type != qzDescriptor::BT_STRING)
        return WrongType(qzDescriptor::BT_STRING, type);
    auto const message = Test(field.definition.GetAllowables(), text);
    return message && Test(field.definition.GetAllowables(), qzString(Upper(text))) ? message : std::nullopt;
}

bool IsBlank(Value const& value) { return value.GetBasicType() == qzDescriptor::BT_NONE; }

} // namespace

/// One that no type holds is a string under a mark.
std::optional<std::string> FindFault(Field const* field, Value const& value) {
    if (int integer = 0; value.GetValue(integer))
        return field == nullptr ? std::nullopt : CheckInteger(*field, integer);
    if (double real = 0.0; value.GetValue(real))
        return field == nullptr ? std::nullopt : CheckReal(*field, real);
    qzString const* const text = value.GetValuePointerString();
    if (text == nullptr)
        return std::nullopt;
    FieldKind const kind = KindOf(value);
    if (kind == FieldKind::Text)
        return field == nullptr ? std::nullopt : CheckText(*field, *text);
    auto const problem = FindProblem({*text, nullptr, 0, 0}, kind, value);
    return problem ? std::optional<std::string>(Sentence(*problem)) : std::nullopt;
}

Findings CheckFields(Model const& model) {
    Findings findings;
    PlacedFields placed;
    for (Card const& card : model.Cards()) {
        card.Place(placed);
        auto const& values = card.Values();
        for (std::size_t place = 0; place < placed.size(); ++place) {
            bool const isBlank = place >= values.size() || IsBlank(values[place]);
            if (isBlank && !placed[place].isRequired)
                continue;
            auto message = isBlank ? std::optional<std::string>("a required field is blank")
                                   : FindFault(placed[place].field, values[place]);
            if (message)
                findings.push_back(
                    {Finding::Violation, &card, place, placed[place].Label(place), std::move(*message)});
        }
    }
    return findings;
}

} // namespace qzDeck
