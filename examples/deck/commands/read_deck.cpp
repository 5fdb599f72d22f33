#include "commands/read_deck.h"

#include "commands/commands.h"

#include <iostream>

namespace qzDeck {

std::optional<Model> ReadDeck(std::string const& path) {
    auto model = Model::Read(path);
    if (!model) {
        std::cerr << "qzdeck: cannot read " << path << '\n';
        return std::nullopt;
    }
    for (Report const& report : model->GetReports())
        std::clog << Describe(report, model->GetSource()) << '\n'; // std::cerr would flush each one
    std::clog.flush();
    return model;
}

int EndOutput(int status) {
    std::cout.flush();
    return std::cout ? status : s_failure;
}

} // namespace qzDeck
