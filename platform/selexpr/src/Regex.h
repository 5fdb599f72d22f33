#pragma once

#include "qzutl/qzString.h"

#include <memory>
#include <string_view>

namespace ui::selexpr {

/// A regular expression whose time is linear in the text and whose memory is bounded, whatever the pattern.
class Regex {
public:
    /// Null with the reason for a pattern that cannot be used.
    static std::unique_ptr<Regex> Compile(qzString const& pattern, qzString& failure);

    virtual ~Regex() = default;
    /// Whether it fits somewhere in the text.
    virtual bool Finds(std::string_view text) const = 0;
};

} // namespace ui::selexpr
