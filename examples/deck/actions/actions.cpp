#include "actions/actions.h"

#include "cards/registry.h"
#include "describe/card_page.h"
#include "descriptor/ActionDefinition.h"
#include "descriptor/DataOperationListBuilder.h"
#include "objects/CardObject.h"
#include "objects/CardPopulation.h"
#include "objects/DeckRegistry.h"
#include "objects/DeckSession.h"
#include "qzinterp/qzInterp.h"

#include <charconv>
#include <memory>
#include <sstream>

namespace qzDeck {

using namespace qzDescriptor;

namespace {

using Function = qzReturnStatus (*)(Metaobject const*);

struct ActionRow {
    char const* metaclass;
    char const* name;
    char const* description;
    Function callback;
    Function test; // null when every object will do
};
constexpr ActionRow s_actions[] = {
    {"card", "Describe", "Tells what the fields of the card are", DescribeCard, CanDescribeCard},
    {"shell element", "Mass", "Works out the mass of the element", WeighElement, CanWeighElement},
    {"shell property", "Mass", "Works out the mass of all elements with this property", WeighProperty,
     nullptr},
    {"property", "Renumber", "Gives it another number, and all that refer to it", RenumberCard, nullptr},
    {"material", "Renumber", "Gives it another number, and all that refer to it", RenumberCard, nullptr},
};

constexpr char const* s_withMenus[] = {"card",     "shell element", "shell property",
                                       "property", "material",      "PSHELL"};

/// Of the folder `scripts`.
constexpr char const* s_scriptModule = "deck_actions";

struct EndBuilder {
    void operator()(DataOperationListBuilder* builder) const { builder->Destroy(); }
};

} // namespace

void InsertActions(DeckRegistry& registry) {
    for (ActionRow const& row : s_actions) {
        ActionDefinition::Function const test = row.test == nullptr ? ActionDefinition::Function() : row.test;
        registry.InsertAction(registry.FindHandle(row.metaclass), Identifier(qzString(row.name)),
                              ActionDefinition(row.name, row.callback, true, test, row.description, ""), {});
    }
    registry.InsertAction(registry.FindHandle("PSHELL"), Identifier("Scale thickness"),
                          ActionDefinition("Scale thickness", "scale_thickness", "", s_scriptModule, "python",
                                           true, true,
                                           "Multiplies the thickness by a factor, 1.1 without one", ""),
                          {});
}

bool PrepareScripts(std::vector<std::string> const& arguments, std::string& failure) {
    qzInterp* const python = qzInterp::Get("python");
    if (python == nullptr)
        return true; // the action itself says so
    qzStlVector<qzVariant> folder(1), words(arguments.size());
    folder[0].SetString(QZDECK_SCRIPTS);
    for (std::size_t i = 0; i < arguments.size(); ++i)
        words[i].SetString(arguments[i]);
    return python->Call("site.addsitedir", folder, failure) &&
           python->Call(qzString(s_scriptModule) + ".set_arguments", words, failure);
}

void InsertMenus(DeckRegistry& registry) {
    for (char const* const name : s_withMenus) {
        unsigned int const metaclass = registry.FindHandle(name);
        std::unique_ptr<DataOperationListBuilder, EndBuilder> const builder(
            DataOperationListBuilder::Create());
        builder->InsertOperation("Show", DataOperation::OPERATION_SHOW, "", true, "");
        builder->InsertList("Change", "change", "", true, "");
        builder->InsertOperation("Edit", DataOperation::OPERATION_EDIT, "change", true, "");
        builder->InsertOperation("Delete", DataOperation::OPERATION_DELETE, "change", true, "");
        builder->InsertOperation("");
        builder->InsertList("Actions", "actions", "", true, "");
        qzStlVector<unsigned int> actions;
        registry.GetActionHandles(metaclass, actions, 0);
        for (unsigned int const action : actions) {
            Identifier id;
            ActionDefinition const* const definition = registry.GetActionDefinition(metaclass, action, id, 0);
            builder->InsertOperation(definition->GetDisplayName(), id.GetNameKey(), "actions",
                                     definition->GetEnabled(), "");
        }
        DataOperationList menu;
        builder->RetrieveDataOperationList(menu);
        registry.SetDataOperations(metaclass, menu);
    }
}

qzReturnStatus CanDescribeCard(Metaobject const* object) {
    qzString const name = object->GetEntityFullType().GetTypeNamed();
    return FindCard(name) != nullptr ? qzReturnStatus()
                                     : qzReturnStatus{-1, "nothing is known of " + name + " cards"};
}

qzReturnStatus DescribeCard(Metaobject const* object) {
    std::ostringstream page;
    WriteCardPage(page, *FindCard(object->GetEntityFullType().GetTypeNamed()), PageStyle::Text);
    return {0, page.str()};
}

qzReturnStatus RenumberCard(Metaobject const* object) {
    auto& session = static_cast<DeckSession&>(*object->GetSession());
    auto const& card = static_cast<CardObject const&>(*object);
    unsigned int id = 0;
    if (session.GetActionArguments().empty()) {
        id = session.GetHighestId(card.GetCards().GetIdGroup()) + 1;
    } else {
        std::string const& text = session.GetActionArguments().front();
        auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), id);
        if (error != std::errc() || end != text.data() + text.size())
            return {-1, '\'' + text + "' is no number for a card."};
    }
    return session.Renumber(object->GetEntity(), id);
}

} // namespace qzDeck
