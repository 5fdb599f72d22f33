#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qzDeck {

/// Puts a text in the place of a file, as a whole or not at all: it is written beside it first. A link is
/// followed. The answer is what went wrong, if anything did.
std::optional<std::string> ReplaceFile(std::filesystem::path const& path, std::string_view text);

} // namespace qzDeck
