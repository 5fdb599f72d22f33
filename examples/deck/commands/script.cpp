#include "commands/commands.h"
#include "commands/read_deck.h"
#include "descriptor/ScriptSession.h"
#include "qzinterp/qzInterp.h"

#include <fstream>
#include <iostream>
#include <iterator>

namespace qzDeck {

namespace {

/// The language of a file by the end of its name; empty for others.
std::string LanguageOf(std::string const& path) {
    return path.ends_with(".py") ? "python" : path.ends_with(".tcl") ? "tcl" : "";
}

} // namespace

int RunScript(Arguments const& arguments) {
    std::ifstream file(arguments.text, std::ios::binary);
    std::string const script{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad())
        return Refuse("cannot read " + arguments.text, s_failure);
    std::string const language = LanguageOf(arguments.text);
    if (language.empty())
        return Refuse("a script is a file .py or .tcl", s_failure);
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    if (session == nullptr)
        return s_failure;
    qzInterp* const interpreter = qzInterp::Get(language);
    if (interpreter == nullptr)
        return Refuse("there is no interpreter of " + language, s_findings);
    qzDescriptor::SetScriptRegistry(&registry);
    qzString output;
    bool const isDone = interpreter->Execute(script, output);
    (isDone ? std::cout : std::cerr) << output;
    if (!isDone)
        return s_findings;
    if (!arguments.output.empty() && !WriteDeckFile(*session, arguments.output))
        return s_failure;
    return EndOutput(s_success);
}

} // namespace qzDeck
