#include "writer/save_deck.h"

#include "writer/DeckWriter.h"
#include "writer/replace_file.h"

#include <algorithm>
#include <filesystem>

namespace qzDeck {

namespace {

/// Whether a path leads to one of the files that a model was read from.
bool IsSource(std::string const& path, Model const& model) {
    std::error_code error;
    return std::ranges::any_of(model.GetSource().Files(), [&](SourceFile const& file) {
        return std::filesystem::equivalent(file.path, path, error);
    });
}

} // namespace

std::optional<std::string> SaveDeck(Model const& model, std::string const& path) {
    if (IsSource(path, model))
        return "the deck was read from it";
    return ReplaceFile(path, WriteDeck(model, path));
}

} // namespace qzDeck
