#include "actions/actions.h"
#include "commands/commands.h"
#include "commands/find_object.h"
#include "commands/read_deck.h"
#include "descriptor/ActionDefinition.h"
#include "descriptor/DataOperationList.h"
#include "objects/Population.h"

#include <iostream>

namespace qzDeck {

namespace {

using namespace qzDescriptor;

void PrintEntries(DataOperationList const& list, std::size_t depth) {
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        DataOperation const& entry = list.Get(i);
        if (entry.GetOperation() == DataOperation::OPERATION_SEPARATOR) {
            std::cout << std::string(2 * depth, ' ') << "---\n";
            continue;
        }
        qzString function;
        DataOperationList below;
        entry.GetFunctionName(function);
        entry.GetDataOperationList(below);
        std::cout << std::string(2 * depth, ' ') << entry.GetDisplayName()
                  << (function.empty() ? "" : " -> " + function) << '\n';
        PrintEntries(below, depth + 1);
    }
}

ActionDefinition const* FindAction(DeckObject const& object, DeckRegistry const& registry,
                                   std::string const& action) {
    unsigned int const metaclass = object.GetPopulation().GetMetaclass();
    Identifier id;
    return registry.GetActionDefinition(metaclass, registry.FindActionHandle(metaclass, action, 0), id, 0);
}

/// Why an action cannot be started; empty when it can.
std::string FindObstacle(DeckObject const& object, ActionDefinition const& action) {
    auto const& test = action.GetEnabledTest();
    return test ? test(&object).message : std::string();
}

} // namespace

int PrintMenu(Arguments const& arguments) {
    DeckRegistry const registry;
    unsigned int const metaclass = FindMetaclass(registry, arguments.card);
    DataOperationList menu;
    if (metaclass == 0)
        return s_failure;
    if (!registry.GetDataOperations(metaclass, menu))
        return Refuse(arguments.card + " has no menu", s_failure);
    PrintEntries(menu, 0);
    return EndOutput(s_success);
}

int PrintActions(Arguments const& arguments) {
    DeckRegistry const registry;
    unsigned int const metaclass = FindMetaclass(registry, arguments.card);
    if (metaclass == 0)
        return s_failure;
    qzStlVector<unsigned int> actions;
    registry.GetActionHandles(metaclass, actions, 0);
    for (unsigned int const action : actions) {
        Identifier id;
        ActionDefinition const* const definition = registry.GetActionDefinition(metaclass, action, id, 0);
        std::cout << id.GetNameKey() << ": " << definition->GetDescription() << '\n';
    }
    return EndOutput(s_success);
}

int RunAction(Arguments const& arguments) {
    DeckRegistry registry;
    DeckSession* const session = ReadDeck(registry, arguments.deck);
    DeckObject const* const object =
        session == nullptr ? nullptr : FindObject(*session, arguments.card, arguments.id);
    if (object == nullptr)
        return s_failure;
    ActionDefinition const* const action = FindAction(*object, registry, arguments.text);
    if (action == nullptr)
        return Refuse(object->GetName() + " has no action " + arguments.text, s_findings);
    if (std::string const obstacle = FindObstacle(*object, *action); !obstacle.empty())
        return Refuse(obstacle, s_findings);
    session->SetActionArguments(arguments.words);
    std::string failure;
    if (action->IsScriptAction() && !PrepareScripts(arguments.words, failure))
        return Refuse(failure, s_failure);
    qzReturnStatus const status = object->InvokeAction(Identifier(arguments.text));
    if (status.status != 0)
        return Refuse(status.message, s_findings);
    std::cout << status.message << '\n';
    if (!arguments.output.empty() && !WriteDeckFile(*session, arguments.output))
        return s_failure;
    return EndOutput(s_success);
}

} // namespace qzDeck
