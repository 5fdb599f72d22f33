#include "registry/TestRegistry.h"

#include <gmock/gmock.h>

namespace qzDescriptor::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Handles = qzStlVector<unsigned int>;

constexpr auto s_subMember = MetaclassMgr::CONFIG_USAGE_SUBMEMBER;
constexpr auto s_ownMembers = MetaclassMgr::CONFIG_USAGE_OWN_MEMBERS;

TEST(Metaclasses, AreRegisteredOnceUnderAnyName) {
    TestRegistry registry;
    qzString const names[] = {"Part", "", qzString("Pa\0rt", 5), "part", "Part ", "\xff\xfe"};
    unsigned int handle = 0;
    for (qzString const& name : names)
        EXPECT_EQ(registry.Insert(name), ++handle);
    for (qzString const& name : names)
        EXPECT_EQ(registry.Insert(name), 0U);
    EXPECT_EQ(registry.GetHandlesCount(), 6U);
    EXPECT_EQ(registry.FindHandle(qzString("Pa\0rt", 5)), 3U);
    EXPECT_EQ(registry.FindHandle("Pa"), 0U);

    unsigned int const shell =
        registry.MetaclassMgr::Insert("Shell", Version("1.2.3"), "Part", s_subMember, "no such");
    qzString name, parent("unchanged");
    Version version;
    EXPECT_TRUE(registry.GetNameAndOfParent(shell, name, parent));
    EXPECT_EQ(name + "<" + parent, "Shell<Part");
    EXPECT_TRUE(registry.GetVersion(shell, version));
    EXPECT_EQ(version, Version("1.2.3"));
    EXPECT_EQ(registry.GetConfigUsage(shell), s_subMember);
    for (unsigned int const none : {0U, 8U, 0xFFFFFFFFU}) {
        EXPECT_FALSE(registry.GetNameAndOfParent(none, name, parent));
        EXPECT_FALSE(registry.GetVersion(none, version));
        EXPECT_EQ(registry.GetConfigUsage(none), MetaclassMgr::CONFIG_USAGE_NONE);
        EXPECT_EQ(registry.GetMembers(none, 0), nullptr);
    }
    EXPECT_EQ(name + "<" + parent, "Shell<Part");
}

TEST(Metaclasses, KnowTheirAncestorsAndDescendants) {
    TestRegistry registry;
    for (auto const& [name, parent] :
         {std::pair("Part", ""), {"Shell", "Part"}, {"Quad", "Shell"}, {"Bolt", "Part"}, {"Node", "no such"}})
        registry.Insert(name, parent);
    struct {
        unsigned int metaclass, ancestor;
        bool answer;
    } const cases[] = {{1, 1, true},  {3, 1, true},  {3, 2, true},  {1, 3, false},
                       {5, 1, false}, {0, 0, false}, {0, 1, false}, {3, 0, false},
                       {9, 9, false}, {9, 1, false}, {4, 2, false}};
    for (auto const& [metaclass, ancestor, answer] : cases)
        EXPECT_EQ(registry.CheckParent(metaclass, ancestor), answer) << metaclass << " " << ancestor;

    Handles found;
    EXPECT_TRUE(registry.FindChildrenHandles(1, found, false, false));
    EXPECT_THAT(found, ElementsAre(2, 4));
    EXPECT_TRUE(registry.FindChildrenHandles(1, found, true, false));
    EXPECT_THAT(found, ElementsAre(2, 3, 4));
    EXPECT_TRUE(registry.FindChildrenHandles(1, found, true, true));
    EXPECT_THAT(found, ElementsAre(1, 2, 3, 4));
    EXPECT_TRUE(registry.FindChildrenHandles(3, found, true, false));
    EXPECT_THAT(found, IsEmpty());
    found = {7};
    EXPECT_FALSE(registry.FindChildrenHandles(6, found, true, true));
    EXPECT_THAT(found, IsEmpty());

    // A metaclass without a name is the parent that roots name, itself included.
    registry.Insert("");
    EXPECT_TRUE(registry.CheckParent(3, 6));
    EXPECT_FALSE(registry.CheckParent(6, 3));
    EXPECT_TRUE(registry.FindChildrenHandles(6, found, true, false));
    EXPECT_THAT(found, ElementsAre(1, 2, 3, 4, 5));
}

TEST(Configurations, HaveNamesAndNumbersOfTheirOwn) {
    TestRegistry registry;
    EXPECT_EQ(registry.InsertConfig(registry.Insert("Plain"), "a", "", 0), 0U);
    EXPECT_EQ(registry.InsertConfig(9, "a", "", 0), 0U);
    unsigned int const part = registry.Insert("Part", "", s_ownMembers);
    unsigned int count = 7, number = 7;
    EXPECT_FALSE(registry.GetConfigHandlesCount(part, count));
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(registry.InsertConfig(part, "a", "", 1), 1U);
    EXPECT_EQ(registry.InsertConfig(part, "b", "a", 3), 2U);
    EXPECT_EQ(registry.InsertConfig(part, "c", "no such", 0), 3U);
    EXPECT_EQ(registry.InsertConfig(part, "", "", 0), 4U);
    EXPECT_EQ(registry.InsertConfig(part, "a", "", 9), 0U);
    EXPECT_EQ(registry.InsertConfig(part, "d", "", 3), 0U);
    unsigned int const numbers[] = {0, 1, 3, 2, 4, 0};
    for (unsigned int config = 0; config < 6; ++config) {
        EXPECT_EQ(registry.GetConfigNumber(part, config, number), numbers[config] != 0);
        EXPECT_EQ(number, numbers[config]);
    }
    EXPECT_EQ(registry.FindConfigHandle(part, 3U), 2U);
    EXPECT_EQ(registry.FindConfigHandle(part, 0U), 0U);
    EXPECT_EQ(registry.FindConfigHandle(part, "c"), 3U);
    EXPECT_EQ(registry.FindConfigHandle(part, ""), 4U);
    EXPECT_TRUE(registry.GetConfigHandlesCount(part, count));
    EXPECT_EQ(count, 4U);
    qzString name, parent;
    EXPECT_FALSE(registry.GetConfigNameAndOfParent(part, 0, name, parent));
    EXPECT_FALSE(registry.GetConfigNameAndOfParent(part, 5, name, parent));
    EXPECT_TRUE(registry.GetConfigNameAndOfParent(part, 3, name, parent));
    EXPECT_EQ(name + "<" + parent, "c<no such");
    EXPECT_EQ(registry.GetMembers(part, 2)->GetParent(), registry.GetMembers(part, 1));
    EXPECT_EQ(registry.GetMembers(part, 3)->GetParent(), registry.GetMembers(part, 0));
}

// What sets refuse otherwise, and what they then hold, is compared with a model elsewhere.
TEST(Attributes, NeedADefinition) {
    TestRegistry registry;
    unsigned int const part = registry.Insert("Part");
    std::shared_ptr<Definition const> const none;
    EXPECT_EQ(registry.MetaclassMgr::InsertAttribute(part, Identifier("x"), none, Identifier(), {}), 0U);
    EXPECT_EQ(registry.GetMembers(part, 0)->GetVariableCount(), 0U);
}

TEST(Ownership, KeepsEveryRule) {
    TestRegistry registry;
    unsigned int const part = registry.Insert("Part", "", s_subMember);
    registry.InsertConfig(part, "few", "", 0);
    for (char const* const name : {"a", "b", "c"})
        registry.InsertAttribute(part, name);
    registry.InsertAttributesIntoConfig(part, 1, {3, 2});
    Handles list{9};
    std::map<unsigned int, Handles> owners{{9, {}}};
    EXPECT_FALSE(registry.GetOwnership(2, part, list));
    EXPECT_FALSE(registry.GetOwnership(2, owners));
    EXPECT_EQ(owners.size(), 1U);
    EXPECT_FALSE(registry.GetOwnerAttributeHandles(part, list, 0));
    list = {9};
    for (unsigned int const attribute : {3U, 2U, 3U, 0U, 44U})
        EXPECT_TRUE(registry.SetOwnership(2, part, attribute));
    registry.SetOwnership(5, 4, 1);
    EXPECT_TRUE(registry.GetOwnership(2, 7, list));
    EXPECT_THAT(list, ElementsAre(9));
    EXPECT_TRUE(registry.GetOwnership(2, part, list));
    EXPECT_THAT(list, ElementsAre(9, 3, 2, 3, 0, 44));
    EXPECT_TRUE(registry.GetOwnership(2, owners));
    EXPECT_THAT(owners, ElementsAre(std::pair(part, Handles{3, 2, 3, 0, 44})));
    EXPECT_TRUE(registry.GetOwnerAttributeHandles(part, list, 0));
    EXPECT_THAT(list, ElementsAre(2, 3));
    EXPECT_TRUE(registry.GetOwnerAttributeHandles(part, list, 1));
    EXPECT_THAT(list, ElementsAre(1, 2));
    EXPECT_FALSE(registry.GetOwnerAttributeHandles(part, list, 2));
    EXPECT_THAT(list, IsEmpty());
}

/// Numbers the types that it knows.
class NumberedRegistry : public TestRegistry {
public:
    using MetaclassMgr::GetEntityFullTypeFromMetaclass;
    bool GetEntityFullTypeFromMetaclass(unsigned int metaclass, EntityFullType& type) const override {
        type = EntityFullType(100 + metaclass);
        return metaclass != 2;
    }
    bool GetMetaclass(EntityFullType type, qzString& name) const override {
        qzString parent;
        return GetNameAndOfParent(type.GetTypeNumeric() - 100, name, parent);
    }
};

TEST(EntityTypes, AreTheNamesOfMetaclassesUnlessTheApplicationSaysOtherwise) {
    TestRegistry registry;
    NumberedRegistry numbered;
    for (char const* const name : {"Part", "Node"}) {
        registry.Insert(name);
        numbered.Insert(name);
    }
    EntityFullType type(7);
    EXPECT_FALSE(registry.GetEntityFullTypeFromMetaclass("no such", type));
    EXPECT_EQ(type, EntityFullType(7));
    EXPECT_TRUE(registry.GetEntityFullTypeFromMetaclass("Node", type));
    EXPECT_EQ(type, EntityFullType("Node"));
    EXPECT_EQ(registry.RegisterMetaclass(1), EntityFullType("Part"));
    EXPECT_TRUE(registry.GetEntityFullTypeFromMetaclass(3, type));
    EXPECT_EQ(type, EntityFullType());
    EXPECT_EQ(registry.GetMetaclassHandle(EntityFullType("Node", 5)), 2U);
    EXPECT_EQ(registry.GetMetaclassHandle(EntityFullType(101)), 0U);
    EXPECT_EQ(registry.GetMetaclassHandle(EntityFullType("node")), 0U);

    EXPECT_TRUE(numbered.MetaclassMgr::GetEntityFullTypeFromMetaclass("Part", type));
    EXPECT_EQ(type, EntityFullType(101));
    EXPECT_EQ(numbered.GetMetaclassHandle(EntityFullType(102)), 2U);
    qzStlVector<EntityFullType> types(1);
    EXPECT_TRUE(registry.GetRegisteredEntityFullTypes(types));
    EXPECT_TRUE(numbered.GetRegisteredEntityFullTypes(types));
    EXPECT_THAT(types, ElementsAre(EntityFullType(), EntityFullType("Part"), EntityFullType("Node"),
                                   EntityFullType(101)));
    EXPECT_FALSE(TestRegistry().GetRegisteredEntityFullTypes(types));
}

TEST(Identifiers, AreNamedBySecondaryOnes) {
    TestRegistry registry;
    unsigned int const part = registry.Insert("Part");
    auto const insert = [&](Identifier const& id, Identifier const& secondary) {
        return registry.MetaclassMgr::InsertAttribute(part, id, Definition(), secondary, {});
    };
    insert(Identifier("T"), Identifier(7));
    insert(Identifier(8), Identifier("E"));
    insert(Identifier(9), Identifier());
    EntityFullType const type("Part");
    EXPECT_EQ(registry.FindAttributeHandle(part, Identifier(7), 0, false), 0U);
    EXPECT_EQ(registry.FindAttributeHandle(part, Identifier(7), 0, true), 1U);
    EXPECT_EQ(registry.GetNamedIdentifier(type, Identifier(7)), Identifier("T"));
    EXPECT_EQ(registry.GetNamedIdentifier(type, Identifier(8)), Identifier("E"));
    for (Identifier const& same : {Identifier(9), Identifier(10), Identifier("E"), Identifier()})
        EXPECT_EQ(registry.GetNamedIdentifier(type, same), same);
    EXPECT_EQ(registry.GetIdentifier(part, 1, 0, true), Identifier(7));
    EXPECT_FALSE(registry.GetIdentifier(part, 3, 0, true).IsValid());
    EXPECT_EQ(&registry.GetIdentifier(part, 0, 0, false), &registry.GetIdentifier(part, 0, 0, true));
    EXPECT_EQ(&registry.GetIdentifier(0, 1, 0, false), &registry.GetIdentifier(9, 1, 0, true));
}

TEST(HandedOut, StaysValidWhileOthersAreRegistered) {
    TestRegistry registry;
    unsigned int const part = registry.Insert("Part", "", s_subMember);
    registry.InsertConfig(part, "few", "", 0);
    registry.InsertConfig(part, "derived", "few", 0);
    unsigned int const shell = registry.Insert("Shell", "Part");
    registry.MetaclassMgr::InsertAttribute(part, Identifier("T"), NamedDefinition("thickness"), Identifier(7),
                                           {1});
    struct HandedOutOf {
        Members const* members;
        Definition const* definition;
        Identifier const* id;
        Identifier const* secondary;
        ValuePtr const* value;
    };
    std::vector<HandedOutOf> all;
    for (auto const& [metaclass, config] : {std::pair(part, 0U), {part, 1U}, {part, 2U}, {shell, 0U}}) {
        Members const* const members = registry.GetMembers(metaclass, config);
        all.push_back({members, registry.GetDefinition(metaclass, 1, config),
                       &registry.GetIdentifier(metaclass, 1, config, false),
                       &registry.GetIdentifier(metaclass, 1, config, true), members->GetDefaultValue(0)});
    }
    std::shared_ptr<Definition const> const other = std::make_shared<Definition const>();
    for (int k = 0; k < 50000; ++k) {
        Identifier const id("a" + std::to_string(k));
        registry.MetaclassMgr::InsertAttribute(part, id, other, Identifier(), {1});
        registry.Insert("Metaclass" + std::to_string(k));
    }
    for (HandedOutOf const& one : all) {
        EXPECT_EQ(one.members->GetVariableCount(), 50001U);
        EXPECT_EQ(one.definition->GetDisplayName(), "thickness");
        EXPECT_EQ(*one.id, Identifier("T"));
        EXPECT_EQ(*one.secondary, Identifier(7));
        EXPECT_EQ(one.value, one.members->GetDefaultValue(0));
        EXPECT_EQ(one.definition, all[0].definition);
        EXPECT_EQ(one.members->FindVariableIndexFromIdentifier(Identifier("a49999"), 0, false), 50000U);
    }
    EXPECT_EQ(registry.FindHandle("Metaclass49999"), 50002U);
}

} // namespace
} // namespace qzDescriptor::test
