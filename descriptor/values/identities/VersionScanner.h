#pragma once

#include <cstddef>
#include <string_view>

namespace qzDescriptor {

/// The parts of a version text, as they stand in it.
struct VersionParts {
    std::string_view numbers[3];
    std::string_view preRelease;
    std::string_view build;

    friend bool operator==(VersionParts const&, VersionParts const&) = default;
};

/// Splits a version text of any length, in one pass and without recursion; the parts are complete only when
/// it is one.
class VersionScanner {
public:
    explicit constexpr VersionScanner(std::string_view text) : m_rest(text) {}

    constexpr bool Scan(VersionParts& parts) {
        if (!P_TakeNumber(parts.numbers[0]) || !P_TakeSign('.') || !P_TakeNumber(parts.numbers[1]) ||
            !P_TakeSign('.') || !P_TakeNumber(parts.numbers[2]))
            return false;
        if (P_TakeSign('-') && !P_TakeLabels(parts.preRelease, IsPreReleaseLabel))
            return false;
        if (P_TakeSign('+') && !P_TakeLabels(parts.build, IsBuildLabel))
            return false;
        return m_rest.empty();
    }

private:
    static constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
    static constexpr bool IsLabelCharacter(char c) {
        return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-';
    }

    static constexpr bool IsNumber(std::string_view digits) {
        return !digits.empty() && (digits.size() == 1 || digits.front() != '0');
    }

    static constexpr bool IsBuildLabel(std::string_view label) { return !label.empty(); }
    static constexpr bool IsPreReleaseLabel(std::string_view label) {
        return CountLeading(label, IsDigit) == label.size() ? IsNumber(label) : true;
    }

    static constexpr std::size_t CountLeading(std::string_view text, bool (*is)(char)) {
        std::size_t count = 0;
        while (count < text.size() && is(text[count]))
            ++count;
        return count;
    }

    constexpr std::string_view P_Take(std::size_t count) {
        std::string_view const taken = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
        return taken;
    }

    constexpr bool P_TakeSign(char sign) {
        if (!m_rest.starts_with(sign))
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    constexpr bool P_TakeNumber(std::string_view& number) {
        number = P_Take(CountLeading(m_rest, IsDigit));
        return IsNumber(number);
    }

    // Labels joined by dots.
    constexpr bool P_TakeLabels(std::string_view& labels, bool (*isLabel)(std::string_view)) {
        std::string_view const start = m_rest;
        do {
            if (!isLabel(P_Take(CountLeading(m_rest, IsLabelCharacter))))
                return false;
        } while (P_TakeSign('.'));
        labels = start.substr(0, start.size() - m_rest.size());
        return true;
    }

    std::string_view m_rest;
};

} // namespace qzDescriptor
