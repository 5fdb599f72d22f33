#include "commands/commands.h"
#include "commands/field_words.h"
#include "commands/find_object.h"
#include "commands/query_check.h"
#include "commands/read_deck.h"
#include "descriptor/EntityList.h"
#include "descriptor/QueryCheck.h"
#include "tables/table_text.h"

#include <algorithm>
#include <iostream>

namespace qzDeck {

namespace {

using namespace qzDescriptor;

/// What is found, type by type.
std::vector<EntityList> CollectAll(DeckSession const& session, std::vector<unsigned int> const& metaclasses,
                                   std::string const& query) {
    std::vector<EntityList> found;
    for (unsigned int const metaclass : metaclasses) {
        EntityList list;
        if (session.GetCount(metaclass) != 0 &&
            session.Collect(list, session.GetRegistry().RegisterMetaclass(metaclass), query) != 0)
            found.push_back(std::move(list));
    }
    return found;
}

std::vector<std::string> CellsOf(DeckObject const& object, qzStlVector<Identifier> const& attributes) {
    std::vector<std::string> cells = {object.GetEntityFullType().GetTypeNamed(),
                                      std::to_string(object.GetId())};
    for (Identifier const& attribute : attributes) {
        ValuePtr const* value = nullptr;
        cells.push_back(object.GetValue(attribute, value) ? TextOf(*value) : std::string());
    }
    return cells;
}

/// With the attributes that all of them have.
void PrintCsv(DeckSession const& session, unsigned int metaclass, std::vector<EntityList> const& found) {
    qzStlVector<unsigned int> handles;
    qzStlVector<Identifier> attributes;
    TextRows rows = {{"type", "id"}};
    session.GetRegistry().GetAttributeHandles(metaclass, handles, 0);
    for (unsigned int const handle : handles) {
        attributes.push_back(session.GetRegistry().GetIdentifier(metaclass, handle, 0, false));
        rows.front().push_back(LabelOf(attributes.back()));
    }
    for (EntityList const& list : found) {
        for (unsigned int const id : list.GetList())
            rows.push_back(CellsOf(*session.FindObject(Entity(list.GetEntityFullType(), id)), attributes));
    }
    WriteCsv(std::cout, rows);
}

int Explain(DeckSession const& session, std::vector<unsigned int> const& metaclasses,
            Arguments const& arguments) {
    bool isThere = false;
    for (unsigned int const metaclass : metaclasses) {
        Entity const entity(session.GetRegistry().RegisterMetaclass(metaclass),
                            static_cast<unsigned int>(arguments.explained));
        DeckObject const* const object = session.FindObject(entity);
        if (object != nullptr)
            std::cout << object->GetName() << ": " << ExplainQuery(session, *object, arguments.text) << '\n';
        isThere = isThere || object != nullptr;
    }
    if (!isThere)
        return Refuse("there is no " + arguments.card + ' ' + std::to_string(arguments.explained), s_failure);
    return EndOutput(s_success);
}

} // namespace

int Query(Arguments const& arguments) {
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    unsigned int const metaclass = session == nullptr ? 0 : FindMetaclass(registry, arguments.card);
    if (metaclass == 0)
        return s_failure;
    auto const metaclasses = Descendants(registry, metaclass);
    if (auto const status = CheckQueryOverTypes(*session, metaclasses, arguments.text); status.status != 0)
        return Refuse(status.message, s_failure);
    if (arguments.explained != 0)
        return Explain(*session, metaclasses, arguments);
    auto const found = CollectAll(*session, metaclasses, arguments.text);
    if (arguments.isCount) {
        std::size_t count = 0;
        for (EntityList const& list : found)
            count += list.GetIdListCount();
        std::cout << count << '\n';
    } else if (arguments.isCsv) {
        PrintCsv(*session, metaclass, found);
    } else {
        for (EntityList const& list : found) {
            for (unsigned int const id : list.GetList())
                std::cout << list.GetEntityFullType().GetTypeNamed() << ' ' << id << '\n';
        }
    }
    return EndOutput(s_success);
}

} // namespace qzDeck
