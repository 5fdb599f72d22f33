#include "commands/commands.h"
#include "commands/read_deck.h"
#include "tables/table_store.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace qzDeck {

int Store(Arguments const& arguments) {
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    if (session == nullptr)
        return s_failure;
    Model const& model = session->GetModel();
    auto const tables = MakeModelTables(model);
    std::string const set = std::filesystem::path(arguments.deck).filename().string();
    std::vector<bool> areEqual;
    QZDT_Result stored = StoreTables(arguments.output, set, tables);
    if (stored)
        stored = CompareWithStore(arguments.output, set, tables, areEqual);
    if (!stored) {
        std::cerr << "qzdeck: cannot store in " << arguments.output << ": " << stored.GetMessage() << '\n';
        return s_failure;
    }
    for (std::size_t i = 0; i < tables.size(); ++i)
        std::cout << tables[i].name << ": " << tables[i].data.GetRowCount() << " rows, "
                  << tables[i].data.GetColumnCount() << " columns, " << (areEqual[i] ? "equal" : "different")
                  << '\n';
    bool const isAllEqual = std::find(areEqual.begin(), areEqual.end(), false) == areEqual.end();
    return EndOutput(isAllEqual ? s_success : s_failure);
}

} // namespace qzDeck
