#include "reader/field_kind.h"

#include "reader/latin1.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string>

namespace qzDeck {

namespace {

constexpr std::array<std::string_view, 7> s_kindNames{
    "blank", "int", "real", "real_nodot", "bad_gap_exponent", "str", "bad"};
constexpr std::string_view s_exponentLetters = "eEdD";

/// Takes a text apart from the left.
class Scanner {
public:
    explicit Scanner(std::string_view text) : m_rest(text) {}

    bool AtEnd() const { return m_rest.empty(); }
    bool AtSign() const { return !AtEnd() && IsSign(m_rest.front()); }
    bool TakeAnyOf(std::string_view characters) {
        if (AtEnd() || characters.find(m_rest.front()) == std::string_view::npos)
            return false;
        m_rest.remove_prefix(1);
        return true;
    }
    bool TakeDigits() { return TakeWhile(IsDigit); }
    bool TakeSpaces() {
        return TakeWhile([](char c) { return c == ' '; });
    }

private:
    template <class Predicate>
    bool TakeWhile(Predicate predicate) {
        auto const end = std::find_if_not(m_rest.begin(), m_rest.end(), predicate);
        auto const count = static_cast<std::size_t>(end - m_rest.begin());
        m_rest.remove_prefix(count);
        return count > 0;
    }

    std::string_view m_rest;
};

bool IsNameCharacter(char c) {
    return IsLetter(c) || IsDigit(c) || c == '_' || c == '.' || c == '/' || c == '-';
}

/// The kind of a number whose exponent begins here.
FieldKind ClassifyExponent(Scanner& scanner, bool hasPoint) {
    bool const hasLetter = scanner.TakeAnyOf(s_exponentLetters);
    if (!hasLetter && !(hasPoint && scanner.AtSign()))
        return FieldKind::Unreadable;
    bool const hasGap = hasLetter && hasPoint && scanner.TakeSpaces();
    if (!hasGap)
        scanner.TakeAnyOf("+-");
    if (!scanner.TakeDigits() || !scanner.AtEnd())
        return FieldKind::Unreadable;
    if (hasGap)
        return FieldKind::GappedExponent;
    return hasPoint ? FieldKind::Real : FieldKind::RealWithoutPoint;
}

struct Decimal {
    std::string_view mantissa; // without a plus
    std::string_view exponent; // without a plus; empty when there is none
};

std::string_view WithoutPlus(std::string_view text) {
    return !text.empty() && text.front() == '+' ? text.substr(1) : text;
}

Decimal Split(std::string_view text) {
    std::size_t const end = text.find_first_of("eEdD+-", 1);
    if (end == std::string_view::npos)
        return {WithoutPlus(text), {}};
    std::string_view const exponent = text.substr(IsLetter(text[end]) ? end + 1 : end);
    return {WithoutPlus(text.substr(0, end)), WithoutPlus(Trim(exponent))};
}

/// The power of ten of the first digit that is not a zero, for mantissas that have one.
long long LeadingPower(std::string_view mantissa) {
    auto const power = [](std::size_t n) { return static_cast<long long>(n); };
    std::size_t const digit = mantissa.find_first_not_of("-0.");
    std::size_t const point = std::min(mantissa.find('.'), mantissa.size());
    return digit < point ? power(point - digit - 1) : -power(digit - point);
}

/// What is left of a number that no double holds: an infinity, or a zero when it is too small.
double OutOfRange(Decimal const& number) {
    long long exponent = 0;
    auto const [end, error] =
        std::from_chars(number.exponent.data(), number.exponent.data() + number.exponent.size(), exponent);
    bool const isNegative = !number.exponent.empty() && number.exponent.front() == '-';
    bool const isHuge =
        error == std::errc::result_out_of_range ? !isNegative : exponent > -LeadingPower(number.mantissa);
    double const magnitude = isHuge ? std::numeric_limits<double>::infinity() : 0.0;
    return number.mantissa.front() == '-' ? -magnitude : magnitude;
}

} // namespace

std::string_view NameOf(FieldKind kind) { return s_kindNames[static_cast<std::size_t>(kind)]; }

std::optional<FieldKind> KindNamed(std::string_view name) {
    auto const found = std::find(s_kindNames.begin(), s_kindNames.end(), name);
    if (found == s_kindNames.end())
        return std::nullopt;
    return static_cast<FieldKind>(found - s_kindNames.begin());
}

FieldKind Classify(std::string_view text) {
    if (text.empty())
        return FieldKind::Blank;
    if (IsLetter(text.front()))
        return std::all_of(text.begin(), text.end(), IsNameCharacter) ? FieldKind::Text
                                                                      : FieldKind::Unreadable;
    Scanner scanner(text);
    scanner.TakeAnyOf("+-");
    bool const hasWholePart = scanner.TakeDigits();
    bool const hasPoint = scanner.TakeAnyOf(".");
    bool const hasFraction = hasPoint && scanner.TakeDigits();
    if (!hasWholePart && !hasFraction)
        return FieldKind::Unreadable;
    if (scanner.AtEnd())
        return hasPoint ? FieldKind::Real : FieldKind::Integer;
    return ClassifyExponent(scanner, hasPoint);
}

double ReadReal(std::string_view text) {
    Decimal const number = Split(text);
    std::string joined; // the form that the standard library reads
    std::string_view form = number.mantissa;
    if (!number.exponent.empty()) {
        joined.append(number.mantissa).append(1, 'e').append(number.exponent);
        form = joined;
    }
    double value = 0.0;
    auto const [end, error] = std::from_chars(form.data(), form.data() + form.size(), value);
    return error == std::errc::result_out_of_range ? OutOfRange(number) : value;
}

std::optional<int> ReadInteger(std::string_view text) {
    static_assert(sizeof(int) == 4);
    std::string_view const digits = WithoutPlus(text);
    int value = 0;
    auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc())
        return std::nullopt;
    return value;
}

} // namespace qzDeck
