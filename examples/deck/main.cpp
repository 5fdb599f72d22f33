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

void TakeDeckAndObject(CLI::App& command, Arguments& arguments) {
    TakeDeck(command, arguments);
    command.add_option("CARD", arguments.card, "The name of a card, or of what else a deck holds")
        ->required();
    command.add_option("ID", arguments.id, "Its number")->required();
}

void TakeDeckAndPerhapsObject(CLI::App& command, Arguments& arguments) {
    TakeDeck(command, arguments);
    auto* const card = command.add_option("CARD", arguments.card, "Of one object: its type");
    auto* const id = command.add_option("ID", arguments.id, "And its number");
    card->needs(id);
}

void TakeChanges(CLI::App& command, Arguments& arguments) {
    TakeDeckAndObject(command, arguments);
    command.add_option("CHANGE", arguments.words, "FIELD=VALUE, as often as needed")->required();
    command.add_option("-o,--output", arguments.output, "The file to write")->required();
}

void TakeQuery(CLI::App& command, Arguments& arguments) {
    TakeDeck(command, arguments);
    command.add_option("CARD", arguments.card, "A card, or a kind of them such as element")->required();
    command.add_option("QUERY", arguments.text, "A condition; empty for all")->required();
    command.add_option("--explain", arguments.explained, "Tell why this number is found or not");
    command.add_flag("--count", arguments.isCount, "Only how many there are");
    command.add_flag("--csv", arguments.isCsv, "With their attributes, as comma-separated values");
}

void TakeAction(CLI::App& command, Arguments& arguments) {
    TakeDeckAndObject(command, arguments);
    command.add_option("ACTION", arguments.text, "What is to be done")->required();
    command.add_option("ARGUMENT", arguments.words, "What the action is told");
    command.add_option("-o,--output", arguments.output, "The file to write the deck to");
}

void TakeScript(CLI::App& command, Arguments& arguments) {
    TakeDeck(command, arguments);
    command.add_option("FILE", arguments.text, "The script, .py or .tcl")->required();
    command.add_option("-o,--output", arguments.output, "The file to write the deck to");
}

void TakeType(CLI::App& command, Arguments& arguments) {
    command.add_option("CARD", arguments.card, "A card, or a kind of them such as element")->required();
}

void TakeNothing(CLI::App&, Arguments&) {}

struct Command {
    char const* name;
    char const* purpose;
    void (*takeArguments)(CLI::App&, Arguments&);
    int (*run)(Arguments const&);
};
constexpr Command s_commands[] = {
    {"show", "Tell what a deck holds, or all about one object of it", TakeDeckAndPerhapsObject, qzDeck::Show},
    {"summary", "Count what a deck holds, by kind", TakeDeck, qzDeck::Summarize},
    {"tree", "Tell what owns what", TakeDeckAndPerhapsObject, qzDeck::PrintTree},
    {"query", "Find the objects that satisfy a condition", TakeQuery, qzDeck::Query},
    {"set", "Change fields of an object", TakeChanges, qzDeck::Set},
    {"run", "Start an action on an object", TakeAction, qzDeck::RunAction},
    {"script", "Run a script on a deck", TakeScript, qzDeck::RunScript},
    {"types", "Print the kinds of objects there are", TakeNothing, qzDeck::PrintTypes},
    {"actions", "Print what can be done with a kind of object", TakeType, qzDeck::PrintActions},
    {"menu", "Print the menu of a kind of object", TakeType, qzDeck::PrintMenu},
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
