#pragma once

#include "SearchedText.h"

#include <string_view>
#include <vector>

namespace ui::selexpr {

/// A pattern in which * stands for any characters and ? for any one, ignoring ASCII case. A character is one
/// of UTF-8, or a byte where there is none. No pattern takes longer than the product of both lengths.
class Wildcard {
public:
    static bool IsOne(std::string_view text) { return text.find_first_of("*?") != std::string_view::npos; }

    /// Of a text that has a wildcard.
    explicit Wildcard(std::string_view pattern);

    bool Matches(std::string_view text) const;

private:
    bool P_HasParts(std::string_view text) const;
    bool P_MatchesMiddle(std::string_view text) const;

    // A pattern is its head, what stands from its first to its last wildcard, and its tail. With stars alone
    // the middle is the texts between them.
    qzString m_head;
    qzString m_tail;
    std::vector<SearchedText> m_parts;
    qzString m_middle; ///< empty with stars alone
};

} // namespace ui::selexpr
