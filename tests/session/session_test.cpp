#include "descriptor/ISession.h"

#include "descriptor/Definition.h"
#include "descriptor/Entity.h"
#include "descriptor/EntityList2.h"
#include "descriptor/EntityListBag.h"
#include "descriptor/Metaobject.h"
#include "descriptor/ScriptSession.h"
#include "descriptor/Value.h"
#include "descriptor/Version.h"
#include "descriptor/qzSigSlotHandler.h"
#include "registry/TestRegistry.h"
#include "store/Registry.h"
#include "store/Session.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

using namespace qzDescriptor;

namespace {

Definition EntityDefinition(unsigned int dimension) {
    Definition definition;
    definition.SetValueBasicType(BT_UINT);
    definition.SetValueCompoundType(CT_ENTITY);
    definition.SetArrayDimension(dimension);
    return definition;
}

class Sessions : public testing::Test {
public:
    Sessions() {
        unsigned int const part = Declare("Part", "");
        registry.InsertAttribute(part, Identifier("name"), Definition(), Identifier(), {});
        Declare("Shell", "Part");
        Declare("Quad", "Shell");
        Declare("Node", "");
    }

    unsigned int Declare(qzString const& name, qzString const& parent) {
        return registry.Insert(name, Version(), parent, MetaclassMgr::CONFIG_USAGE_NONE, "");
    }
    Entity Make(qzString const& type) {
        Entity entity;
        EXPECT_EQ(session->Create(EntityFullType(type), entity, Entity(), Identifier()).message, "");
        return entity;
    }

    store::Registry registry;
    ISession* session = registry.GetSession("s");
};

TEST_F(Sessions, KnowTheAncestryOfTypes) {
    Entity const quad = Make("Quad");
    for (char const* const ancestor : {"Quad", "Shell", "Part"})
        EXPECT_TRUE(session->IsA(quad, EntityFullType(ancestor))) << ancestor;
    EXPECT_FALSE(session->IsA(quad, EntityFullType("Node")));
    EXPECT_FALSE(session->IsA(quad, EntityFullType("unknown")));
    EXPECT_EQ(session->GetParentType(EntityFullType("Quad")), EntityFullType("Shell"));
    EXPECT_EQ(session->GetParentType(EntityFullType("Part")), EntityFullType());
    EXPECT_EQ(session->GetParentType(EntityFullType("unknown")), EntityFullType());
    std::vector<Identifier> identifiers;
    EXPECT_EQ(session->GetDatanameIdentifiers(EntityFullType("Quad"), identifiers), 1u);
    EXPECT_EQ(identifiers, std::vector{Identifier("name")});
    EXPECT_EQ(session->GetDatanameIdentifiers(EntityFullType("unknown"), identifiers), 0u);
}

TEST_F(Sessions, ListTheirEntitiesByExactType) {
    Make("Quad");
    Make("Quad");
    Make("Node");
    EntityListBag all;
    EXPECT_EQ(session->GetAllEntities(all), 3u);
    EXPECT_EQ(all.GetIdListCount(EntityFullType("Quad")), 2u);
    EXPECT_EQ(all.GetIdListCount(EntityFullType("Shell")), 0u);
    EntityList quads;
    EXPECT_EQ(session->Collect(quads, EntityFullType("Quad"), ""), 2u);
    EXPECT_EQ(quads, EntityList(EntityFullType("Quad"), {1, 2}, {}));
    EXPECT_NE(session->Get(Entity(EntityFullType("Quad"), 2)), nullptr);
    EXPECT_EQ(session->Get(Entity(EntityFullType("Quad"), 3)), nullptr);
    EXPECT_EQ(session->Get(Entity(EntityFullType(), 1)), nullptr);
}

TEST_F(Sessions, AddWhatAttributesReferToEachOnce) {
    unsigned int const mesh = Declare("Mesh", "");
    EntityFullType const node("Node"), quad("Quad");
    EntityListBag bag;
    bag.SetList(EntityList(node, {9, 2}, {}));
    bag.SetList(EntityList(quad, {1}, {}));
    Value scalar, list, rows, bagged;
    scalar.SetValue(Entity(node, 5));
    list = *Value(ValuePtr::Create(EntityList(node, {2, 0, 2, 3}, {}), DS_DEFAULT)).GetValuePtr();
    rows = *Value(ValuePtr::Create(EntityList2(node, {{3, 4}, {}, {5}}), DS_DEFAULT)).GetValuePtr();
    Value const values[] = {scalar, list, rows};
    Entity object;
    for (unsigned int i = 0; i < 3; ++i)
        registry.InsertAttribute(mesh, Identifier("a" + std::to_string(i)), EntityDefinition(i), Identifier(),
                                 {});
    object = Make("Mesh");
    for (unsigned int i = 0; i < 3; ++i)
        ASSERT_EQ(session->Get(object)->SetValue(Identifier("a" + std::to_string(i)), values[i]).message, "");
    EntityListBag referred;
    referred.SetList(EntityList(node, {1, 3}, {}));
    EXPECT_EQ(session->GetReferred(referred, object), 4u);
    EXPECT_EQ(referred.GetList(node), EntityList(node, {1, 3, 5, 2, 4}, {}));
    EXPECT_EQ(session->GetReferred(referred, Entity(EntityFullType("Mesh"), 99)), 0u);
}

TEST_F(Sessions, AreCopiedWithoutTheirEntitiesListenersAndPlace) {
    store::Registry other;
    std::vector<qzString> ended;
    {
        test::TestSession bare("bare", &registry);
        bare.GetSigSlotHandler()->GetSessionDeletedSignal()->Connect(
            [&](qzString const& name) { ended.push_back(name); });
        {
            test::TestSession copy(bare);
            EXPECT_EQ(copy.GetName(), "bare");
            EXPECT_EQ(copy.GetMetaclassMgr(), &registry);
            EXPECT_NE(copy.GetSigSlotHandler(), bare.GetSigSlotHandler());
        }
        EXPECT_EQ(registry.GetSession("bare"), &bare);
        EXPECT_TRUE(ended.empty());
        test::TestSession assigned("assigned", &other);
        assigned = bare;
        EXPECT_EQ(assigned.GetName(), "bare");
        EXPECT_EQ(other.GetSession("assigned"), &assigned);
    }
    EXPECT_EQ(ended, std::vector<qzString>{"bare"});
    EXPECT_FALSE(other.SetCurrentSession("assigned"));
    EXPECT_FALSE(registry.SetCurrentSession("bare"));
}

TEST_F(Sessions, EndWhateverTheirListenersThrow) {
    session->GetSigSlotHandler()->GetSessionDeletedSignal()->Connect(
        [](qzString const&) { throw std::runtime_error("no"); });
    registry.RemoveSession(session);
    EXPECT_FALSE(registry.SetCurrentSession("s"));
}

TEST_F(Sessions, ListUnderItsTypeWhatAnApplicationGivesNone) {
    class Untyped : public store::Session {
    public:
        using Session::Session;

    protected:
        void P_CollectAll(EntityList& out, EntityFullType const&, std::string const&) const override {
            out = EntityList();
            out.GetList() = {7};
        }
    };
    auto* const untyped = new Untyped("untyped", &registry);
    EntityListBag all;
    EXPECT_EQ(untyped->GetAllEntities(all), 4u);
    EXPECT_EQ(all.GetIdListCount(EntityFullType("Node")), 1u);
}

TEST(SessionsOnSeveralThreads, KeepTheirScriptsApart) {
    RunThreads(4, [](unsigned int) {
        store::Registry own;
        ISession* const session = own.GetSession("s");
        for (int i = 0; i < 1000; ++i) {
            ScriptSessionScope const outer(session);
            ScriptSessionScope const inner(nullptr);
            ASSERT_EQ(GetScriptSession(), nullptr);
            {
                ScriptSessionScope const innermost(session);
                ASSERT_EQ(GetScriptSession(), session);
            }
        }
    });
}

} // namespace
