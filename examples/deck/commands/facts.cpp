#include "commands/commands.h"
#include "commands/read_deck.h"
#include "facts/DeckFacts.h"
#include "facts/facts_json.h"

#include <iostream>

namespace qzDeck {

int PrintFacts(Arguments const& arguments) {
    auto const model = ReadDeck(arguments.deck);
    if (!model)
        return s_failure;
    std::cout << ToJson(CollectFacts(*model)) << '\n';
    return EndOutput(s_success);
}

} // namespace qzDeck
