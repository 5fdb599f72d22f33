#include "descriptor/Allowables.h"
#include "descriptor/DataOperationList.h"
#include "descriptor/Definition.h"
#include "descriptor/Entity.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/Value.h"
#include "descriptor/Version.h"
#include "descriptor/qzSigSlotHandler.h"
#include "store/Object.h"
#include "store/Registry.h"
#include "store/Session.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace qzDescriptor;

namespace {

Definition Thickness() {
    Definition definition;
    definition.SetValueBasicType(BT_DOUBLE);
    definition.SetAllowables(Allowables(BoundT<double>(0.0, BoundT<double>::Greater), 1.0));
    return definition;
}

/// Laminates own plies under "plies" and further laminates under "parts".
class LaminateRegistry : public store::Registry {
public:
    LaminateRegistry() {
        unsigned int const laminate = P_Declare("Laminate", ""), ply = P_Declare("Ply", "");
        P_Declare("Special ply", "Ply");
        for (char const* const name : {"plies", "parts"})
            InsertAttribute(laminate, Identifier(name), Definition(), Identifier(), {});
        for (unsigned int const metaclass : {laminate, ply})
            InsertAttribute(metaclass, Identifier("T"), Thickness(), Identifier(), {});
        Definition text;
        text.SetValueBasicType(BT_STRING);
        InsertAttribute(ply, Identifier("name"), text, Identifier(), {});
        SetOwnership(ply, laminate, FindAttributeHandle(laminate, Identifier("plies"), 0, false));
        SetOwnership(ply, laminate, FindAttributeHandle(laminate, Identifier("parts"), 0, false));
    }

private:
    unsigned int P_Declare(qzString const& name, qzString const& parent) {
        return Insert(name, Version(), parent, CONFIG_USAGE_NONE, "");
    }
};

class Store : public testing::Test {
public:
    Store() {
        session.GetSigSlotHandler()->GetEntityEventSignal()->Connect(
            [this](EntityEventInfo const& event) { events.push_back(event); });
    }

    LaminateRegistry registry;
    store::Session& session = dynamic_cast<store::Session&>(*registry.GetSession("s"));
    std::vector<EntityEventInfo> events;
};

EntityEventInfo Event(ENTITY_EVENT_TYPE what, char const* type, qzStlVector<unsigned int> const& ids,
                      Identifier const& attribute = Identifier()) {
    EntityEventInfo event;
    event.SetEventType(what);
    event.SetEntityType(EntityFullType(type));
    event.AddEntityIdList(ids);
    event.SetIdentifier(attribute);
    return event;
}

double GetThickness(ISession const& session, Entity const& entity) {
    ValuePtr const* value = nullptr;
    double thickness = -1;
    if (Metaobject const* const object = session.Get(entity); object->GetValue(Identifier("T"), value))
        value->GetValue(thickness, 0u, 0u);
    return thickness;
}

TEST_F(Store, TellsOfEverythingThatHappenedAndOfNothingThatDidNot) {
    Identifier const none, plies("plies"), t("T");
    EntityFullType const laminate("Laminate"), ply("Ply");
    Entity owner, first, second;
    ASSERT_EQ(session.CreateWithId(laminate, 10, owner, Entity(), none).message, "");
    ASSERT_EQ(session.Create(ply, first, owner, plies).message, "");
    ASSERT_EQ(session.Create(EntityFullType("Special ply"), second, owner, plies).message, "");
    ASSERT_EQ(session.Get(first)->SetValue(t, Value(2.5)).message, "");
    EXPECT_EQ(session.Get(first)->SetValue(t, Value(-1.0)).message, "Input of -1 violates: VALUE > 0");
    EXPECT_EQ(GetThickness(session, first), 2.5);
    EXPECT_EQ(GetThickness(session, second), 1);
    EXPECT_NE(session.Get(first)->SetValue(Identifier("E"), Value(1.0)).status, 0);
    EXPECT_EQ(session.CreateWithId(laminate, 10, first, Entity(), none).message, "The id 10 is taken.");
    EXPECT_EQ(session.CreateWithId(laminate, 0, first, Entity(), none).message,
              "An entity cannot have the id 0.");
    EXPECT_EQ(session.Create(ply, first, Entity(laminate, 11), plies).message, "The owner does not exist.");
    EXPECT_EQ(session.Delete(Entity(laminate, 11)).message, "The entity does not exist.");
    ASSERT_EQ(session.Get(first)->SetValueFromString(t, "3.5", "").message, "");
    ASSERT_EQ(session.Delete(owner).message, "");
    std::vector<EntityEventInfo> const expected = {
        Event(ENTITY_EVENT_CREATED, "Laminate", {10}),   Event(ENTITY_EVENT_CREATED, "Ply", {1}),
        Event(ENTITY_EVENT_CREATED, "Special ply", {1}), Event(ENTITY_EVENT_CHANGED, "Ply", {1}, t),
        Event(ENTITY_EVENT_CHANGED, "Ply", {1}, t),      Event(ENTITY_EVENT_DELETED, "Laminate", {10}),
        Event(ENTITY_EVENT_DELETED, "Ply", {1}),         Event(ENTITY_EVENT_DELETED, "Special ply", {1}),
    };
    EXPECT_EQ(events, expected);
}

/// What a session should hold, in the plainest form.
struct Model {
    struct Laminate {
        unsigned int id;
        unsigned int owner; // 0 for none
        char const* under;
        double thickness = 1;
    };

    std::vector<Laminate> laminates; // in the order of their creation

    Laminate* Find(unsigned int id) {
        auto const found = std::ranges::find(laminates, id, &Laminate::id);
        return found != laminates.end() ? &*found : nullptr;
    }
    void Delete(unsigned int id) {
        std::erase_if(laminates, [&](Laminate const& each) { return each.id == id; });
        std::vector<unsigned int> owned;
        for (Laminate const& each : laminates) {
            if (each.owner == id)
                owned.push_back(each.id);
        }
        for (unsigned int const each : owned)
            Delete(each);
    }
    template <class Test>
    qzStlVector<unsigned int> List(Test&& test) const {
        qzStlVector<unsigned int> ids;
        for (Laminate const& each : laminates) {
            if (test(each))
                ids.push_back(each.id);
        }
        return ids;
    }
};

TEST(StoreOverALongRun, AgreesWithAPlainModel) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    EntityFullType const type("Laminate");
    Identifier const names[] = {Identifier("plies"), Identifier("parts")};
    store::Registry registry;
    unsigned int const laminate =
        registry.Insert("Laminate", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    unsigned int const base = registry.Insert("Base", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    registry.InsertAttribute(laminate, Identifier("T"), Thickness(), Identifier(), {});
    for (Identifier const& name : names)
        registry.SetOwnership(laminate, laminate,
                              registry.InsertAttribute(laminate, name, Definition(), Identifier(), {}));
    registry.SetOwnership(laminate, base,
                          registry.InsertAttribute(base, names[0], Definition(), Identifier(), {}));
    auto& session = dynamic_cast<store::Session&>(*registry.GetSession("s"));
    Entity root; // owns what no laminate does
    ASSERT_EQ(session.Create(EntityFullType("Base"), root, Entity(), Identifier()).message, "");

    Model model;
    auto const pick = [&] { return model.laminates.empty() ? 999 : random.Pick(model.laminates).id; };
    for (int step = 0; step < 6000; ++step) {
        unsigned int const id = random.Chance(8) ? 1 + random.Below(400) : pick();
        // Mostly growth, then mostly decline.
        switch (random.Below(step % 2000 < 1200 ? 5 : 9)) {
        case 0:
        case 1:
        case 2: {
            Entity const owner = random.Chance(3) ? root : Entity(type, id);
            unsigned int const under = owner == root ? 0 : random.Below(2);
            unsigned int const newId = 1 + random.Below(400);
            bool const works = (owner == root || model.Find(id)) && !model.Find(newId);
            Entity created;
            ASSERT_EQ(session.CreateWithId(type, newId, created, owner, names[under]).status == 0, works);
            if (works)
                model.laminates.push_back({newId, owner == root ? 0 : id, under == 0 ? "plies" : "parts"});
            break;
        }
        case 3:
        case 4: {
            Model::Laminate* const found = model.Find(id);
            Metaobject const* const object = session.Get(Entity(type, id));
            ASSERT_EQ(object != nullptr, found != nullptr);
            double const thickness = random.Below(10) - 2.0;
            if (found && object->SetValue(Identifier("T"), Value(thickness)).status == 0)
                found->thickness = thickness;
            break;
        }
        default:
            if (model.laminates.size() > 20) {
                ASSERT_EQ(session.Delete(Entity(type, id)).status == 0, model.Find(id) != nullptr);
                model.Delete(id);
            }
        }
        if (step % 50 != 0)
            continue;
        EntityList all, owned;
        session.Collect(all, type, "");
        ASSERT_EQ(all.GetList(), model.List([](auto const&) { return true; }));
        ASSERT_EQ(session.GetCount(type), model.laminates.size());
        unsigned int const owner = pick();
        session.GetOwnedList(Entity(type, owner), type, names[1], owned);
        ASSERT_EQ(owned.GetList(), model.List([&](auto const& each) {
            return each.owner == owner && each.under == std::string("parts");
        }));
        session.GetOwnedList(Entity(type, owner), type, Identifier(), owned);
        ASSERT_EQ(owned.GetList(), model.List([&](auto const& each) { return each.owner == owner; }));
        for (Model::Laminate const& each : model.laminates) {
            Entity found;
            Identifier under;
            ASSERT_TRUE(session.GetOwner(Entity(type, each.id), found, under));
            ASSERT_EQ(found, each.owner == 0 ? root : Entity(type, each.owner));
            ASSERT_EQ(under.GetNameKey(), each.under);
            ASSERT_EQ(GetThickness(session, Entity(type, each.id)), each.thickness);
        }
    }
}

TEST_F(Store, LetsListenersEndWhatTheyAreToldOf) {
    Entity laminate, ply;
    Identifier const none, t("T");
    ASSERT_EQ(session.Create(EntityFullType("Laminate"), laminate, Entity(), none).message, "");
    bool endSession = false;
    session.GetSigSlotHandler()->GetEntityEventSignal()->Connect([&](EntityEventInfo const& event) {
        if (endSession)
            registry.RemoveSession(&session);
        else if (event.GetEventType() == ENTITY_EVENT_CHANGED)
            session.Delete(laminate);
    });
    EXPECT_EQ(session.Get(laminate)->SetValue(t, Value(2.0)).message, "");
    EXPECT_EQ(session.Get(laminate), nullptr);
    ASSERT_EQ(session.Create(EntityFullType("Laminate"), laminate, Entity(), none).message, "");
    ASSERT_EQ(session.Create(EntityFullType("Ply"), ply, laminate, Identifier("plies")).message, "");
    endSession = true;
    EXPECT_EQ(session.Delete(laminate).message, ""); // two events, of which the first is the last
    EXPECT_FALSE(registry.SetCurrentSession("s"));
}

TEST_F(Store, TellsWhenNewAllowedValuesChangeAValue) {
    Entity laminate;
    Identifier const none, t("T");
    ASSERT_EQ(session.Create(EntityFullType("Laminate"), laminate, Entity(), none).message, "");
    store::Object* const object = session.GetObject(laminate);
    ASSERT_EQ(object->SetValue(t, Value(2.0)).message, "");
    events.clear();
    Allowables const above3(BoundT<double>(3.0, BoundT<double>::Greater), 7.0);
    EXPECT_TRUE(object->SetAllowables(t, above3));
    EXPECT_EQ(GetThickness(session, laminate), 7);
    EXPECT_EQ(events, (std::vector<EntityEventInfo>{Event(ENTITY_EVENT_CHANGED, "Laminate", {1}, t)}));
    // Its own allowed values once more, by reference: nothing changes, nothing is told.
    EXPECT_TRUE(object->SetAllowables(t, object->GetDefinition(t)->GetAllowables()));
    EXPECT_EQ(events.size(), 1u);
}

TEST_F(Store, ListsATypeThatIsTheListsOwn) {
    Entity laminate;
    ASSERT_EQ(session.Create(EntityFullType("Laminate"), laminate, Entity(), Identifier()).message, "");
    EntityList list;
    session.Collect(list, EntityFullType("Laminate"), "");
    EXPECT_EQ(session.Collect(list, list.GetEntityFullType(), "id = 1"), 1u);
}

TEST(StoreOfAnOddRegistry, RefusesWhatIsNoMetaclass) {
    class Odd : public store::Registry {
    public:
        unsigned int GetMetaclassHandle(EntityFullType) const override { return answer; }
        unsigned int answer = 0;
    };
    Odd registry;
    registry.Insert("Plate", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    Entity created;
    for (unsigned int const handle : {99u, 2'000'000'000u, 0xFFFFFFFFu}) {
        registry.answer = handle;
        EXPECT_EQ(registry.GetSession("s")
                      ->Create(EntityFullType("Plate"), created, Entity(), Identifier())
                      .message,
                  "There is no metaclass Plate.");
    }
}

TEST(StoreOfAnOddRegistry, FindsNoMenuAboveAnUnnamedMetaclass) {
    store::Registry registry;
    unsigned int const unnamed = registry.Insert("", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    unsigned int const plate = registry.Insert("Plate", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    DataOperationList menu;
    EXPECT_FALSE(registry.GetDataOperations(unnamed, menu));
    EXPECT_FALSE(registry.GetDataOperations(plate, menu));
}

TEST_F(Store, FindsByNameAndAmongDescendants) {
    Entity laminate, found;
    ASSERT_EQ(session.Create(EntityFullType("Laminate"), laminate, Entity(), Identifier()).message, "");
    for (char const* const type : {"Ply", "Special ply", "Ply"}) {
        Entity ply;
        ASSERT_EQ(session.Create(EntityFullType(type), ply, laminate, Identifier("plies")).message, "");
        session.Get(ply)->SetValue(Identifier("name"), Value(qzString(type) + std::to_string(ply.GetId())));
    }
    EXPECT_TRUE(session.Find(EntityFullType("Ply"), "Ply2", found));
    EXPECT_EQ(found, Entity(EntityFullType("Ply"), 2));
    EXPECT_FALSE(session.Find(EntityFullType("Special ply"), "Ply2", found));
    EntityListBag instances;
    EXPECT_EQ(session.CollectInstances(instances, EntityFullType("Ply"), ""), 3u);
    EXPECT_EQ(instances.GetIdListCount(EntityFullType("Special ply")), 1u);
    EXPECT_EQ(session.CollectInstances(instances, EntityFullType("nothing"), ""), 0u);
}

TEST_F(Store, GivesMenusToDescendants) {
    DataOperationList operations;
    Entity laminate, ply;
    ASSERT_EQ(session.Create(EntityFullType("Laminate"), laminate, Entity(), Identifier()).message, "");
    ASSERT_EQ(session.Create(EntityFullType("Special ply"), ply, laminate, Identifier("plies")).message, "");
    EXPECT_FALSE(session.Get(ply)->GetDataOperations(operations));
    EXPECT_FALSE(registry.SetDataOperations(99, operations));
    operations.PushBack(DataOperation("Renumber", "renumber", true, ""));
    EXPECT_TRUE(registry.SetDataOperations(registry.FindHandle("Ply"), operations));
    DataOperationList inherited;
    EXPECT_TRUE(session.Get(ply)->GetDataOperations(inherited));
    EXPECT_EQ(inherited, operations);
    EXPECT_FALSE(session.Get(laminate)->GetDataOperations(inherited));
}

} // namespace
