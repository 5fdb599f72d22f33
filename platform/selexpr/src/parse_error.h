#pragma once

#include "selexpr/IParser.h"

namespace ui::selexpr {

/// The error about a part of a text, where something else was expected.
ParseError DescribeError(qzString const& text, std::size_t offset, std::size_t size,
                         qzString const& expected);

} // namespace ui::selexpr
