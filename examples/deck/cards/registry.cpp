#include "cards/registry.h"

#include "cards/declaration.h"

#include <unordered_map>

namespace qzDeck {

namespace {

std::deque<CardDefinition> DeclareAll() {
    CardDeclarations cards;
    DeclareGeometry(cards);
    DeclareElements(cards);
    DeclareProperties(cards);
    DeclareMaterials(cards);
    DeclareLoads(cards);
    DeclareConstraints(cards);
    DeclareControl(cards);
    return cards.Take();
}

std::unordered_map<std::string_view, CardDefinition const*> IndexByName() {
    std::unordered_map<std::string_view, CardDefinition const*> index;
    for (CardDefinition const& card : AllCards())
        index.emplace(card.Name(), &card);
    return index;
}

} // namespace

CardDefinition const* FindCard(std::string_view name) {
    static auto const s_byName = IndexByName();
    auto const found = s_byName.find(name);
    return found == s_byName.end() ? nullptr : found->second;
}

std::deque<CardDefinition> const& AllCards() {
    static std::deque<CardDefinition> const s_cards = DeclareAll();
    return s_cards;
}

} // namespace qzDeck
