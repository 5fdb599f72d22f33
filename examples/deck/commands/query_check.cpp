#include "commands/query_check.h"

#include "descriptor/DataInterface.h"
#include "descriptor/QueryCheck.h"
#include "descriptor/QueryParser.h"
#include "objects/DeckRegistry.h"
#include "reader/latin1.h"
#include "selexpr/IRequest.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace qzDeck {

namespace {

using namespace qzDescriptor;
using Names = std::vector<qzString>;

/// Takes down what a query asks of objects.
class NameRecorder : public DataInterface {
public:
    std::unique_ptr<ui::selexpr::IProperty> Bind(qzString const& property) override {
        names.push_back(property);
        return DataInterface::Bind(property);
    }
    Names names;
};

/// The attributes in a query that a type lacks; nothing when it cannot be read for the type.
std::optional<Names> FindLacking(DeckSession const& session, unsigned int metaclass,
                                 std::string const& query) {
    DeckRegistry& registry = session.GetRegistry();
    NameRecorder recorder;
    QueryParser parser(&recorder, const_cast<DeckSession*>(&session), registry.RegisterMetaclass(metaclass));
    std::unique_ptr<ui::selexpr::IRequest> const request(parser.Parse(query));
    if (request == nullptr)
        return std::nullopt;
    std::erase_if(recorder.names, [&](qzString const& name) {
        return Upper(name) == "ID" || registry.FindAttributeHandle(metaclass, Identifier(name), 0, true) != 0;
    });
    return recorder.names;
}

} // namespace

qzReturnStatus CheckQueryOverTypes(DeckSession const& session, std::vector<unsigned int> const& metaclasses,
                                   std::string const& query) {
    DeckRegistry const& registry = session.GetRegistry();
    std::optional<Names> lacking; // by all types so far
    qzReturnStatus unreadable;
    if (query.empty())
        return {};
    for (unsigned int const metaclass : metaclasses) {
        auto const here = FindLacking(session, metaclass, query);
        if (here && lacking)
            std::erase_if(*lacking, [&](qzString const& name) { return !std::ranges::count(*here, name); });
        else if (here)
            lacking = here;
        else if (unreadable.status == 0)
            unreadable = CheckQuery(session, registry.RegisterMetaclass(metaclass), query);
    }
    if (lacking && lacking->empty())
        return {};
    if (unreadable.status != 0)
        return unreadable;
    return {-1, "'" + lacking->front() + "' is no attribute of " + registry.GetName(metaclasses.front())};
}

} // namespace qzDeck
