#include "commands/commands.h"
#include "commands/find_object.h"
#include "commands/read_deck.h"
#include "descriptor/EntityList.h"

#include <iostream>

namespace qzDeck {

namespace {

using qzDescriptor::Entity;
using qzDescriptor::EntityList;
using qzDescriptor::Identifier;

void PrintBelow(DeckObject const& object, std::size_t depth) {
    object.VisitOwned([depth](DeckObject& owned, Identifier const& attribute) {
        std::cout << std::string(2 * depth, ' ') << owned.GetName() << " (" << attribute.GetNameKey()
                  << ")\n";
        PrintBelow(owned, depth + 1);
    });
}

/// An object with its owners above it.
void PrintWithOwners(DeckObject const& object) {
    Identifier attribute;
    DeckObject const* const owner = object.FindOwner(attribute);
    std::size_t depth = 0;
    if (owner != nullptr) {
        std::cout << owner->GetName() << "\n  ";
        depth = 1;
    }
    std::cout << object.GetName() << (owner != nullptr ? " (" + attribute.GetNameKey() + ')' : "") << '\n';
    PrintBelow(object, depth + 1);
}

/// All that own something.
void PrintOwners(DeckSession const& session) {
    DeckRegistry const& registry = session.GetRegistry();
    for (unsigned int metaclass = 1; metaclass <= registry.GetHandlesCount(); ++metaclass) {
        qzStlVector<unsigned int> attributes;
        EntityList owners;
        if (!registry.GetOwnerAttributeHandles(metaclass, attributes, 0))
            continue;
        session.Collect(owners, registry.RegisterMetaclass(metaclass), "");
        for (unsigned int const id : owners.GetList())
            PrintWithOwners(*session.FindObject(Entity(owners.GetEntityFullType(), id)));
    }
}

} // namespace

int PrintTree(Arguments const& arguments) {
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    if (session == nullptr)
        return s_failure;
    if (arguments.card.empty()) {
        PrintOwners(*session);
        return EndOutput(s_success);
    }
    DeckObject const* const object = FindObject(*session, arguments.card, arguments.id);
    if (object == nullptr)
        return s_failure;
    PrintWithOwners(*object);
    return EndOutput(s_success);
}

} // namespace qzDeck
