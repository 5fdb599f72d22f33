#include "descriptor/Definition.h"
#include "descriptor/Entity.h"
#include "descriptor/Value.h"
#include "descriptor/Version.h"
#include "store/Registry.h"
#include "store/Session.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

using namespace qzDescriptor;

namespace {

/// The rules as a list, applied in the plainest way.
class NaiveRules {
public:
    struct Rule {
        int child, owner, attribute;
    };

    std::vector<int> parents; // -1 for a root
    std::vector<Rule> rules;
    std::vector<int> attributeCounts;

    /// The message of a refusal, or the attribute under which the owner takes the child: -1 for no owner.
    std::pair<std::string, int> Check(int child, std::optional<int> owner, std::optional<int> wanted) const {
        std::string refusal;
        for (int current = child; current != -1; current = parents[static_cast<std::size_t>(current)]) {
            std::vector<int> attributes;
            bool hasAny = false;
            for (Rule const& rule : rules) {
                hasAny |= rule.child == current;
                if (rule.child == current && owner && rule.owner == *owner)
                    attributes.push_back(rule.attribute);
            }
            if (!owner) {
                if (hasAny)
                    return {"Owner is manadatory for this type.", -1};
                continue;
            }
            refusal = "No valid ownership rule found to create entity under owner.";
            if (attributes.empty())
                continue;
            if (wanted && std::ranges::count(attributes, *wanted) == 0)
                return {"Identifier is not valid for ownership of given entity.", -1};
            if (!wanted && attributes.size() != 1)
                return {
                    "Multiple identifiers found for ownership of given entity. Specify which identifier to "
                    "use.",
                    -1};
            return {"", wanted ? *wanted : attributes.front()};
        }
        return {refusal, -1};
    }
};

std::string Name(char kind, int number) { return kind + std::to_string(number); }

TEST(OwnershipRules, DecideAsTheirListReadFromTheTypeToItsRootDoes) {
    Random random;
    SCOPED_TRACE(random.GetSeed());
    for (int round = 0; round < 30; ++round) {
        store::Registry registry;
        NaiveRules naive;
        int const types = 8;
        for (int type = 0; type < types; ++type) {
            int const parent =
                type == 0 || random.Chance(3) ? -1 : static_cast<int>(random.Below(unsigned(type)));
            naive.parents.push_back(parent);
            unsigned int const handle =
                registry.Insert(Name('M', type), Version(), parent < 0 ? "" : Name('M', parent),
                                MetaclassMgr::CONFIG_USAGE_NONE, "");
            // Numbers of their own for each type: attributes are inherited.
            for (int attribute = 0; attribute < 3; ++attribute)
                registry.InsertAttribute(handle, Identifier(Name('a', type * 3 + attribute)), Definition(),
                                         Identifier(), {});
        }
        for (unsigned int n = random.Below(16); n > 0; --n) {
            int const child = static_cast<int>(random.Below(types)),
                      owner = static_cast<int>(random.Below(types));
            int const attribute = owner * 3 + static_cast<int>(random.Below(3));
            unsigned int const ownerHandle = static_cast<unsigned int>(owner) + 1;
            naive.rules.push_back({child, owner, attribute});
            registry.SetOwnership(
                static_cast<unsigned int>(child) + 1, ownerHandle,
                registry.FindAttributeHandle(ownerHandle, Identifier(Name('a', attribute)), 0, false));
        }
        auto& session = dynamic_cast<store::Session&>(*registry.GetSession("s"));
        std::map<int, Entity> owners; // made under whatever they need, or left out
        for (int type = 0; type < types; ++type) {
            if (naive.Check(type, {}, {}).first.empty())
                session.Create(EntityFullType(Name('M', type)), owners[type], Entity(), Identifier());
        }
        for (int n = 0; n < 300 && !owners.empty(); ++n) {
            int const child = static_cast<int>(random.Below(types));
            std::optional<int> const owner =
                random.Chance(4) ? std::nullopt : std::optional(random.Pick(owners).first);
            std::optional<int> const wanted =
                random.Chance(2) ? std::nullopt : std::optional(static_cast<int>(random.Below(types * 3)));
            auto const [message, attribute] = naive.Check(child, owner, wanted);
            Entity const untouched(EntityFullType("untouched"), 7);
            Entity created = untouched;
            qzReturnStatus const status =
                session.Create(EntityFullType(Name('M', child)), created, owner ? owners[*owner] : Entity(),
                               wanted ? Identifier(Name('a', *wanted)) : Identifier());
            ASSERT_EQ(status, (qzReturnStatus{message.empty() ? 0 : -1, message}));
            Entity foundOwner;
            Identifier foundAttribute;
            if (status.status != 0) {
                ASSERT_EQ(created, untouched);
            } else if (!owner) {
                ASSERT_FALSE(session.GetOwner(created, foundOwner, foundAttribute));
            } else {
                ASSERT_TRUE(session.GetOwner(created, foundOwner, foundAttribute));
                ASSERT_EQ(foundOwner, owners[*owner]);
                ASSERT_EQ(foundAttribute.GetNameKey(), Name('a', attribute));
            }
        }
    }
}

/// Counts what reaches the application.
class CountingSession : public store::Session {
public:
    using Session::Session;
    int created = 0;

protected:
    qzReturnStatus P_CreateEntity(EntityFullType const& type, Entity& entity, Entity const& owner,
                                  Identifier const& attribute) const override {
        ++const_cast<CountingSession*>(this)->created;
        return Session::P_CreateEntity(type, entity, owner, attribute);
    }
};

TEST(OwnershipRules, KeepRefusedCreationsFromTheApplication) {
    store::Registry registry;
    CountingSession orphan("orphan", nullptr);
    auto* const session = new CountingSession("session", &registry);
    Entity created;
    EXPECT_EQ(session->Create(EntityFullType(), created, Entity(), Identifier()),
              (qzReturnStatus{-1, "Invalid entity type"}));
    EXPECT_EQ(orphan.Create(EntityFullType("Part"), created, Entity(), Identifier()),
              (qzReturnStatus{-1, "MetaclassMgr is null."}));
    EXPECT_EQ(session->created + orphan.created, 0);
    // Without rules the application decides; ours wants a metaclass.
    EXPECT_EQ(session->Create(EntityFullType("Part"), created, Entity(), Identifier()),
              (qzReturnStatus{-1, "There is no metaclass Part."}));
    EXPECT_EQ(session->created, 1);
}

/// Maps two types to each other's metaclass, so that ancestry runs in a circle.
class CircularRegistry : public store::Registry {
public:
    bool GetMetaclass(EntityFullType type, qzString& name) const override {
        name = type.GetTypeNamed() == "child" ? "child" : "parent";
        return true;
    }
    bool GetOwnership(unsigned int, std::map<unsigned int, qzStlVector<unsigned int>>&) const override {
        return false;
    }
    using Registry::GetOwnership;
};

TEST(OwnershipRules, EndOnAncestryThatRunsInACircle) {
    CircularRegistry registry;
    registry.Insert("child", Version(), "", MetaclassMgr::CONFIG_USAGE_NONE, "");
    registry.Insert("parent", Version(), "child", MetaclassMgr::CONFIG_USAGE_NONE, "");
    ISession* const session = registry.GetSession("s");
    Entity created;
    EXPECT_EQ(session->Create(EntityFullType("parent"), created, Entity(EntityFullType("x"), 1), Identifier())
                  .message,
              "No valid ownership rule found to create entity under owner.");
}

} // namespace
