#pragma once

#include "qzutl/qzString.h"

#include <string_view>

namespace ui::selexpr {

/// A pattern in which * stands for any characters and ? for any one, ignoring ASCII case. A character is one
/// of UTF-8. No pattern takes longer than the product of both lengths.
class Wildcard {
public:
    static bool IsOne(std::string_view text) { return text.find_first_of("*?") != std::string_view::npos; }

    explicit Wildcard(std::string_view pattern);

    bool Matches(std::string_view text) const;

private:
    bool P_MatchesRest(std::string_view text) const;

    qzString m_head; ///< before the first wildcard
    qzString m_rest;
};

} // namespace ui::selexpr
