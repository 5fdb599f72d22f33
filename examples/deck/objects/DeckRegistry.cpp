#include "objects/DeckRegistry.h"

#include "actions/actions.h"
#include "cards/registry.h"
#include "cards/tails.h"
#include "descriptor/Definition.h"
#include "descriptor/Version.h"
#include "objects/DeckSession.h"
#include "objects/metaclasses.h"

#include <algorithm>
#include <memory>

namespace qzDeck {

using namespace qzDescriptor;

namespace {

/// What all cards of a name are lives as long as the program.
std::shared_ptr<Definition const> Share(Field const& field) {
    return {std::shared_ptr<void const>(), &field.definition};
}

bool StandsAlone(CardDefinition const& card, Field const& field) {
    return card.AlternativesTo(field).size() == 1;
}

/// A field of a card under the same name and of the same type, if it has only that one.
bool HasField(CardDefinition const& card, Field const& wanted) {
    Fields const fields = card.FixedFields();
    return std::ranges::any_of(fields, [&](Field const& field) {
        return field.identifier == wanted.identifier && StandsAlone(card, field) &&
               field.definition.GetValueBasicType() == wanted.definition.GetValueBasicType();
    });
}

/// What an owner attribute is: the entities of a metaclass that it owns.
Definition RelationTo(std::string_view displayName) {
    return Definition(qzString(displayName), BT_UINT, CT_ENTITY, 1, Allowables(), Definition::SOURCE_COMPUTED,
                      Definition::SPECIFICATION_OPTIONAL, false, true, qzString(), qzString(),
                      UnitsDimensionality(), Definition::DIFFERENTIATOR_NONE, DefinitionUserParams());
}

/// A field of one row: what is repeated on the card stands there once.
Definition OfRow(Field const& field, bool isRepeatedInRow) {
    Definition definition = field.definition;
    definition.SetArrayDimension(isRepeatedInRow ? 1 : 0);
    return definition;
}

} // namespace

DeckRegistry::DeckRegistry() {
    P_InsertAbstract();
    P_InsertCards();
    P_InsertForms();
    P_InsertParts();
    P_InsertSets();
    InsertActions(*this);
    InsertMenus(*this);
}

DeckRegistry::~DeckRegistry() = default;

ISession* DeckRegistry::CreateSession(qzString const& path) {
    auto model = Model::Read(path);
    return model ? new DeckSession(path, *this, std::move(*model)) : nullptr;
}

unsigned int DeckRegistry::GetCard(std::string_view name) {
    qzString const metaclass(name);
    unsigned int const found = FindHandle(metaclass);
    return found != 0
               ? found
               : Insert(metaclass, Version(), qzString(s_cardMetaclass), CONFIG_USAGE_NONE, qzString());
}

std::string DeckRegistry::GetName(unsigned int metaclass) const {
    qzString name, parent;
    GetNameAndOfParent(metaclass, name, parent);
    return name;
}

std::string DeckRegistry::GetParentName(unsigned int metaclass) const {
    qzString name, parent;
    GetNameAndOfParent(metaclass, name, parent);
    return parent;
}

void DeckRegistry::P_InsertAbstract() {
    for (MetaclassRow const& row : AbstractMetaclasses())
        Insert(qzString(row.name), Version(), qzString(row.parent), CONFIG_USAGE_NONE, qzString());
    for (MetaclassRow const& row : AbstractMetaclasses()) {
        unsigned int const metaclass = FindHandle(qzString(row.name));
        std::vector<CardDefinition const*> cards;
        for (CardDefinition const& card : AllCards()) {
            if (CheckParent(FindHandle(qzString(ParentOf(card.Name()))), metaclass))
                cards.push_back(&card);
        }
        if (row.name != s_cardMetaclass) // cards that nothing is known of share nothing
            P_InsertSharedFields(metaclass, cards);
    }
}

void DeckRegistry::P_InsertSharedFields(unsigned int metaclass,
                                        std::vector<CardDefinition const*> const& cards) {
    if (cards.empty())
        return;
    for (Field const& field : cards.front()->FixedFields()) {
        if (std::ranges::all_of(cards, [&](CardDefinition const* card) { return HasField(*card, field); }))
            InsertAttribute(metaclass, field.identifier, Share(field), Identifier(), {});
    }
}

void DeckRegistry::P_InsertCards() {
    for (CardDefinition const& card : AllCards()) {
        bool const hasForms =
            std::ranges::any_of(Forms(), [&](FormRow const& form) { return form.card == card.Name(); });
        unsigned int const metaclass =
            Insert(card.Name(), Version(), qzString(ParentOf(card.Name())),
                   hasForms ? CONFIG_USAGE_SUBMEMBER : CONFIG_USAGE_NONE, qzString());
        for (Field const& field : card.AllFields())
            InsertAttribute(metaclass, field.identifier, Share(field), Identifier(), {});
    }
}

void DeckRegistry::P_InsertForms() {
    for (FormRow const& form : Forms()) {
        unsigned int const metaclass = FindHandle(qzString(form.card));
        unsigned int const config = InsertConfig(metaclass, qzString(form.name), qzString(), 0);
        qzStlVector<unsigned int> attributes;
        GetAttributeHandles(metaclass, attributes, 0);
        auto const isLacking = [&](unsigned int attribute) {
            std::string_view const name = GetIdentifier(metaclass, attribute, 0, false).GetNameKey();
            return std::ranges::find(form.lacks, name) != form.lacks.end();
        };
        attributes.erase(std::remove_if(attributes.begin(), attributes.end(), isLacking), attributes.end());
        InsertAttributesIntoConfig(metaclass, config, attributes);
    }
}

/// A part has the repeated fields of the cards that own it; an attribute of the owner leads to it.
void DeckRegistry::P_InsertParts() {
    for (PartRow const& row : Parts()) {
        unsigned int const part = FindHandle(qzString(row.part));
        unsigned int const owner = FindHandle(qzString(row.card));
        for (Field const& field : FindCard(row.card)->TailFields()) {
            bool const isStation = FindCard(row.card)->GetTail() == &SectionStations();
            bool const isRepeatedInRow = isStation && &field == &FindCard(row.card)->TailFields().front();
            if (FindAttributeHandle(part, field.identifier, 0, false) == 0)
                InsertAttribute(part, field.identifier, OfRow(field, isRepeatedInRow), Identifier(), {});
        }
        SetOwnership(part, owner,
                     InsertAttribute(owner, Identifier(qzString(row.attribute)), RelationTo(row.attribute),
                                     Identifier(), {}));
    }
}

void DeckRegistry::P_InsertSets() {
    for (SetRow const& row : Sets()) {
        unsigned int const set = FindHandle(qzString(row.name));
        SetOwnership(FindHandle(qzString(row.member)), set,
                     InsertAttribute(set, Identifier(qzString(row.attribute)), RelationTo(row.attribute),
                                     Identifier(), {}));
    }
}

} // namespace qzDeck
