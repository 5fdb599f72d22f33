#include "values/text/ScanFormat.h"

#include <algorithm>

namespace qzDescriptor {

namespace {

bool IsOneOf(char c, std::string_view set) { return set.find(c) != std::string_view::npos; }

bool IsBlank(char c) { return IsOneOf(c, " \t\n\v\f\r"); }

int BaseOf(char letter) {
    switch (letter) {
    case 'i':
        return 0;
    case 'o':
        return 8;
    case 'x':
    case 'X':
    case 'p':
        return 16;
    default:
        return 10;
    }
}

} // namespace

ScanFormat::ScanFormat(char const* format) : m_valid(P_Parse(format)) {}

bool ScanFormat::P_Parse(char const* format) {
    for (char const* at = format; *at != '\0';) {
        Directive directive;
        directive.letter = *at++;
        if (IsBlank(directive.letter)) {
            directive.kind = Directive::Blanks;
        } else if (directive.letter == '%' && *at != '%') {
            directive.kind = Directive::Conversion;
            if (!P_ParseConversion(at, directive))
                return false;
            if (!directive.skipped)
                m_classes.push_back(P_ClassOf(directive.letter));
        } else if (directive.letter == '%') {
            ++at;
        }
        m_directives.push_back(directive);
    }
    return true;
}

bool ScanFormat::P_ParseConversion(char const*& at, Directive& directive) {
    if (*at == '*') {
        directive.skipped = true;
        ++at;
    }
    constexpr std::size_t s_enough = 1 << 30; // no text is longer
    bool const hasWidth = *at >= '0' && *at <= '9';
    for (; *at >= '0' && *at <= '9'; ++at)
        directive.width = std::min(directive.width * 10 + static_cast<std::size_t>(*at - '0'), s_enough);
    if (hasWidth && directive.width == 0)
        return false;
    while (*at != '\0' && IsOneOf(*at, "hlLqjzt"))
        ++at;
    if (*at == '\0' || !IsOneOf(*at, "diuoxXfFeEgGaAsc[p"))
        return false;
    directive.letter = *at++;
    return directive.letter != '[' || P_ParseSet(at, directive.accepted);
}

// `at` stands behind the opening bracket: "[^]a-z]" and the like, a closing bracket in first place being a
// member of the set.
bool ScanFormat::P_ParseSet(char const*& at, std::bitset<256>& accepted) {
    bool const inverted = *at == '^';
    if (inverted)
        ++at;
    auto const code = [](char c) { return static_cast<std::size_t>(static_cast<unsigned char>(c)); };
    for (bool first = true; first || *at != ']'; first = false) {
        if (*at == '\0')
            return false;
        std::size_t low = code(*at++);
        std::size_t high = low;
        if (at[0] == '-' && at[1] != ']' && at[1] != '\0') {
            high = code(at[1]);
            at += 2;
        }
        for (; low <= high; ++low)
            accepted.set(low);
    }
    ++at;
    if (inverted)
        accepted.flip();
    return true;
}

ScanFormat::Class ScanFormat::P_ClassOf(char letter) {
    if (IsOneOf(letter, "diuoxX"))
        return Class::Integer;
    if (IsOneOf(letter, "sc["))
        return Class::Text;
    return letter == 'p' ? Class::Pointer : Class::Real;
}

Scan ScanFormat::Read(std::string_view text, std::vector<Field>& fields) const {
    fields.clear();
    for (Directive const& directive : m_directives) {
        if (!fields.empty() && fields.size() == m_classes.size())
            break; // what follows the last field is not asked for
        if (directive.kind == Directive::Blanks) {
            SkipBlanks(text);
            continue;
        }
        if (directive.kind == Directive::Literal) {
            if (directive.letter == '%')
                SkipBlanks(text);
            if (text.empty() || text[0] != directive.letter)
                return Scan::NoMatch;
            text.remove_prefix(1);
            continue;
        }
        Field field;
        Scan const result = P_ReadField(directive, text, field);
        if (result == Scan::NoMatch || (result == Scan::OutOfRange && !directive.skipped))
            return result;
        if (!directive.skipped)
            fields.push_back(std::move(field));
    }
    return Scan::Matched;
}

Scan ScanFormat::P_ReadField(Directive const& directive, std::string_view& text, Field& field) {
    if (!directive.KeepsBlanks())
        SkipBlanks(text);
    std::size_t width = directive.width == 0 ? text.size() : std::min(directive.width, text.size());
    if (directive.letter == 'c')
        width = std::max<std::size_t>(directive.width, 1);
    if (text.empty() || width > text.size())
        return Scan::NoMatch;

    std::string_view rest = text.substr(0, width);
    Scan result = Scan::Matched;
    switch (P_ClassOf(directive.letter)) {
    case Class::Integer:
    case Class::Pointer: {
        ScannedInteger integer;
        result = TakeInteger(rest, integer, BaseOf(directive.letter));
        field = integer;
        break;
    }
    case Class::Real: {
        ScannedReal real;
        std::string_view again = rest;
        result = TakeReal(rest, real.value);
        real.fitsSingle = TakeReal(again, real.single) == Scan::Matched;
        field = real;
        break;
    }
    case Class::Text: {
        auto const belongs = [&](char c) {
            if (directive.letter == '[')
                return directive.accepted.test(static_cast<unsigned char>(c));
            return directive.letter == 'c' || !IsBlank(c);
        };
        auto const end = std::find_if_not(rest.begin(), rest.end(), belongs);
        if (end == rest.begin())
            return Scan::NoMatch;
        field = qzString(rest.begin(), end);
        rest.remove_prefix(static_cast<std::size_t>(end - rest.begin()));
        break;
    }
    }
    text.remove_prefix(width - rest.size());
    return result;
}

} // namespace qzDescriptor
