#include "commands/commands.h"
#include "commands/read_deck.h"

namespace qzDeck {

int Write(Arguments const& arguments) {
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    return session != nullptr && WriteDeckFile(*session, arguments.output) ? s_success : s_failure;
}

} // namespace qzDeck
