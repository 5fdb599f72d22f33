#include "Wildcard.h"
#include "ascii.h"

#include <algorithm>

namespace ui::selexpr {

Wildcard::Wildcard(std::string_view pattern) {
    std::size_t const head = std::min(pattern.find_first_of("*?"), pattern.size());
    std::ranges::transform(pattern.substr(0, head), std::back_inserter(m_head), Fold);
    for (char const c : pattern.substr(head))
        if (c != '*' || !m_rest.ends_with('*'))
            m_rest += Fold(c);
}

bool Wildcard::Matches(std::string_view text) const {
    if (text.size() < m_head.size())
        return false;
    for (std::size_t k = 0; k < m_head.size(); ++k)
        if (Fold(text[k]) != m_head[k])
            return false;
    return m_rest == "*" || P_MatchesRest(text.substr(m_head.size()));
}

// Where the pattern does not fit, the last star takes one character more; earlier stars never have to.
bool Wildcard::P_MatchesRest(std::string_view text) const {
    std::size_t place = 0;
    std::size_t part = 0;
    std::size_t afterStar = qzString::npos;
    std::size_t starEnd = 0;
    while (place < text.size()) {
        char const expected = part < m_rest.size() ? m_rest[part] : '\0';
        if (part < m_rest.size() && expected == '*') {
            afterStar = ++part;
            starEnd = place;
        } else if (part < m_rest.size() && expected == '?') {
            place = NextCharacter(text, place);
            ++part;
        } else if (part < m_rest.size() && expected == Fold(text[place])) {
            ++place;
            ++part;
        } else if (afterStar != qzString::npos) {
            place = starEnd = NextCharacter(text, starEnd);
            part = afterStar;
        } else {
            return false;
        }
        if (afterStar == m_rest.size()) // a star at the end takes all that is left
            return true;
    }
    return std::string_view(m_rest).substr(part) == "*" || part == m_rest.size();
}

} // namespace ui::selexpr
