#include "commands/commands.h"
#include "commands/read_deck.h"
#include "facts/DeckFacts.h"
#include "facts/summary.h"

#include <iostream>

namespace qzDeck {

int Show(Arguments const& arguments) {
    auto const model = ReadDeck(arguments.deck);
    if (!model)
        return s_failure;
    WriteSummary(std::cout, *model, CollectFacts(*model));
    return EndOutput(s_success);
}

} // namespace qzDeck
