#include "commands/commands.h"
#include "commands/field_words.h"
#include "commands/find_object.h"
#include "commands/read_deck.h"

namespace qzDeck {

int Set(Arguments const& arguments) {
    DeckRegistry registry;
    DeckSession const* const session = ReadDeck(registry, arguments.deck);
    DeckObject const* const object =
        session == nullptr ? nullptr : FindObject(*session, arguments.card, arguments.id);
    if (object == nullptr)
        return s_failure;
    for (std::string const& change : arguments.words) {
        std::size_t const equals = change.find('=');
        if (equals == std::string::npos)
            return Refuse(change + " is no FIELD=VALUE", s_failure);
        std::string const field = change.substr(0, equals);
        auto const status =
            object->SetValueFromString(FieldNamed(field), change.substr(equals + 1), qzString());
        if (status.status != 0)
            return Refuse(object->GetName() + ' ' + field + ": " + status.message, s_findings);
    }
    return WriteDeckFile(*session, arguments.output) ? s_success : s_failure;
}

} // namespace qzDeck
