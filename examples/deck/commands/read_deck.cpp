#include "commands/read_deck.h"

#include "commands/commands.h"
#include "writer/save_deck.h"

#include <iostream>
#include <optional>

namespace qzDeck {

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
    std::optional<std::string> const problem = SaveDeck(session.GetModel(), path);
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
