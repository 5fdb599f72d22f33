#include "commands/commands.h"
#include "commands/metaclass_tree.h"
#include "commands/read_deck.h"
#include "descriptor/Identifier.h"
#include "qzutl/qzStlVector.h"

#include <iostream>
#include <map>

namespace qzDeck {

namespace {

void PrintConfigurations(DeckRegistry const& registry, unsigned int metaclass, std::string const& indent) {
    unsigned int count = 0;
    registry.GetConfigHandlesCount(metaclass, count);
    for (unsigned int config = 1; config <= count; ++config) {
        qzString name, parent;
        qzStlVector<unsigned int> attributes;
        registry.GetConfigNameAndOfParent(metaclass, config, name, parent);
        registry.GetAttributeHandles(metaclass, attributes, config);
        std::cout << indent << "  configuration: " << name << ", " << attributes.size() << " attributes\n";
    }
}

void PrintOwners(DeckRegistry const& registry, unsigned int metaclass, std::string const& indent) {
    std::map<unsigned int, qzStlVector<unsigned int>> owners;
    registry.GetOwnership(metaclass, owners);
    for (auto const& [owner, attributes] : owners) {
        for (unsigned int const attribute : attributes)
            std::cout << indent << "  owned by: " << registry.GetName(owner) << ", "
                      << registry.GetIdentifier(owner, attribute, 0, false).GetNameKey() << '\n';
    }
}

} // namespace

int PrintTypes([[maybe_unused]] Arguments const& arguments) {
    DeckRegistry const registry;
    VisitMetaclasses(registry, [&](unsigned int metaclass, std::size_t depth) {
        std::string const indent(2 * depth, ' ');
        qzStlVector<unsigned int> attributes;
        registry.GetAttributeHandles(metaclass, attributes, 0);
        std::cout << indent << registry.GetName(metaclass);
        if (!attributes.empty())
            std::cout << ": " << attributes.size() << (attributes.size() == 1 ? " attribute" : " attributes");
        std::cout << '\n';
        PrintConfigurations(registry, metaclass, indent);
        PrintOwners(registry, metaclass, indent);
    });
    return EndOutput(s_success);
}

} // namespace qzDeck
