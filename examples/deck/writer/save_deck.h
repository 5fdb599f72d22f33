#pragma once

#include "model/Model.h"

#include <optional>
#include <string>

namespace qzDeck {

/// Writes a model to a file, which appears as a whole or not at all. What is in the way otherwise, in words.
std::optional<std::string> SaveDeck(Model const& model, std::string const& path);

} // namespace qzDeck
