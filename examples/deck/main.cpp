#include "facts/DeckFacts.h"
#include "facts/facts_json.h"
#include "facts/summary.h"
#include "model/Model.h"

#include <CLI/CLI.hpp>
#include <iostream>

namespace {

constexpr int s_success = 0;
constexpr int s_failure = 2; // wrong usage, a deck that cannot be opened, or output that cannot be written

void PrintReports(qzDeck::Model const& model) {
    for (qzDeck::Report const& report : model.GetReports())
        std::clog << qzDeck::Describe(report, model.GetSource()) << '\n'; // std::cerr would flush each one
    std::clog.flush();
}

template <class Write>
int Run(std::string const& path, Write write) {
    auto const model = qzDeck::Model::Read(path);
    if (!model) {
        std::cerr << "qzdeck: cannot read " << path << '\n';
        return s_failure;
    }
    PrintReports(*model);
    write(*model, qzDeck::CollectFacts(*model));
    std::cout.flush();
    return std::cout ? s_success : s_failure;
}

int ShowDeck(std::string const& path) {
    return Run(path, [](qzDeck::Model const& model, qzDeck::DeckFacts const& facts) {
        qzDeck::WriteSummary(std::cout, model, facts);
    });
}

int PrintFacts(std::string const& path) {
    return Run(path, [](qzDeck::Model const&, qzDeck::DeckFacts const& facts) {
        std::cout << qzDeck::ToJson(facts) << '\n';
    });
}

} // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    CLI::App app(
        "Reads structural models in the fixed-column card format. What is wrong in a deck is reported on "
        "standard error and read over.",
        "qzdeck");
    app.require_subcommand(1);
    std::string deck;
    CLI::App* const show = app.add_subcommand("show", "Tell what a deck holds");
    CLI::App* const facts = app.add_subcommand("facts", "Print counts and sums of a deck as JSON");
    for (CLI::App* command : {show, facts})
        command->add_option("DECK", deck, "The main file of the deck")->required();
    try {
        app.parse(argc, argv);
    } catch (CLI::ParseError const& error) {
        return app.exit(error) == 0 ? s_success : s_failure;
    }
    return show->parsed() ? ShowDeck(deck) : PrintFacts(deck);
}
