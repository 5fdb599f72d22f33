#include "cards/registry.h"
#include "commands/commands.h"
#include "commands/read_deck.h"
#include "reader/latin1.h"
#include "references/card_ids.h"
#include "tables/list_table.h"
#include "tables/table_text.h"

#include <iostream>
#include <iterator>

namespace qzDeck {

namespace {

bool HasId(Card const& card, int id) {
    bool hasId = false;
    PlacedFields placed;
    VisitIds(card, placed, [&](std::size_t place, bool) {
        int number = 0;
        hasId = hasId || (card.Values()[place].GetValue(number) && number == id);
    });
    return hasId;
}

} // namespace

int PrintTable(Arguments const& arguments) {
    std::string const name = Upper(arguments.card);
    CardDefinition const* const definition = FindCard(name);
    if (definition == nullptr)
        return Refuse("no card " + name + " is defined", s_failure);
    auto const columns = ListColumns(*definition);
    if (columns.empty())
        return Refuse(name + " has no list that makes a table", s_failure);
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    if (session == nullptr)
        return s_failure;
    Model const& model = session->GetModel();
    bool isFound = false;
    TableRows rows;
    for (Card const& card : model.Cards()) {
        if (card.Name() != name || !HasId(card, arguments.id))
            continue;
        isFound = true;
        TableRows further = ListRows(card);
        rows.insert(rows.end(), std::make_move_iterator(further.begin()),
                    std::make_move_iterator(further.end()));
    }
    if (!isFound)
        return Refuse("there is no " + name + ' ' + std::to_string(arguments.id), s_failure);
    auto const write = arguments.isCsv ? WriteCsv : WriteAligned;
    write(std::cout, TextsOf(columns, rows));
    return EndOutput(s_success);
}

} // namespace qzDeck
