#include "commands/commands.h"
#include "commands/find_object.h"
#include "commands/metaclass_tree.h"
#include "commands/read_deck.h"
#include "reader/latin1.h"

#include <iomanip>
#include <iostream>

namespace qzDeck {

int Summarize(Arguments const& arguments) {
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    if (session == nullptr)
        return s_failure;
    VisitMetaclasses(registry, [&](unsigned int metaclass, std::size_t depth) {
        std::size_t count = 0;
        for (unsigned int const descendant : Descendants(registry, metaclass))
            count += session->GetCount(descendant);
        if (count == 0)
            return;
        constexpr std::size_t width = 30;
        std::string line(2 * depth, ' ');
        line += CapitalsToUtf8(registry.GetName(metaclass));
        line.resize(std::max(line.size() + 1, width), ' ');
        std::cout << line << std::setw(9) << count << '\n';
    });
    return EndOutput(s_success);
}

} // namespace qzDeck
