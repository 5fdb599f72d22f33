#include "commands/commands.h"
#include "commands/read_deck.h"
#include "writer/DeckWriter.h"
#include "writer/replace_file.h"

#include <algorithm>
#include <iostream>

namespace qzDeck {

namespace {

/// Whether a path leads to one of the files that a model was read from.
bool IsSource(std::string const& path, Model const& model) {
    std::error_code error;
    auto const& files = model.GetSource().Files();
    return std::any_of(files.begin(), files.end(), [&](SourceFile const& file) {
        return std::filesystem::equivalent(file.path, path, error);
    });
}

} // namespace

int Write(Arguments const& arguments) {
    auto const model = ReadDeck(arguments.deck);
    if (!model)
        return s_failure;
    std::optional<std::string> problem = "the deck was read from it";
    if (!IsSource(arguments.output, *model))
        problem = ReplaceFile(arguments.output, WriteDeck(*model, arguments.output));
    if (!problem)
        return s_success;
    std::cerr << "qzdeck: cannot write " << arguments.output << ": " << *problem << '\n';
    return s_failure;
}

} // namespace qzDeck
