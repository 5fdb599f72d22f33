#include "commands/commands.h"
#include "commands/find_object.h"
#include "commands/object_page.h"
#include "commands/read_deck.h"
#include "facts/DeckFacts.h"
#include "facts/summary.h"

#include <iostream>

namespace qzDeck {

int Show(Arguments const& arguments) {
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    if (session == nullptr)
        return s_failure;
    if (arguments.card.empty()) {
        WriteSummary(std::cout, session->GetModel(), CollectFacts(session->GetModel()));
        return EndOutput(s_success);
    }
    DeckObject const* const object = FindObject(*session, arguments.card, arguments.id);
    if (object == nullptr)
        return s_failure;
    WriteObjectPage(std::cout, *object);
    return EndOutput(s_success);
}

} // namespace qzDeck
