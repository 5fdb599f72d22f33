#include "commands/query_check.h"

#include "descriptor/ObjectQuery.h"
#include "objects/DeckRegistry.h"

#include <algorithm>
#include <optional>

namespace qzDeck {

using namespace qzDescriptor;

qzReturnStatus CheckQueryOverTypes(DeckSession const& session, std::vector<unsigned int> const& metaclasses,
                                   std::string const& query) {
    DeckRegistry const& registry = session.GetRegistry();
    std::optional<std::vector<qzString>> lacking; // by all types so far
    std::optional<qzString> unreadable;
    if (query.empty())
        return {};
    for (unsigned int const metaclass : metaclasses) {
        ObjectQuery const asked(session, registry.RegisterMetaclass(metaclass), query);
        auto const& here = asked.GetUnknown();
        if (!asked.IsValid())
            unreadable = unreadable.value_or(asked.GetProblem());
        else if (!lacking)
            lacking = here;
        else
            std::erase_if(*lacking, [&](qzString const& name) { return !std::ranges::count(here, name); });
    }
    if (lacking && lacking->empty())
        return {};
    if (unreadable)
        return {-1, *unreadable};
    return {-1, "'" + lacking->front() + "' is no attribute of " + registry.GetName(metaclasses.front())};
}

} // namespace qzDeck
