#include "descriptor/Version.h"

#include "values/identities/VersionScanner.h"

#include <charconv>
#include <locale>
#include <regex>
#include <stdexcept>

namespace qzDescriptor {

namespace {

// The standard library matches by recursion, some hundred bytes of stack for each character: longer texts go
// to the scanner, which decides in the same way.
constexpr std::size_t s_longestMatchedText = 256;

std::regex const& GetExpression() {
    // Not destroyed: objects in static storage may still read versions at exit.
    static auto const& expression = *[] {
        auto* const compiled = new std::regex;
        compiled->imbue(std::locale::classic());
        compiled->assign(R"(^(0|[1-9]\d*)\.(0|[1-9]\d*)\.(0|[1-9]\d*))"
                         R"((?:-((?:0|[1-9]\d*|\d*[a-zA-Z-][0-9a-zA-Z-]*))"
                         R"((?:\.(?:0|[1-9]\d*|\d*[a-zA-Z-][0-9a-zA-Z-]*))*))?)"
                         R"((?:\+([0-9a-zA-Z-]+(?:\.[0-9a-zA-Z-]+)*))?$)");
        return compiled;
    }();
    return expression;
}

bool MatchExpression(qzString const& text, VersionParts& parts) {
    std::smatch groups;
    if (!std::regex_match(text, groups, GetExpression()))
        return false;
    auto const group = [&](std::size_t i) {
        return std::string_view(text).substr(groups[i].matched ? static_cast<std::size_t>(groups.position(i))
                                                               : 0,
                                             static_cast<std::size_t>(groups.length(i)));
    };
    parts = {{group(1), group(2), group(3)}, group(4), group(5)};
    return true;
}

bool Split(qzString const& text, VersionParts& parts) {
    return text.size() <= s_longestMatchedText ? MatchExpression(text, parts)
                                               : VersionScanner(text).Scan(parts);
}

unsigned int ToNumber(std::string_view digits) {
    unsigned int number = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc())
        throw std::out_of_range("stoul argument out of range");
    return number;
}

} // namespace

Version::Version(qzString const& text) : m_patch(0) {
    VersionParts parts;
    if (!Split(text, parts))
        return;
    m_major = ToNumber(parts.numbers[0]);
    m_minor = ToNumber(parts.numbers[1]);
    m_patch = ToNumber(parts.numbers[2]);
    m_preRelease = parts.preRelease;
    m_build = parts.build;
}

qzString Version::GetString() const {
    qzString text = std::to_string(m_major) + '.' + std::to_string(m_minor) + '.' + std::to_string(m_patch);
    if (!m_preRelease.empty())
        text.append(1, '-').append(m_preRelease);
    if (!m_build.empty())
        text.append(1, '+').append(m_build);
    return text;
}

bool Version::IsValid(qzString const& text) {
    VersionParts parts;
    return Split(text, parts);
}

} // namespace qzDescriptor
