#include "Wildcard.h"
#include "ascii.h"

namespace ui::selexpr {

Wildcard::Wildcard(std::string_view pattern) {
    std::size_t const first = pattern.find_first_of("*?");
    std::size_t const behind = pattern.find_last_of("*?") + 1;
    m_head = FoldText(pattern.substr(0, first));
    m_tail = FoldText(pattern.substr(behind));
    std::string_view middle = pattern.substr(first, behind - first);
    if (middle.find('?') != std::string_view::npos) {
        m_middle = FoldText(middle);
        return;
    }
    while (middle.size() > 1) {
        middle.remove_prefix(1);
        std::size_t const star = middle.find('*');
        if (star > 0)
            m_parts.emplace_back(middle.substr(0, star));
        middle.remove_prefix(star);
    }
}

bool Wildcard::Matches(std::string_view text) const {
    if (text.size() < m_head.size() + m_tail.size() || !EqualsFolded(text.substr(0, m_head.size()), m_head) ||
        !EqualsFolded(text.substr(text.size() - m_tail.size()), m_tail))
        return false;
    text.remove_prefix(m_head.size());
    text.remove_suffix(m_tail.size());
    return m_middle.empty() ? P_HasParts(text) : P_MatchesMiddle(text);
}

/// Whether the parts follow each other. Each is taken where it comes first, which leaves most to the others.
bool Wildcard::P_HasParts(std::string_view text) const {
    for (SearchedText const& part : m_parts) {
        std::size_t const behind = part.FindEnd(text);
        if (behind == std::string_view::npos)
            return false;
        text.remove_prefix(behind);
    }
    return true;
}

// Where the pattern does not fit, the last star takes one character more; earlier stars never have to.
bool Wildcard::P_MatchesMiddle(std::string_view text) const {
    std::size_t place = 0;
    std::size_t part = 0;
    std::size_t afterStar = qzString::npos;
    std::size_t starEnd = 0;
    while (place < text.size()) {
        char const expected = part < m_middle.size() ? m_middle[part] : '\0';
        if (part < m_middle.size() && expected == '*') {
            afterStar = ++part;
            starEnd = place;
        } else if (part < m_middle.size() && expected == '?') {
            place = NextCharacter(text, place);
            ++part;
        } else if (part < m_middle.size() && expected == Fold(text[place])) {
            ++place;
            ++part;
        } else if (afterStar != qzString::npos) {
            place = starEnd = NextCharacter(text, starEnd);
            part = afterStar;
        } else {
            return false;
        }
        if (afterStar == m_middle.size()) // a star at the end takes all that is left
            return true;
    }
    return m_middle.find_first_not_of('*', part) == qzString::npos;
}

} // namespace ui::selexpr
