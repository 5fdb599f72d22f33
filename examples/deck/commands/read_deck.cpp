#include "commands/read_deck.h"

#include "commands/commands.h"
#include "writer/DeckWriter.h"
#include "writer/replace_file.h"

#include <algorithm>
#include <iostream>
#include <optional>

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

DeckSession* ReadDeck(DeckRegistry& registry, std::string const& path) {
    auto* const session = static_cast<DeckSession*>(registry.GetSession(path));
    if (session == nullptr) {
        Refuse("cannot read " + path, s_failure);
        return nullptr;
    }
    Model const& model = session->GetModel();
    for (Report const& report : model.GetReports())
        std::clog << Describe(report, model.GetSource()) << '\n'; // std::cerr would flush each one
    std::clog.flush();
    return session;
}

bool WriteDeckFile(DeckSession const& session, std::string const& path) {
    std::optional<std::string> problem = "the deck was read from it";
    if (!IsSource(path, session.GetModel()))
        problem = ReplaceFile(path, WriteDeck(session.GetModel(), path));
    if (problem)
        Refuse("cannot write " + path + ": " + *problem, s_failure);
    return !problem;
}

int Refuse(std::string const& reason, int status) {
    std::cerr << "qzdeck: " << reason << '\n';
    return status;
}

int EndOutput(int status) {
    std::cout.flush();
    return std::cout ? status : s_failure;
}

} // namespace qzDeck
