#include "registry/RandomIdentifier.h"
#include "registry/TestRegistry.h"

#include <gmock/gmock.h>

namespace qzDescriptor::test {
namespace {

using testing::ElementsAre;
using Names = qzStlVector<qzString>;

struct End {
    void operator()(Members* members) const { members->Destroy(); }
};
using Owned = std::unique_ptr<Members, End>;

unsigned int Insert(Members& members, Identifier const& id, qzString const& display = "",
                    Names const& configs = {}, bool replace = false, unsigned int at = Members::s_none) {
    return members.InsertVariable(id, NamedDefinition(display), Identifier(), replace, at, "", configs);
}

/// The display names of the definitions in their order.
Names List(Members const& members) {
    Names names;
    for (unsigned int index = 0; index < members.GetVariableCount(); ++index)
        names.push_back(members.GetVariableDefinition(index)->GetDisplayName());
    return names;
}

unsigned int Scan(std::vector<Identifier> const& ids, Identifier const& id, unsigned int first,
                  bool validOnly) {
    for (unsigned int index = first; index < ids.size(); ++index) {
        if (ids[index] == id && (ids[index].IsValid() || !validOnly))
            return index;
    }
    return Members::s_none;
}

// Sets of every length, those that are looked through and those with an index.
TEST(MemberSet, FindsWhatComparingOneAfterTheOtherFinds) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (unsigned int round = 0; round < 300; ++round) {
        Owned const members(Members::Create("", random.Chance(2)));
        std::vector<Identifier> ids, secondary;
        for (unsigned int k = random.Below(40); k > 0; --k) {
            Identifier const id = RandomIdentifier(random), other = RandomIdentifier(random);
            unsigned int const place =
                random.Chance(4) ? random.Below(members->GetVariableCount() + 1) : Members::s_none;
            unsigned int const index = members->InsertVariable(id, Definition(), other, false, place, "", {});
            if (index == Members::s_none)
                continue;
            ids.insert(ids.begin() + index, id);
            secondary.insert(secondary.begin() + index, other.IsValid() ? other : Identifier());
            if (random.Chance(4)) {
                unsigned int const changed = random.Below(members->GetVariableCount());
                secondary[changed] = RandomIdentifier(random);
                members->SetSecondaryIdentifier(changed, secondary[changed]);
            }
        }
        for (unsigned int k = 0; k < 100; ++k) {
            Identifier const id = RandomIdentifier(random);
            unsigned int const first = random.Below(4);
            unsigned int const found = Scan(ids, id, first, false);
            EXPECT_EQ(members->FindVariableIndexFromIdentifier(id, first, false), found);
            EXPECT_EQ(members->FindVariableIndexFromIdentifier(id, first, true),
                      found != Members::s_none ? found : Scan(secondary, id, first, true));
        }
        std::vector<Identifier> listed(3);
        EXPECT_EQ(members->GetVariableIdentifiers(listed), ids.size());
        EXPECT_EQ(listed, ids);
    }
}

TEST(MemberSet, RefusesOrRedefinesWhatItHas) {
    Owned const set(Members::Create("set"));
    EXPECT_EQ(Insert(*set, Identifier("a"), "a"), 0U);
    EXPECT_EQ(Insert(*set, Identifier("b"), "b", {}, false, 0), 0U);
    EXPECT_EQ(Insert(*set, Identifier("c"), "c", {}, false, 3), Members::s_none);
    EXPECT_EQ(Insert(*set, Identifier("a", 3), "x"), Members::s_none);
    EXPECT_EQ(set->InsertVariable(Identifier("d"), std::shared_ptr<Definition const>(), Identifier(), false,
                                  Members::s_none, "", {}),
              Members::s_none);
    EXPECT_EQ(Insert(*set, Identifier("a", 3), "again", {}, true), 1U);
    EXPECT_THAT(List(*set), ElementsAre("b", "again"));
    EXPECT_EQ(set->GetVariableIdentifier(1).GetSolverIdx(), 0);
    Owned const bag(Members::Create("bag", false));
    EXPECT_EQ(Insert(*bag, Identifier("a"), "first"), 0U);
    EXPECT_EQ(Insert(*bag, Identifier("a"), "second"), 1U);
    EXPECT_EQ(bag->FindVariableIndexFromIdentifier(Identifier("a"), 1, false), 1U);
}

TEST(MemberSet, ShowsItsAttributesInSubMemberSets) {
    Owned const set(Members::Create("set"));
    EXPECT_EQ(set->GetSubMember("few"), nullptr);
    Insert(*set, Identifier("a"), "a", {"few", "many"});
    Insert(*set, Identifier("b"), "b", {"many"});
    EXPECT_EQ(set->InsertExistingIntoSubMember(1, "few", 0), 0U);
    EXPECT_EQ(set->InsertExistingIntoSubMember(1, "few", 0), Members::s_none);
    EXPECT_EQ(set->InsertExistingIntoSubMember(2, "few", 0), Members::s_none);
    EXPECT_EQ(set->InsertExistingIntoSubMember(1, "more", 1), Members::s_none);
    EXPECT_EQ(set->InsertVariable(Identifier("z"), NamedDefinition("z"), Identifier(), false, 0, "many", {}),
              0U);
    EXPECT_THAT(List(*set), ElementsAre("a", "b"));
    EXPECT_THAT(List(*set->GetSubMember("few")), ElementsAre("b", "a"));
    EXPECT_THAT(List(*set->GetSubMember("many")), ElementsAre("z", "a", "b"));
    // One that only a sub-member set has stands in the way there.
    EXPECT_EQ(Insert(*set, Identifier("z"), "other", {"few", "many"}), Members::s_none);
    EXPECT_EQ(set->GetVariableCount(), 2U);
    EXPECT_EQ(set->GetSubMember("few")->GetVariableCount(), 2U);

    Names names;
    EXPECT_TRUE(set->GetConfigNames(0, names));
    EXPECT_THAT(names, ElementsAre("few", "many"));
    EXPECT_FALSE(set->GetConfigNames(7, names));
    EXPECT_TRUE(set->GetSubMemberNames(names));
    EXPECT_THAT(names, ElementsAre("few", "many", "more"));
    EXPECT_EQ(set->InsertSubMember("few")->InsertSubMember("fewer"), nullptr);
    EXPECT_EQ(Insert(*set->InsertSubMember("few"), Identifier("y"), "y", {"fewer"}), Members::s_none);

    // Shown attributes are the same ones.
    set->ReplaceVariableDefinition(0, std::make_shared<Definition const>(NamedDefinition("A")));
    Insert(*set->InsertSubMember("many"), Identifier("b"), "B", {}, true);
    set->SetSecondaryIdentifier(0, Identifier(7));
    EXPECT_THAT(List(*set), ElementsAre("A", "B"));
    EXPECT_THAT(List(*set->GetSubMember("few")), ElementsAre("B", "A"));
    EXPECT_EQ(set->GetSubMember("few")->FindVariableIndexFromIdentifier(Identifier(7), 0, true), 1U);

    Owned const copy(set->Clone());
    Insert(*copy, Identifier("a"), "copied", {}, true);
    EXPECT_THAT(List(*copy->GetSubMember("few")), ElementsAre("B", "copied"));
    EXPECT_THAT(List(*set->GetSubMember("few")), ElementsAre("B", "A"));
}

TEST(MemberSet, LeavesOutWhatIsAskedToBeLeftOut) {
    TestRegistry registry;
    registry.InsertAttribute(registry.Insert("Part"), "inherited");
    Definition visible;
    visible.SetVisible(true);
    unsigned int const shell = registry.Insert("Shell", "Part");
    registry.InsertAttribute(shell, "hidden");
    registry.MetaclassMgr::InsertAttribute(shell, Identifier("shown"), visible, Identifier(9), {});
    Members const& members = *registry.GetMembers(shell, 0);
    EXPECT_EQ(members.GetVariableCount(), 3U);
    EXPECT_EQ(members.GetVariableCount(true), 2U);
    EXPECT_EQ(members.GetVariableCount(false, true), 1U);
    EXPECT_EQ(members.GetVariableIdentifier(0, true), Identifier("hidden"));
    EXPECT_EQ(members.GetVariableIdentifier(0, true, true, true), Identifier(9));
    EXPECT_FALSE(members.GetVariableIdentifier(1, false, false, true).IsValid());
    std::vector<Identifier> ids;
    EXPECT_EQ(members.GetVariableIdentifiers(ids, true), 2U);
    EXPECT_EQ(ids, (std::vector{Identifier("hidden"), Identifier("shown")}));
    EXPECT_TRUE(members.IsVariableInherited(0));
    EXPECT_FALSE(members.IsVariableInherited(1));
    EXPECT_FALSE(members.IsVariableInherited(3));
}

TEST(DefaultValue, IsTheDefinitionsUntilThatIsReplaced) {
    Owned const set(Members::Create("set"));
    auto const withDefault = [](double number) {
        Definition definition;
        definition.SetValueBasicType(BT_DOUBLE);
        definition.SetAllowables(Allowables(number));
        return std::make_shared<Definition const>(definition);
    };
    auto const read = [&](unsigned int index) {
        double number = -1;
        ValuePtr const* const value = set->GetDefaultValue(index);
        return value != nullptr && value->GetValue(number, 0, 0) ? number : -1;
    };
    set->InsertVariable(Identifier("t"), withDefault(2.5), Identifier(), false, Members::s_none, "", {});
    EXPECT_EQ(read(0), 2.5);
    EXPECT_EQ(set->GetDefaultValue(0), set->GetDefaultValue(0));
    EXPECT_TRUE(set->ReplaceVariableDefinition(0, withDefault(7)));
    EXPECT_EQ(read(0), 7);
    EXPECT_FALSE(set->ReplaceVariableDefinition(0, nullptr));
    EXPECT_FALSE(set->ReplaceVariableDefinition(1, withDefault(7)));
    EXPECT_EQ(set->GetDefaultValue(1), nullptr);
    Definition invalid;
    invalid.SetValueBasicType(static_cast<BasicType>(99));
    EXPECT_EQ(
        set->GetDefaultValue(set->InsertVariable(Identifier("u"), invalid, Identifier(), false, 0, "", {})),
        nullptr);
}

TEST(TableAttribute, HasDefinitionsOfItsColumns) {
    TestRegistry registry;
    unsigned int const part = registry.Insert("Part"), shell = registry.Insert("Shell", "Part");
    registry.InsertAttribute(part, "history");
    qzStlVector<Definition> columns{NamedDefinition("time"), NamedDefinition("load")};
    auto const table = std::make_shared<TabularDefinition const>("", columns, true, true, "", "");
    EXPECT_TRUE(registry.SetTabularDefinition(part, 1, 0, table));
    EXPECT_FALSE(registry.SetTabularDefinition(part, 2, 0, table));
    Members const& inherited = *registry.GetMembers(shell, 0);
    EXPECT_EQ(inherited.GetTabularDefinition(0), table);
    EXPECT_EQ(inherited.GetVariableDefinition(0, 1, true)->GetDisplayName(), "load");
    EXPECT_EQ(inherited.GetVariableDefinition(0, 2, true), nullptr);
    EXPECT_TRUE(registry.SetTabularDefinition(shell, 1, 0, nullptr));
    EXPECT_EQ(inherited.GetVariableDefinition(0, 0, true), nullptr);
    EXPECT_EQ(registry.GetMembers(part, 0)->GetTabularDefinition(0), table);
}

} // namespace
} // namespace qzDescriptor::test
