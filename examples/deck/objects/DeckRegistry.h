#pragma once

#include "cards/CardDefinition.h"
#include "store/Registry.h"

#include <string>
#include <string_view>
#include <vector>

namespace qzDeck {

/// The metaclasses of a deck: one for every card that is declared, with its fields for attributes, under a
/// tree of abstract ones. Those have the fields that all their cards share. Sessions are named by the path
/// of the deck that they hold:
///
///     DeckRegistry registry;
///     auto* const session = static_cast<DeckSession*>(registry.GetSession("bridge.bdf"));   // null: unread
class DeckRegistry : public qzDescriptor::store::Registry {
public:
    DeckRegistry();
    ~DeckRegistry() override;

    /// Reads the deck at that path; null when it cannot be read.
    qzDescriptor::ISession* CreateSession(qzString const& path) override;

    /// The metaclass of the cards of a name, which is made when the name is new.
    unsigned int GetCard(std::string_view name);
    /// The parent's name; empty for a root and for what is no metaclass.
    std::string GetParentName(unsigned int metaclass) const;
    std::string GetName(unsigned int metaclass) const;

private:
    void P_InsertAbstract();
    void P_InsertSharedFields(unsigned int metaclass, std::vector<CardDefinition const*> const& cards);
    void P_InsertCards();
    void P_InsertForms();
    void P_InsertParts();
    void P_InsertSets();
};

} // namespace qzDeck
