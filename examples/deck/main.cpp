#include "commands/commands.h"

#include <CLI/CLI.hpp>
#include <iostream>

namespace {

using qzDeck::Arguments;

void TakeDeck(CLI::App& command, Arguments& arguments) {
    command.add_option("DECK", arguments.deck, "The main file of the deck")->required();
}

void TakeDeckAndOutput(CLI::App& command, Arguments& arguments) {
    TakeDeck(command, arguments);
    command.add_option("-o,--output", arguments.output, "The file to write")->required();
}

void TakeCard(CLI::App& command, Arguments& arguments) {
    command.add_option("CARD", arguments.card, "The name of a card; all of them without it");
    command.add_flag("--markdown", arguments.isMarkdown, "As Markdown instead of text");
}

void TakeDeckAndStore(CLI::App& command, Arguments& arguments) {
    TakeDeck(command, arguments);
    command.add_option("FILE", arguments.output, "The database file, made when there is none")->required();
}

void TakeDeckAndCard(CLI::App& command, Arguments& arguments) {
    TakeDeck(command, arguments);
    command.add_option("CARD", arguments.card, "The name of a card")->required();
    command.add_option("ID", arguments.id, "Its number")->required();
    command.add_flag("--csv", arguments.isCsv, "As comma-separated values instead of text");
}

struct Command {
    char const* name;
    char const* purpose;
    void (*takeArguments)(CLI::App&, Arguments&);
    int (*run)(Arguments const&);
};
constexpr Command s_commands[] = {
    {"show", "Tell what a deck holds", TakeDeck, qzDeck::Show},
    {"facts", "Print counts and sums of a deck as JSON", TakeDeck, qzDeck::PrintFacts},
    {"check", "Find what is wrong with a deck", TakeDeck, qzDeck::Check},
    {"describe", "Tell what the fields of a card are", TakeCard, qzDeck::DescribeCards},
    {"table", "Print the list that a card holds", TakeDeckAndCard, qzDeck::PrintTable},
    {"store", "Keep the points and elements of a deck in a database", TakeDeckAndStore, qzDeck::Store},
    {"write", "Write a deck anew, as one file", TakeDeckAndOutput, qzDeck::Write},
};

} // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    CLI::App app(
        "Reads structural models in the fixed-column card format. What is wrong in a deck is reported on "
        "standard error and read over.",
        "qzdeck");
    app.require_subcommand(1);
    Arguments arguments;
    for (Command const& command : s_commands)
        command.takeArguments(*app.add_subcommand(command.name, command.purpose), arguments);
    try {
        app.parse(argc, argv);
    } catch (CLI::ParseError const& error) {
        return app.exit(error) == 0 ? qzDeck::s_success : qzDeck::s_failure;
    }
    for (Command const& command : s_commands) {
        if (app.got_subcommand(command.name))
            return command.run(arguments);
    }
    return qzDeck::s_failure;
}
