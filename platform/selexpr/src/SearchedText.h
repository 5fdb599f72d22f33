#pragma once

#include "qzutl/qzString.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace ui::selexpr {

/// A text that is looked for within others, ignoring ASCII case. What stands where it might end says how far
/// it can be moved on at once.
class SearchedText {
public:
    explicit SearchedText(std::string_view text);

    /// The place behind its first occurrence; npos where it does not occur.
    std::size_t FindEnd(std::string_view text) const;

private:
    qzString m_folded;
    /// By the byte where it might end; 0 for the one that it ends with.
    std::array<std::uint8_t, 256> m_moves;
    std::uint8_t m_moveOn = 1; ///< from a place where the last byte fits and another does not
};

} // namespace ui::selexpr
