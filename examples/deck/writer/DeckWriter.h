#pragma once

#include "model/Model.h"

#include <filesystem>
#include <string>

namespace qzDeck {

/// The text of a model's deck, as one file with the given path: what stood before the bulk section, the cards
/// and comments in their order, what ended the main file. A field keeps the text that it was read from as
/// long as its value is what the text says.
std::string WriteDeck(Model const& model, std::filesystem::path const& path);

} // namespace qzDeck
