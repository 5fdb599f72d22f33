#include "descriptor/Content.h"
#include "descriptor/DataInterface.h"
#include "descriptor/Definition.h"
#include "descriptor/Entity.h"
#include "descriptor/EntityList.h"
#include "descriptor/Metaobject.h"
#include "descriptor/ObjectQuery.h"
#include "descriptor/QueryCheck.h"
#include "descriptor/QueryParser.h"
#include "descriptor/Value.h"
#include "descriptor/Version.h"
#include "selexpr/IRequest.h"
#include "store/Registry.h"
#include "store/Session.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <vector>

using namespace qzDescriptor;

namespace {

struct Attribute {
    char const* name;
    BasicType basic;
    unsigned int dimension = 0;
};
constexpr Attribute s_attributes[] = {
    {"flag", BT_BOOL},       {"letter", BT_CHAR}, {"real", BT_DOUBLE}, {"single", BT_FLOAT},
    {"count", BT_INT},       {"text", BT_STRING}, {"octet", BT_UCHAR}, {"size", BT_UINT},
    {"reals", BT_DOUBLE, 1}, {"small", BT_SHORT},
};

class Queries : public testing::Test {
public:
    Queries() {
        unsigned int const ply = registry.Insert("Ply", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
        for (Attribute const& attribute : s_attributes) {
            Definition definition;
            definition.SetValueBasicType(attribute.basic);
            definition.SetArrayDimension(attribute.dimension);
            registry.InsertAttribute(ply, Identifier(attribute.name), definition, Identifier(), {});
        }
    }

    Metaobject const& Make() {
        Entity created;
        EXPECT_EQ(session.Create(type, created, Entity(), Identifier()).message, "");
        return *session.Get(created);
    }
    template <class T>
    static void Set(Metaobject const& object, char const* attribute, T const& value) {
        Value held;
        held.SetValue(value);
        EXPECT_EQ(object.SetValue(Identifier(attribute), held).message, "");
    }
    // The way over contents and that over objects find the same.
    std::vector<unsigned int> Find(std::string const& query) {
        EntityList found, foundByObjects;
        unsigned long long const count = session.Collect(found, type, query);
        EXPECT_EQ(count, found.GetIdListCount());
        EXPECT_EQ(session.ISession::Collect(foundByObjects, type, query), count) << query;
        EXPECT_TRUE(found == foundByObjects) << query;
        return std::vector<unsigned int>(found.begin(), found.end());
    }

    store::Registry registry;
    store::Session& session = dynamic_cast<store::Session&>(*registry.GetSession("s"));
    EntityFullType const type{qzString("Ply")};
};

using Ids = std::vector<unsigned int>;

TEST_F(Queries, CompareEveryTypeInItsOwnWay) {
    Metaobject const& one = Make();
    Make();
    Set(one, "flag", true);
    Set(one, "letter", 'x');
    Set(one, "real", 2.5);
    Set(one, "single", 0.1f);
    Set(one, "count", -7);
    Set(one, "text", qzString("wing rib"));
    Set(one, "octet", static_cast<unsigned char>('y'));
    Set(one, "size", 4294967295u);
    struct {
        char const* query;
        Ids expected;
    } const cases[] = {
        {"", {1, 2}},
        {"flag = true", {1}},
        {"letter = x", {1}},
        {"real > 2 and real <= 2.5", {1}},
        {"single = 0.1", {1}},
        {"count = -7", {1}},
        {"text = \"wing*\"", {1}},
        {"text = WING?RIB", {1}},
        {"text == \"Wing rib\"", {}},
        {"octet = y", {1}},
        {"size = -1", {1}}, // taken as a signed number
        {"size > 0", {}},
        {"size = 0", {2}},
        {"id = 2", {2}},
        {"ID in 1:9", {1, 2}},
        {"2", {2}},
        {"not (id = 2)", {1}},
        {"reals = 0", {}}, // no value, so that no condition holds
        {"reals != 0", {}},
        {"not reals = 0", {1, 2}},
        {"small = 0", {}},
        {"nothing = 0", {}},
        {"real >", {}}, // no query
    };
    for (auto const& c : cases)
        EXPECT_EQ(Find(c.query), c.expected) << c.query;
}

TEST_F(Queries, SayWhatIsWrongWithThem) {
    EXPECT_EQ(CheckQuery(session, type, "").message, "");
    EXPECT_EQ(CheckQuery(session, type, "real > 2 and id in 1:3").message, "");
    EXPECT_EQ(CheckQuery(session, type, "reel > 2"), (qzReturnStatus{-1, "'reel' is no attribute of Ply"}));
    EXPECT_EQ(CheckQuery(session, type, "real > 2 and or").status, -1);
    EXPECT_NE(CheckQuery(session, type, "real > 2 and or").message.find("at 14"), qzString::npos);
    EXPECT_NE(CheckQuery(session, type, "wing").message.find("expected"), qzString::npos); // ids are numbers
    Metaobject const& object = Make();
    Set(object, "real", 1.2);
    EXPECT_NE(ExplainQuery(session, object, "real > 2.5").find("real > 2.5 is false: real is 1.2"),
              qzString::npos)
        << ExplainQuery(session, object, "real > 2.5");
}

TEST_F(Queries, ReadByNameWhatTheyReadInPlace) {
    DataInterface data;
    QueryParser parser(&data, &session, type);
    Metaobject const& object = Make();
    Set(object, "size", 4294967295u);
    qzVariant value;
    long long number = 0;
    EXPECT_TRUE(data.GetValue(const_cast<Metaobject*>(&object), "size", value));
    EXPECT_TRUE(value.GetLong64(number));
    EXPECT_EQ(number, -1);
    value.Clear();
    EXPECT_TRUE(data.GetValue(const_cast<Metaobject*>(&object), "reals", value));
    EXPECT_TRUE(value.IsEmpty());
    EXPECT_FALSE(data.GetValue(const_cast<Metaobject*>(&object), "nothing", value));
    EXPECT_FALSE(data.GetValue(nullptr, "id", value));
    for (char const* const query : {"size = -1", "iD = 1", "flag = false and text = ''"}) {
        std::unique_ptr<ui::selexpr::IRequest> const request(parser.Parse(query));
        ASSERT_NE(request, nullptr) << parser.GetError().message;
        EXPECT_TRUE(request->Matches(const_cast<Metaobject*>(&object))) << query;
        EXPECT_FALSE(request->Matches(nullptr)) << query;
    }
}

TEST_F(Queries, SeeAnAttributeThatOneObjectHasOtherwise) {
    Metaobject const& plain = Make();
    Metaobject const& special = Make();
    Set(plain, "count", 3);
    Definition text;
    text.SetValueBasicType(BT_STRING);
    auto& content = const_cast<Content&>(*special.GetContent());
    ASSERT_TRUE(content.ReplaceDefinition(4, std::make_shared<Definition const>(text)));
    Set(special, "count", qzString("3"));
    EXPECT_EQ(Find("count = 3"), (Ids{1, 2}));
    // What does not even fit the object's own definition has no value.
    ASSERT_TRUE(content.SetValueUnchecked(4, Value(3.0)));
    EXPECT_EQ(Find("count = 3"), (Ids{1}));
    // A list has no value, even where the others have one number.
    Definition list;
    list.SetValueBasicType(BT_INT);
    list.SetArrayDimension(1);
    ASSERT_TRUE(content.ReplaceDefinition(4, std::make_shared<Definition const>(list)));
    ASSERT_EQ(content.SetValue(4, Content::MakeValue(qzStlVector<int>{3})).message, "");
    EXPECT_EQ(Find("count = 3"), (Ids{1}));
}

TEST_F(Queries, FindTheAttributesOfADescendantWhereItHasThem) {
    Definition number;
    number.SetValueBasicType(BT_INT);
    unsigned int const ply = registry.GetMetaclassHandle(type);
    unsigned int const core = registry.Insert("Core", Version(), "Ply", MetaclassMgr::CONFIG_USAGE_NONE, "");
    registry.InsertAttribute(core, Identifier("own"), number, Identifier(), {});
    registry.InsertAttribute(ply, Identifier("later"), number, Identifier(), {});
    Entity created;
    ASSERT_EQ(session.Create(EntityFullType("Core"), created, Entity(), Identifier()).message, "");
    Metaobject const& object = *session.Get(created);
    Set(object, "own", 4);
    Set(object, "later", 5);
    EXPECT_TRUE(ObjectQuery(session, type, "later = 5").Matches(&object));
    EXPECT_FALSE(ObjectQuery(session, type, "later = 4").Matches(&object));
    EXPECT_EQ(ObjectQuery(session, type, "later = 4").Explain(&object).GetText(),
              "later = 4 is false: later is 5");
}

TEST_F(Queries, AreAskedOfWhatADerivedSessionLists) {
    struct Hiding : store::Session {
        using Session::Session;
        void P_CollectAll(EntityList& out, EntityFullType const& of,
                          std::string const& query) const override {
            Session::P_CollectAll(out, of, query);
            out.GetList().erase(out.GetList().begin());
        }
    } hiding("hiding", &registry);
    Entity created;
    for (int i = 0; i < 3; ++i)
        hiding.Create(type, created, Entity(), Identifier());
    EntityList found;
    EXPECT_EQ(hiding.Collect(found, type, "id < 3"), 1u);
    EXPECT_EQ(found.GetList().front(), 2u);
}

TEST_F(Queries, CanBeAskedOfOneObjectAfterTheOther) {
    Metaobject const& object = Make();
    Set(object, "real", 3.0);
    ObjectQuery const thick(session, type, "real > 2 and id = 7");
    EXPECT_TRUE(thick.IsValid());
    EXPECT_EQ(thick.GetAttributes(), (std::vector<unsigned int>{3}));
    EXPECT_FALSE(thick.Matches(&object));
    EXPECT_TRUE(thick.Matches(*object.GetContent(), 7));
    EXPECT_FALSE(thick.Matches(nullptr));
    EXPECT_FALSE(ObjectQuery(session, type, "").IsValid());
    ObjectQuery const broken(session, type, "real >");
    EXPECT_FALSE(broken.IsValid() || broken.Matches(&object) || broken.Matches(*object.GetContent(), 7));
    EXPECT_TRUE(broken.Explain(&object).reasons.empty());
}

TEST_F(Queries, FindWhatAPlainLoopFinds) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    struct Ply {
        double real;
        int count;
        unsigned int size;
        std::string text;
    };
    std::vector<Ply> plies;
    char const* const words[] = {"wing", "tail", "Wing tip", ""};
    for (int i = 0; i < 500; ++i) {
        Metaobject const& object = Make();
        plies.push_back({random.Below(8) / 2.0, static_cast<int>(random.Below(9)) - 4,
                         random.Chance(2) ? random.Below(5) : 0xFFFFFFF0u + random.Below(16),
                         random.Pick(words)});
        Set(object, "real", plies.back().real);
        Set(object, "count", plies.back().count);
        Set(object, "size", plies.back().size);
        if (!plies.back().text.empty())
            Set(object, "text", plies.back().text);
    }
    std::vector<bool> isGone(plies.size());
    for (std::size_t p = 0; p < plies.size(); ++p) {
        isGone[p] = random.Chance(5);
        if (isGone[p])
            session.Delete(Entity(type, static_cast<unsigned int>(p + 1)));
    }
    using Condition = std::pair<std::string, std::function<bool(Ply const&)>>;
    std::function<Condition(int)> const make = [&](int depth) -> Condition {
        unsigned int const kind = random.Below(depth > 0 ? 7 : 4);
        if (kind == 0) {
            unsigned int const halves = random.Below(8);
            return {"real > " + std::to_string(halves / 2) + (halves % 2 == 0 ? ".0" : ".5"),
                    [=](Ply const& p) { return p.real > halves / 2.0; }};
        }
        if (kind == 1) {
            int const first = static_cast<int>(random.Below(5)) - 3;
            return {"count in " + std::to_string(first) + ":" + std::to_string(first + 2),
                    [=](Ply const& p) { return p.count >= first && p.count <= first + 2; }};
        }
        if (kind == 2) {
            int const limit = static_cast<int>(random.Below(9)) - 4;
            return {"size <= " + std::to_string(limit),
                    [=](Ply const& p) { return static_cast<int>(p.size) <= limit; }};
        }
        if (kind == 3)
            return {"text = 'wing*'", [](Ply const& p) { return p.text == "wing" || p.text == "Wing tip"; }};
        Condition const a = make(depth - 1);
        if (kind == 4)
            return {"not (" + a.first + ")", [=](Ply const& p) { return !a.second(p); }};
        Condition const b = make(depth - 1);
        bool const isAnd = kind == 5;
        return {"(" + a.first + (isAnd ? ") and (" : ") or (") + b.first + ")", [=](Ply const& p) {
                    return isAnd ? a.second(p) && b.second(p) : a.second(p) || b.second(p);
                }};
    };
    for (int i = 0; i < 200; ++i) {
        Condition const condition = make(3);
        Ids expected;
        for (std::size_t p = 0; p < plies.size(); ++p) {
            if (!isGone[p] && condition.second(plies[p]))
                expected.push_back(static_cast<unsigned int>(p + 1));
        }
        ASSERT_EQ(Find(condition.first), expected) << condition.first;
    }
}

} // namespace
