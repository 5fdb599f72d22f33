#include "commands/find_object.h"

#include "commands/commands.h"
#include "commands/read_deck.h"
#include "descriptor/Entity.h"
#include "reader/latin1.h"

#include <algorithm>

namespace qzDeck {

unsigned int FindMetaclass(DeckRegistry const& registry, std::string const& name) {
    std::string lower = name; // the names of cards are in capitals, all others are not
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    unsigned int const card = registry.FindHandle(Upper(name));
    unsigned int const metaclass = card != 0 ? card : registry.FindHandle(lower);
    if (metaclass == 0)
        Refuse("nothing is called " + name, s_failure);
    return metaclass;
}

DeckObject* FindObject(DeckSession const& session, std::string const& type, int id) {
    unsigned int const metaclass = FindMetaclass(session.GetRegistry(), type);
    if (metaclass == 0)
        return nullptr;
    qzDescriptor::Entity const entity(session.GetRegistry().RegisterMetaclass(metaclass),
                                      static_cast<unsigned int>(id));
    DeckObject* const object = session.FindObject(entity);
    if (object == nullptr)
        Refuse("there is no " + session.GetRegistry().GetName(metaclass) + ' ' + std::to_string(id),
               s_failure);
    return object;
}

std::vector<unsigned int> Descendants(DeckRegistry const& registry, unsigned int metaclass) {
    qzStlVector<unsigned int> all;
    registry.FindChildrenHandles(metaclass, all, true, true);
    return {all.begin(), all.end()};
}

} // namespace qzDeck
