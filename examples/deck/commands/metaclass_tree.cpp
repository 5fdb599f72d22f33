#include "commands/metaclass_tree.h"

namespace qzDeck {

namespace {

using Visit = std::function<void(unsigned int, std::size_t)>;

void VisitBelow(DeckRegistry const& registry, unsigned int metaclass, std::size_t depth, Visit const& visit) {
    visit(metaclass, depth);
    qzStlVector<unsigned int> children;
    registry.FindChildrenHandles(metaclass, children, false, false);
    for (unsigned int const child : children)
        VisitBelow(registry, child, depth + 1, visit);
}

} // namespace

void VisitMetaclasses(DeckRegistry const& registry, Visit const& visit) {
    for (unsigned int metaclass = 1; metaclass <= registry.GetHandlesCount(); ++metaclass) {
        if (registry.GetParentName(metaclass).empty())
            VisitBelow(registry, metaclass, 0, visit);
    }
}

} // namespace qzDeck
