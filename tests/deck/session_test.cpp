#include "objects/DeckSession.h"

#include "cards/card_position.h"
#include "cards/registry.h"
#include "check/Finding.h"
#include "deck/DeckFolder.h"
#include "descriptor/Allowables.h"
#include "descriptor/Definition.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/Members.h"
#include "descriptor/qzSigSlotHandler.h"
#include "facts/DeckFacts.h"
#include "objects/CardPopulation.h"
#include "objects/DeckRegistry.h"
#include "objects/metaclasses.h"
#include "qzsigslot/qzListener.h"
#include "writer/DeckWriter.h"

#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <random>

namespace {

using namespace qzDescriptor;
using namespace qzDeck;

/// A deck with its session.
struct Opened {
    DeckRegistry registry;
    DeckSession* session;

    explicit Opened(std::string const& path)
        : session(static_cast<DeckSession*>(registry.GetSession(path))) {}

    DeckObject* Find(char const* type, unsigned int id) const {
        return session->FindObject(Entity(EntityFullType(qzString(type)), id));
    }
    Entity Create(char const* type, Entity const& owner = Entity()) const {
        Entity created;
        auto const status = session->Create(EntityFullType(qzString(type)), created, owner, Identifier());
        EXPECT_EQ(status.message, "") << type;
        return created;
    }
};

qzString TextOf(DeckObject const& object, Identifier const& attribute) {
    qzString text = "-";
    object.GetValueAsString(attribute, text, qzString());
    return text;
}

TEST(Session, EveryCardHasItsPlaceAndItsFields) {
    DeckRegistry const registry;
    for (CardDefinition const& card : AllCards()) {
        unsigned int const metaclass = registry.FindHandle(card.Name());
        EXPECT_NE(ParentOf(card.Name()), s_cardMetaclass) << card.Name();
        EXPECT_EQ(registry.GetParentName(metaclass), ParentOf(card.Name()));
        for (Field const& field : card.AllFields()) {
            unsigned int const handle = registry.FindAttributeHandle(metaclass, field.identifier, 0, false);
            EXPECT_EQ(registry.GetDefinition(metaclass, handle, 0), &field.definition)
                << card.Name() << ' ' << field.identifier.GetNameKey();
        }
    }
    for (FormRow const& form : Forms()) {
        unsigned int const metaclass = registry.FindHandle(qzString(form.card));
        unsigned int const config = registry.FindConfigHandle(metaclass, qzString(form.name));
        for (std::string_view const field : form.lacks) {
            Identifier const id{qzString(field)};
            EXPECT_NE(registry.FindAttributeHandle(metaclass, id, 0, false), 0U) << field;
            EXPECT_EQ(registry.FindAttributeHandle(metaclass, id, config, false), 0U) << field;
        }
    }
}

TEST(Session, EveryCardIsAnObjectWithItsValues) {
    for (std::string const& path : AllDecks()) {
        Opened const deck(path);
        ASSERT_NE(deck.session, nullptr) << path;
        for (auto const& [name, facts] : CollectFacts(deck.session->GetModel()).cards)
            EXPECT_EQ(deck.session->GetCount(deck.registry.FindHandle(name)), facts.count) << path << name;
        for (CardKind const& kind : deck.session->GetModel().Kinds()) {
            EntityList list;
            deck.session->Collect(list, EntityFullType(kind.name), "");
            auto id = list.GetList().begin();
            for (Card const& card : deck.session->GetModel().Cards()) {
                if (&card.Kind() != &kind)
                    continue;
                DeckObject const* const object = deck.Find(kind.name.c_str(), *id++);
                ASSERT_NE(object, nullptr) << path << kind.name;
                PlacedFields placed;
                card.Place(placed);
                for (std::size_t place = 0; place < card.Values().size(); ++place) {
                    ValuePtr const* const held = card.Values()[place].GetValuePtr();
                    if (held == nullptr)
                        continue;
                    ValuePtr const* value = nullptr;
                    Identifier const field = placed[place].GetIdentifier(place);
                    EXPECT_TRUE(object->GetValue(field, value)) << path << object->GetName() << place;
                    bool const isZero = value != held && TextOf(*object, field) == "0"; // among real numbers
                    EXPECT_TRUE(value == held || isZero) << path << object->GetName() << place;
                }
            }
        }
    }
}

/// The number in a field as a reader of the deck has it; nothing where there is none.
std::optional<double> NumberAt(Card const& card, std::size_t place, Field const& field) {
    auto const& values = card.Values();
    bool const isBlank = place >= values.size() || values[place].GetValuePtr() == nullptr;
    Value const value = !isBlank                                                  ? values[place]
                        : HasFlag(field, FIELD_DEFAULTS_TO_ID) && !values.empty() ? values.front()
                                                                                  : DefaultOf(field);
    bool const isInteger = field.definition.GetValueBasicType() == BT_INT;
    int integer = 0;
    double real = 0.0;
    if (value.GetValue(integer) && (isInteger || integer == 0))
        return integer;
    return !isInteger && value.GetValue(real) ? std::optional(real) : std::nullopt;
}

TEST(Session, QueriesFindWhatALoopFinds) {
    unsigned int const seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    for (std::string const& path : AllDecks()) {
        Opened const deck(path);
        Model const& model = deck.session->GetModel();
        for (CardKind const& kind : model.Kinds()) {
            if (kind.definition == nullptr || !kind.definition->DefaultsCard().empty())
                continue;
            for (Field const& field : kind.definition->FixedFields()) {
                bool const isNumber = field.definition.GetValueBasicType() == BT_INT ||
                                      field.definition.GetValueBasicType() == BT_DOUBLE;
                if (!isNumber || kind.definition->AlternativesTo(field).size() > 1)
                    continue;
                auto const tenths = static_cast<unsigned int>(random() % 2000);
                double const limit = tenths / 10.0;
                unsigned int expected = 0;
                for (Card const& card : model.Cards()) {
                    if (&card.Kind() != &kind)
                        continue;
                    auto const number = NumberAt(card, PlaceOf(field.position), field);
                    expected += number && *number > limit ? 1U : 0U;
                }
                std::string const query = '"' + field.identifier.GetNameKey() + "\" > " +
                                          std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10);
                EntityList found;
                deck.session->Collect(found, EntityFullType(kind.name), query);
                EXPECT_EQ(found.GetIdListCount(), expected) << path << ' ' << kind.name << ' ' << query;
            }
        }
    }
}

TEST(Session, IdsAreNumbersOrCount) {
    DeckFolder const folder;
    Opened const deck(folder.Write("deck.bdf",
                                   "GRID,7\nGRID,3\nGRID,7\nGRID,X\nGRID,9\nPARAM,A,1\nPARAM,B,2\n"
                                   "FORCE,5,7,,1.,1.\nFORCE,5,3,,1.,1.\nFORCE,4,3,,1.,1.\n"));
    auto const idsOf = [&](char const* type) {
        EntityList list;
        deck.session->Collect(list, EntityFullType(qzString(type)), "");
        return list.GetList();
    };
    EXPECT_EQ(idsOf("GRID"), (qzStlVector<unsigned int>{7, 3, 10, 11, 9}));
    EXPECT_EQ(idsOf("PARAM"), (qzStlVector<unsigned int>{1, 2}));
    EXPECT_EQ(idsOf("FORCE"), (qzStlVector<unsigned int>{1, 2, 3}));
    EXPECT_EQ(idsOf("load set"), (qzStlVector<unsigned int>{4, 5}));
    for (unsigned int const id : idsOf("GRID"))
        EXPECT_EQ(deck.Find("GRID", id)->GetId(), id);
}

TEST(Session, BlanksAreWhatTheyStandFor) {
    Opened const deck(OwnDeck("sampler.bdf"));
    struct Case {
        char const* type;
        unsigned int id;
        Identifier attribute;
        char const* text;
    };
    for (auto const& [type, id, attribute, text] : {Case{"CROD", 17, Identifier("PID"), "17"},
                                                    {"CBAR", 11, Identifier("PID"), "5"},
                                                    {"CBAR", 12, Identifier("X1"), "-"},
                                                    {"CBAR", 12, Identifier("G0"), "5"},
                                                    {"CBAR", 11, Identifier("W1A"), "0"},
                                                    {"GRID", 1, Identifier("CD"), "0"},
                                                    {"CQUAD4", 2, Identifier("THETA"), "-"},
                                                    {"CQUAD4", 2, Identifier("MCID"), "3"},
                                                    {"GRID", 5, Identifier("X1"), "0"},
                                                    {"PSHELL", 1, Identifier("Z1"), "-"},
                                                    {"PCOMP", 2, Identifier("T", 0, 1), "0.002"},
                                                    {"PCOMP", 2, Identifier("T"), "0.001"},
                                                    {"ply", 2, Identifier("T"), "0.002"},
                                                    {"ply", 3, Identifier("SOUT"), "NO"},
                                                    {"ply", 3, Identifier("MID"), "-"}})
        EXPECT_EQ(TextOf(*deck.Find(type, id), attribute), text)
            << type << ' ' << id << ' ' << attribute.GetNameKey();
}

TEST(Session, ChangesAreTestedWrittenAndReadAgain) {
    DeckFolder const folder;
    Opened const deck(OwnDeck("sampler.bdf"));
    struct Case {
        char const* type;
        unsigned int id;
        Identifier attribute;
        char const* text;
        char const* message; // empty when it is taken
    };
    Case const cases[] = {
        {"PSHELL", 1, Identifier("T"), "2", ""},
        {"PSHELL", 1, Identifier("T"), "-1", "Input of -1 violates: VALUE > 0"},
        {"PSHELL", 1, Identifier("T"), "THICK", "a text where a real number belongs"},
        {"PSHELL", 1, Identifier("MID2"), "-1", ""},
        {"PSHELL", 1, Identifier("MID2"), "1.", "a real number where an integer belongs"},
        {"PSHELL", 1, Identifier("MID2"), "77", "there is no material 77"},
        {"PSHELL", 1, Identifier("PID"), "9",
         "A card keeps its number; properties and materials have the action Renumber."},
        {"PSHELL", 1, Identifier("THICK"), "9", "There is no such attribute."},
        {"PCOMP", 2, Identifier("T", 0, 2), ".5", ""},
        {"PCOMP", 2, Identifier("T"), ".5", "The card repeats this field: say in which row."},
        {"PCOMP", 2, Identifier("plies"), "1", "What an object owns is created and deleted."},
        {"ply", 1, Identifier("THETA"), "60.", ""},
        {"SPC1", 1, Identifier("C"), "127", "components are digits 1 to 6, each at most once, or 0"},
        {"SPC1", 1, Identifier("C"), "12", ""},
        {"GRID", 1, Identifier("CP"), "", ""},
        {"CQUAD4", 2, Identifier("THETA"), "15.", ""},
        {"CQUAD4", 2, Identifier("G1"), "", "a required field is blank"},
        {"CQUAD4", 2, Identifier("G1"), "99", "there is no grid point 99"},
        {"FORCE", 1, Identifier("F"), "1.5-3", ""},
        {"FORCE", 1, Identifier("F"), "1.+999", "the real number is out of range"},
        {"MOMENT", 1, Identifier("SID"), "32", ""},
    };
    for (auto const& [type, id, attribute, text, message] : cases) {
        DeckObject const& object = *deck.Find(type, id);
        std::string const before = WriteDeck(deck.session->GetModel(), "x");
        EXPECT_EQ(object.SetValueFromString(attribute, text, "").message, message) << type << text;
        bool const isSame = WriteDeck(deck.session->GetModel(), "x") == before;
        EXPECT_TRUE(isSame || *message == '\0') << type << text;
    }
    Opened const again(folder.Write("again.bdf", WriteDeck(deck.session->GetModel(), folder.Path() / "x")));
    for (auto const& [type, id, attribute, text, message] : cases) {
        DeckObject const& object = *again.Find(type, id);
        EXPECT_EQ(TextOf(object, attribute), TextOf(*deck.Find(type, id), attribute)) << type << text;
    }
    EXPECT_EQ(TextOf(*again.Find("ply", 1), Identifier("THETA")), "60");
    EXPECT_EQ(TextOf(*again.Find("CQUAD4", 2), Identifier("MCID")), "-");
}

TEST(Session, ListsAreChangedAsAWhole) {
    Opened const deck(OwnDeck("sampler.bdf"));
    DeckObject const& laminate = *deck.Find("PCOMP", 2);
    auto const set = [&](qzStlVector<double> list) {
        return laminate.SetValue(Identifier("T"), Value(ValuePtr::Create(std::move(list), DS_DEFAULT)))
            .status;
    };
    EXPECT_EQ(set({1., 2.}), -1);
    EXPECT_EQ(set({1., 2., -3.}), -1);
    EXPECT_EQ(set({1., 2., std::numeric_limits<double>::infinity()}), -1);
    EXPECT_EQ(TextOf(laminate, Identifier("T", 0, 0)), "0.001");
    EXPECT_EQ(set({1., 2., 3., 4.}), 0);
    EXPECT_EQ(TextOf(*deck.Find("ply", 4), Identifier("T")), "4");
    ValuePtr const* value = nullptr;
    qzStlVector<double> list;
    ASSERT_TRUE(laminate.GetValue(Identifier("T"), value) && value->GetValue(list));
    EXPECT_EQ(list, (qzStlVector<double>{1., 2., 3., 4.}));
}

/// What a session tells, one line for an event.
class Listener : public qzListener<> {
public:
    void OnEvent(EntityEventInfo const& event) {
        constexpr char const* names[] = {"", "created", "changed", "deleted"};
        qzStlVector<unsigned int> ids;
        event.GetEntityIdList(ids);
        text += std::string(names[event.GetEventType()]) + ' ' + event.GetEntityType().GetTypeNamed();
        for (unsigned int const id : ids)
            text += ' ' + std::to_string(id);
        text += event.GetIdentifier().IsValid() ? ' ' + event.GetIdentifier().GetNameKey() + '\n' : "\n";
    }
    std::string text;
};

TEST(Session, ObjectsAreCreatedUnderTheirOwnersAndGoWithThem) {
    DeckFolder const folder;
    Opened const deck(
        folder.Write("deck.bdf", "GRID,1\nMAT1,1,1.,,.3\nPCOMP,4\n,1,.1,0.,NO\nFORCE,2,1,,1.,1.\n"));
    Listener listener;
    deck.session->GetSigSlotHandler()->GetEntityEventSignal()->Connect<&Listener::OnEvent>(listener);
    Entity const set = deck.Create("load set");
    Entity const force = deck.Create("FORCE", set);
    Entity const ply = deck.Create("ply", deck.Find("PCOMP", 4)->GetEntity());
    Entity const point = deck.Create("GRID");
    EXPECT_EQ(set.GetId(), 3U);
    EXPECT_EQ(point.GetId(), 2U);
    EXPECT_EQ(TextOf(*deck.session->FindObject(force), Identifier("SID")), "3");
    EXPECT_EQ(deck.session->FindObject(ply)->SetValueFromString(Identifier("T"), ".2", "").status, 0);

    Entity created;
    auto const refused = [&](char const* type, Entity const& owner) {
        return deck.session->Create(EntityFullType(qzString(type)), created, owner, Identifier()).message;
    };
    EXPECT_EQ(refused("FORCE", Entity()), "Owner is manadatory for this type.");
    EXPECT_EQ(refused("FORCE", point), "No valid ownership rule found to create entity under owner.");
    EXPECT_EQ(refused("element", Entity()), "No element can be created.");
    EXPECT_EQ(
        deck.session->CreateWithId(EntityFullType("PSHELL"), 4, created, Entity(), Identifier()).message,
        "The id 4 is taken.");

    EXPECT_EQ(WriteDeck(deck.session->GetModel(), "x"),
              "GRID    1\nMAT1    1       1.              .3\nPCOMP   4\n"
              "+       1       .1      0.      NO              0.2     0.      NO\n"
              "FORCE   2       1               1.      1.\nFORCE   3\nGRID    2\n");
    EXPECT_EQ(deck.session->Delete(deck.Find("ply", 1)->GetEntity()).status, 0);
    EXPECT_EQ(TextOf(*deck.session->FindObject(ply), Identifier("T")), "0.2");
    EXPECT_EQ(deck.session->Delete(Entity(EntityFullType("load set"), 2)).status, 0);
    EXPECT_EQ(deck.session->Delete(deck.Find("PCOMP", 4)->GetEntity()).status, 0);
    EXPECT_EQ(deck.session->Get(ply), nullptr);
    EXPECT_EQ(WriteDeck(deck.session->GetModel(), "x"),
              "GRID    1\nMAT1    1       1.              .3\nFORCE   3\nGRID    2\n");
    EXPECT_EQ(TextOf(*deck.session->FindObject(point), Identifier("ID")), "2");
    EXPECT_EQ(listener.text, "created load set 3\ncreated FORCE 2\ncreated ply 2\ncreated GRID 2\n"
                             "changed PCOMP 4 T\ndeleted ply 1\ndeleted load set 2\ndeleted FORCE 1\n"
                             "deleted PCOMP 4\ndeleted ply 2\n");
}

TEST(Session, ListenersMayEndIt) {
    using Change = qzReturnStatus (*)(Opened const&);
    Change const changes[] = {
        [](Opened const& deck) {
            Entity point;
            return deck.session->Create(EntityFullType("GRID"), point, Entity(), Identifier());
        },
        [](Opened const& deck) { return deck.session->Delete(deck.Find("PCOMP", 2)->GetEntity()); },
        [](Opened const& deck) {
            return deck.Find("FORCE", 1)->SetValue(Identifier("SID"), Value(77)); // of another set then
        },
        [](Opened const& deck) { return deck.session->Renumber(deck.Find("MAT1", 21)->GetEntity(), 99); },
    };
    for (Change const change : changes) {
        Opened deck(OwnDeck("sampler.bdf"));
        int calls = 0;
        auto const end = [&](EntityEventInfo const&) {
            ++calls;
            deck.registry.RemoveSession(deck.session);
        };
        deck.session->GetSigSlotHandler()->GetEntityEventSignal()->Connect(end);
        qzReturnStatus const status = change(deck);
        EXPECT_EQ(status.status, 0) << status.message;
        EXPECT_EQ(calls, 1);
    }
}

TEST(Session, ACardMayHaveAllowablesOfItsOwn) {
    Opened const deck(OwnDeck("sampler.bdf"));
    DeckObject& plate = *deck.Find("PSHELL", 1);
    Identifier const thickness("T");
    ASSERT_EQ(plate.SetValue(thickness, Value(9.0)).status, 0);
    Allowables const thin(BoundT<double>(5.0, BoundT<double>::LessOrEqual), 4.0);
    EXPECT_TRUE(plate.SetAllowables(thickness, thin));
    EXPECT_EQ(TextOf(plate, thickness), "4"); // the default, in place of what is refused now
    EXPECT_NE(plate.SetValue(thickness, Value(6.0)).status, 0);
    EXPECT_EQ(plate.SetValue(thickness, Value(5.0)).status, 0);
    Allowables given;
    EXPECT_TRUE(plate.GetAllowables(thickness, given) && given == thin);
    EXPECT_FALSE(plate.SetAllowables(Identifier("X"), Allowables()));

    Entity const other = deck.Create("PSHELL");
    EXPECT_EQ(deck.session->Get(other)->SetValue(thickness, Value(6.0)).status, 0);
    EXPECT_EQ(deck.session->Delete(plate.GetEntity()).status, 0);
    Entity again;
    deck.session->CreateWithId(EntityFullType("PSHELL"), 1, again, Entity(), Identifier());
    EXPECT_EQ(deck.session->Get(again)->SetValue(thickness, Value(6.0)).status, 0);
}

TEST(Session, SectionsGoButForTheFirst) {
    Opened const deck(OwnDeck("sampler.bdf"));
    auto const end = [&](char const* type, unsigned int id) {
        return deck.session->Delete(Entity(EntityFullType(qzString(type)), id)).message;
    };
    EXPECT_EQ(end("section", 1), "section 1 goes only with its owner.");
    EXPECT_EQ(end("section", 2), "section 2 goes only with its owner.");
    qzString const last = TextOf(*deck.Find("section", 4), Identifier("X"));
    EXPECT_EQ(end("section", 3), "");
    EXPECT_EQ(deck.Find("section", 3), nullptr);
    EXPECT_EQ(TextOf(*deck.Find("section", 4), Identifier("X")), last);
    EXPECT_EQ(end("PBEAML", 10), "");
    EXPECT_EQ(deck.session->GetCount(deck.registry.FindHandle("section")), 1U);
}

TEST(Session, RenumberingKeepsReferences) {
    for (std::string const& path : AllDecks()) {
        Opened const deck(path);
        Findings const before = CheckReferences(deck.session->GetModel());
        for (char const* type : {"PSHELL", "PBAR", "PROD", "PSOLID", "MAT1"}) {
            EntityList list;
            deck.session->Collect(list, EntityFullType(qzString(type)), "");
            unsigned int number = 900001;
            for (unsigned int const id : list.GetList())
                EXPECT_EQ(deck.session->Renumber(Entity(list.GetEntityFullType(), id), number++).status, 0)
                    << path << type << id;
        }
        EXPECT_EQ(CheckReferences(deck.session->GetModel()).size(), before.size()) << path;
    }
    Opened const deck(OwnDeck("sampler.bdf"));
    EXPECT_EQ(deck.session->Renumber(deck.Find("PSHELL", 1)->GetEntity(), 2).message, "The id 2 is taken.");
    EXPECT_EQ(deck.session->Renumber(deck.Find("PROD", 17)->GetEntity(), 99).status, 0);
    EXPECT_EQ(TextOf(*deck.Find("CROD", 17), Identifier("PID")), "99");
}

TEST(Session, MassesAreThoseOfPlates) {
    DeckFolder const folder;
    std::string const points = "GRID,1,,0.,0.,0.\nGRID,2,,2.,0.,0.\nGRID,3,,2.,3.,0.\nGRID,4,,0.,3.,0.\n"
                               "GRID,5,1,0.,3.,0.\nCQUAD4,1,1,1,2,3,4\nCTRIA3,2,2,1,2,3\nCTRIA3,3,2,1,2,5\n"
                               "CTRIA3,4,3,1,2,3\nCTRIA3,5,9,1,2,3\nCORD2R,1,,0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n"
                               "MAT1,1,1.,,.3,10.\nMAT1,2,1.,,.3,100.\n"
                               "PSHELL,1,1,.5,,,,,.25\nPCOMP,2,,,,,,,SYM\n,1,.5,,,2\n,,.1\nPSHELL,3,1\n";
    Opened const deck(folder.Write("deck.bdf", points));
    struct Case {
        char const* type;
        unsigned int id;
        char const* message;
    };
    // Blanks of a ply are those of the ply before: 3 * 2 * (0.5 * 10 + 0.5 * 100 + 0.1 * 100).
    for (auto const& [type, id, message] :
         {Case{"CTRIA3", 2, "The mass of CTRIA3 2 is 390"},
          {"CQUAD4", 1, "The mass of CQUAD4 1 is 31.5"},
          {"PSHELL", 1, "The mass of PSHELL 1 is 31.5 (1 element)"},
          {"CTRIA3", 3, "Action is not enabled"},
          {"CTRIA3", 4, "Action is not enabled"},
          {"PSHELL", 3, "CTRIA3 4 cannot be weighed: PSHELL 3 has no thickness"},
          {"PCOMP", 2, "CTRIA3 3 cannot be weighed: GRID 5 is given in system 1, not in the basic one"}})
        EXPECT_EQ(deck.Find(type, id)->InvokeAction(Identifier("Mass")).message, message);
}

} // namespace
