#include "commands/commands.h"
#include "commands/read_deck.h"
#include "facts/DeckFacts.h"
#include "facts/facts_json.h"

#include <iostream>

namespace qzDeck {

int PrintFacts(Arguments const& arguments) {
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    if (session == nullptr)
        return s_failure;
    Model const& model = session->GetModel();
    std::cout << ToJson(CollectFacts(model)) << '\n';
    return EndOutput(s_success);
}

} // namespace qzDeck
