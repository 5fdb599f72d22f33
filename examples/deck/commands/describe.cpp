#include "cards/registry.h"
#include "commands/commands.h"
#include "commands/read_deck.h"
#include "describe/card_page.h"
#include "reader/latin1.h"

#include <iostream>

namespace qzDeck {

int DescribeCards(Arguments const& arguments) {
    PageStyle const style = arguments.isMarkdown ? PageStyle::Markdown : PageStyle::Text;
    if (!arguments.card.empty()) {
        CardDefinition const* const card = FindCard(Upper(arguments.card));
        if (card == nullptr) {
            std::cerr << "qzdeck: no card " << arguments.card << " is defined\n";
            return s_failure;
        }
        WriteCardPage(std::cout, *card, style);
        return EndOutput(s_success);
    }
    char const* separator = "";
    for (CardDefinition const& card : AllCards()) {
        std::cout << separator;
        WriteCardPage(std::cout, card, style);
        separator = "\n";
    }
    return EndOutput(s_success);
}

} // namespace qzDeck
