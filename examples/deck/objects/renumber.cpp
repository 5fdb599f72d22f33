// Giving a card another number: of itself, of all that refers to it and, with that, of the entity.

#include "objects/CardPopulation.h"
#include "objects/DeckRegistry.h"
#include "objects/DeckSession.h"
#include "objects/entity_event.h"
#include "references/dangling.h"

#include <algorithm>
#include <limits>

namespace qzDeck {

using namespace qzDescriptor;

namespace {

bool RefersTo(Field const* field, std::string_view card) {
    return field != nullptr && FamilyOf(*field) != Family::None && IsMember(TraitsOf(FamilyOf(*field)), card);
}

bool MayReferTo(CardDefinition const* definition, std::string_view card) {
    return definition != nullptr && std::ranges::any_of(definition->AllFields(), [card](Field const& field) {
               return RefersTo(&field, card);
           });
}

/// Whether a number stands anywhere on a card: most cards need no closer look.
bool HoldsNumber(Card const& card, int number) {
    return std::ranges::any_of(card.Values(), [number](Value const& value) {
        int found = 0;
        return value.GetValue(found) && found == number;
    });
}

/// Whether the reference at a place has this number, which a blank has when it is the card's own.
bool HasNumber(CardObject const& object, PlacedField const& placed, std::size_t place, int number) {
    auto const& values = object.GetCard().Values();
    int found = 0;
    if (place < values.size() && values[place].GetValuePtr() != nullptr)
        return values[place].GetValue(found) && found == number;
    return HasFlag(*placed.field, FIELD_DEFAULTS_TO_ID) &&
           object.GetOrigin(placed.field->identifier) == Origin::OwnId && values.front().GetValue(found) &&
           found == number;
}

} // namespace

unsigned int DeckSession::P_ChangeReferences(CardPopulation& cards, std::string_view referred, int old,
                                             Value const& number, std::vector<EntityEventInfo>& events) {
    unsigned int count = 0;
    PlacedFields placed;
    cards.ForEach([&](CardObject& object) {
        if (!HoldsNumber(object.GetCard(), old))
            return;
        object.GetCard().Place(placed);
        for (std::size_t place = 0; place < placed.size(); ++place) {
            if (!RefersTo(placed[place].field, referred) || !HasNumber(object, placed[place], place, old))
                continue;
            ++count;
            Identifier const attribute = placed[place].GetIdentifier(place);
            object.GetCard().Set(attribute, number);
            P_NoteChange(object, attribute, events);
        }
    });
    return count;
}

qzReturnStatus DeckSession::Renumber(Entity const& entity, unsigned int id) {
    auto* const object = dynamic_cast<CardObject*>(FindObject(entity));
    auto const isA = [&](char const* type) { return IsA(entity, EntityFullType(qzString(type))); };
    if (object == nullptr || (!isA("property") && !isA("material")))
        return {-1, "Only properties and materials are renumbered."};
    unsigned int const old = object->GetFirstNumber();
    if (old == 0 || id == 0 || id > static_cast<unsigned int>(std::numeric_limits<int>::max()))
        return {-1, "There is no such number on cards."};
    if (IsTaken(object->GetCards().GetIdGroup(), id))
        return {-1, "The id " + std::to_string(id) + " is taken."};
    EntityFullType const type = object->GetEntityFullType();
    std::string const name = object->GetCard().Name();
    Value const number(static_cast<int>(id));
    unsigned int const oldId = object->GetId();
    object->GetCard().Set(object->GetCard().Kind().definition->AllFields().front().identifier, number);
    object->GetCards().Renumber(*object, id);
    std::vector<EntityEventInfo> events = {MakeEvent(ENTITY_EVENT_DELETED, type, {oldId}),
                                           MakeEvent(ENTITY_EVENT_CREATED, type, {id})};
    unsigned int references = 0;
    for (CardPopulation* const cards : P_CardPopulations()) {
        if (MayReferTo(cards->GetDefinition(), name))
            references += P_ChangeReferences(*cards, name, static_cast<int>(old), number, events);
    }
    P_Tell(events);
    return {0, name + ' ' + std::to_string(old) + " is " + name + ' ' + std::to_string(id) + " now, for " +
                   std::to_string(references) + (references == 1 ? " reference" : " references") + " to it."};
}

} // namespace qzDeck
