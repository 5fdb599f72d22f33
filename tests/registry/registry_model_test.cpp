// Long runs of random operations, beside a model that knows neither sharing nor indexes.

#include "registry/RandomIdentifier.h"
#include "registry/TestRegistry.h"

#include <gtest/gtest.h>

#include <list>

namespace qzDescriptor::test {
namespace {

using Handles = qzStlVector<unsigned int>;

// The model is run for attributes and for actions.

struct Attributes {
    static unsigned int Insert(TestRegistry& registry, unsigned int metaclass, Identifier const& id,
                               qzString const& name, Handles const& configs) {
        return registry.MetaclassMgr::InsertAttribute(metaclass, id, NamedDefinition(name), Identifier(),
                                                      configs);
    }
    static int InsertIntoConfig(TestRegistry& registry, unsigned int metaclass, unsigned int config,
                                Handles const& handles) {
        return registry.InsertAttributesIntoConfig(metaclass, config, handles);
    }
    static bool List(TestRegistry const& registry, unsigned int metaclass, unsigned int config,
                     Handles& handles) {
        return registry.GetAttributeHandles(metaclass, handles, config);
    }
    static unsigned int Find(TestRegistry const& registry, unsigned int metaclass, unsigned int config,
                             Identifier const& id) {
        return registry.FindAttributeHandle(metaclass, id, config, false);
    }
    static qzString GetName(TestRegistry const& registry, unsigned int metaclass, unsigned int config,
                            unsigned int handle, Identifier& id) {
        id = registry.GetIdentifier(metaclass, handle, config, false);
        Definition const* const definition = registry.GetDefinition(metaclass, handle, config);
        return definition == nullptr ? "none" : definition->GetDisplayName();
    }
    static bool IsInherited(Members const& members, unsigned int index) {
        return members.IsVariableInherited(index);
    }
};

struct Actions {
    static unsigned int Insert(TestRegistry& registry, unsigned int metaclass, Identifier const& id,
                               qzString const& name, Handles const& configs) {
        return registry.InsertAction(metaclass, id,
                                     ActionDefinition(name, "", "", "", "", true, true, "", ""), configs);
    }
    static int InsertIntoConfig(TestRegistry& registry, unsigned int metaclass, unsigned int config,
                                Handles const& handles) {
        return registry.InsertActionsIntoConfig(metaclass, config, handles);
    }
    static bool List(TestRegistry const& registry, unsigned int metaclass, unsigned int config,
                     Handles& handles) {
        return registry.GetActionHandles(metaclass, handles, config);
    }
    static unsigned int Find(TestRegistry const& registry, unsigned int metaclass, unsigned int config,
                             Identifier const& id) {
        if (id.GetNumericKey() == 0) {
            EXPECT_EQ(registry.FindActionHandle(metaclass, id.GetNameKey(), config),
                      FindAny(registry, metaclass, config, Identifier(id.GetNameKey())));
        }
        return FindAny(registry, metaclass, config, id);
    }
    static unsigned int FindAny(TestRegistry const& registry, unsigned int metaclass, unsigned int config,
                                Identifier const& id) {
        Members const* const members = registry.GetMembers(metaclass, config);
        return members == nullptr ? 0 : members->FindActionIndexFromIdentifier(id) + 1;
    }
    static qzString GetName(TestRegistry const& registry, unsigned int metaclass, unsigned int config,
                            unsigned int handle, Identifier& id) {
        ActionDefinition const* const definition =
            registry.GetActionDefinition(metaclass, handle, id, config);
        return definition == nullptr ? "none" : definition->GetDisplayName();
    }
    static bool IsInherited(Members const& members, unsigned int index) {
        return members.IsActionInherited(index);
    }
};

struct Member {
    Identifier id;
    qzString name;
    bool isInherited;
};

/// A set of the model. A view (a configuration within its metaclass's own set) names members of its owner by
/// place; other sets have their members.
struct Set {
    Set* base = nullptr;
    Set* owner = nullptr;
    std::vector<Member> members;
    std::vector<std::pair<unsigned int, bool>> views; ///< place in the owner, inherited

    std::size_t Count() const { return owner ? views.size() : members.size(); }
    Member Get(std::size_t i) const {
        if (!owner)
            return members[i];
        Member member = owner->members[views[i].first];
        member.isInherited = views[i].second;
        return member;
    }
    std::size_t Find(Identifier const& id) const {
        std::size_t i = 0;
        while (i < Count() && !(Get(i).id == id))
            ++i;
        return i;
    }
};

struct Metaclass {
    qzString name, parent;
    MetaclassMgr::ConfigUsage usage;
    std::vector<Set*> sets; ///< own, then those of configurations
    std::vector<qzString> configs{""};
};

class Model {
public:
    std::vector<Metaclass> metaclasses{{}};

    Set* Make(Set* base, Set* owner = nullptr) {
        Set& set = m_sets.emplace_back();
        set.owner = owner;
        for (std::size_t i = 0; base != nullptr && i < base->Count(); ++i)
            Receive(set, *base, i);
        set.base = base;
        return &set;
    }

    /// The place of the member, or -1.
    int Insert(Set& set, Identifier const& id, qzString const& name) {
        std::size_t const i = set.Find(id);
        if (i < set.Count() && !set.members[i].isInherited)
            return -1;
        if (i == set.Count())
            set.members.push_back({id, name, false});
        else
            set.members[i] = {set.members[i].id, name, false};
        PassOn(set, i);
        return static_cast<int>(i);
    }

    bool Show(Set& view, unsigned int place) {
        std::size_t i = 0;
        while (i < view.views.size() && view.views[i].first != place)
            ++i;
        if (i < view.views.size() && !view.views[i].second)
            return false;
        if (i == view.views.size())
            view.views.emplace_back(place, false);
        else
            view.views[i].second = false;
        PassOn(view, i);
        return true;
    }

private:
    void Receive(Set& heir, Set const& base, std::size_t i) {
        Member member = base.Get(i);
        std::size_t const at = heir.Find(member.id);
        bool const isNew = at == heir.Count();
        if (heir.owner) {
            if (isNew)
                heir.views.emplace_back(base.views[i].first, true);
        } else {
            member.isInherited = true;
            if (isNew)
                heir.members.push_back(member);
            else if (heir.members[at].isInherited)
                heir.members[at] = member;
            else
                return;
        }
        PassOn(heir, at);
    }

    void PassOn(Set const& set, std::size_t i) {
        for (Set& other : m_sets) {
            if (other.base == &set)
                Receive(other, set, i);
            for (std::size_t k = 0; other.owner == &set && k < other.views.size(); ++k) {
                if (other.views[k].first == i)
                    PassOn(other, k);
            }
        }
    }

    std::list<Set> m_sets;
};

template <class Kind>
class RegistryOverALongRun : public testing::Test {
public:
    void InsertMetaclass() {
        qzString const name = "M" + std::to_string(random.Below(40));
        qzString const parentName = "M" + std::to_string(random.Below(40));
        qzString const config = RandomConfigName();
        auto const usage = static_cast<MetaclassMgr::ConfigUsage>(random.Below(4));
        unsigned int const handle = registry.Insert(name, parentName, usage, config);
        if (Find(name) != 0) {
            EXPECT_EQ(handle, 0U);
            return;
        }
        Metaclass metaclass{name, "", usage, {}};
        Set* base = nullptr;
        if (unsigned int const parent = Find(parentName)) {
            base = Resolve(parent, FindConfig(model.metaclasses[parent], config));
            metaclass.parent = base ? parentName : "";
        }
        metaclass.sets.push_back(model.Make(base));
        model.metaclasses.push_back(metaclass);
        EXPECT_EQ(handle, model.metaclasses.size() - 1);
    }

    void InsertConfig() {
        unsigned int const handle = RandomHandle();
        qzString const name = RandomConfigName(), parentName = RandomConfigName();
        unsigned int const config = registry.InsertConfig(handle, name, parentName, 0);
        if (handle == 0 || handle >= model.metaclasses.size() ||
            model.metaclasses[handle].usage == MetaclassMgr::CONFIG_USAGE_NONE ||
            FindConfig(model.metaclasses[handle], name) != 0) {
            EXPECT_EQ(config, 0U);
            return;
        }
        Metaclass& metaclass = model.metaclasses[handle];
        unsigned int const parent = FindConfig(metaclass, parentName);
        Set* const base = parent == 0 ? nullptr : metaclass.sets[parent];
        Set* set = nullptr;
        if (metaclass.usage == MetaclassMgr::CONFIG_USAGE_SUBMEMBER)
            set = model.Make(base, metaclass.sets[0]);
        else if (metaclass.usage == MetaclassMgr::CONFIG_USAGE_OWN_MEMBERS)
            set = model.Make(base);
        metaclass.sets.push_back(set);
        metaclass.configs.push_back(name);
        EXPECT_EQ(config, metaclass.sets.size() - 1);
    }

    void InsertMember() {
        unsigned int const handle = RandomHandle();
        Identifier const id = RandomIdentifier(random, 12);
        qzString const name = std::to_string(++m_lastName);
        Handles const configs = RandomHandles(4);
        unsigned int const inserted = Kind::Insert(registry, handle, id, name, configs);
        EXPECT_EQ(inserted, InsertIntoModel(handle, id, name, configs));
    }

    unsigned int InsertIntoModel(unsigned int handle, Identifier const& id, qzString const& name,
                                 Handles const& configs) {
        if (handle == 0 || handle >= model.metaclasses.size())
            return 0;
        Metaclass& metaclass = model.metaclasses[handle];
        auto const exists = [&](unsigned int config) {
            return config != 0 && config < metaclass.sets.size();
        };
        if (metaclass.usage == MetaclassMgr::CONFIG_USAGE_SUBMEMBER && !std::ranges::all_of(configs, exists))
            return 0;
        int const place = model.Insert(*metaclass.sets[0], id, name);
        for (unsigned int const config : place < 0 ? Handles() : configs) {
            if (metaclass.usage == MetaclassMgr::CONFIG_USAGE_SUBMEMBER)
                model.Show(*metaclass.sets[config], static_cast<unsigned int>(place));
            else if (metaclass.usage == MetaclassMgr::CONFIG_USAGE_OWN_MEMBERS &&
                     (!exists(config) || model.Insert(*metaclass.sets[config], id, name) < 0))
                return 0;
        }
        return static_cast<unsigned int>(place + 1);
    }

    void InsertIntoConfig() {
        unsigned int const handle = RandomHandle();
        unsigned int const config = random.Below(5);
        Handles const members = RandomHandles(12);
        int const added = Kind::InsertIntoConfig(registry, handle, config, members);
        EXPECT_EQ(added, InsertIntoModelConfig(handle, config, members));
    }

    int InsertIntoModelConfig(unsigned int handle, unsigned int config, Handles const& handles) {
        if (handle == 0 || handle >= model.metaclasses.size())
            return 0;
        Metaclass& metaclass = model.metaclasses[handle];
        Set& own = *metaclass.sets[0];
        if (handles.empty() || config == 0 || config >= metaclass.sets.size() || !metaclass.sets[config])
            return -1;
        for (unsigned int const member : handles) {
            if (member == 0 || member > own.Count())
                return -1;
        }
        int added = 0;
        for (unsigned int const member : handles) {
            Member const copy = own.members[member - 1];
            added += metaclass.usage == MetaclassMgr::CONFIG_USAGE_SUBMEMBER
                         ? model.Show(*metaclass.sets[config], member - 1)
                         : model.Insert(*metaclass.sets[config], copy.id, copy.name) >= 0;
        }
        return added;
    }

    void Compare() {
        ASSERT_EQ(registry.GetHandlesCount(), model.metaclasses.size() - 1);
        for (unsigned int handle = 1; handle < model.metaclasses.size(); ++handle) {
            qzString name, parent;
            registry.GetNameAndOfParent(handle, name, parent);
            EXPECT_EQ(name, model.metaclasses[handle].name);
            EXPECT_EQ(parent, model.metaclasses[handle].parent);
            for (unsigned int config = 0; config < 6; ++config)
                CompareSet(handle, config);
        }
    }

    void CompareSet(unsigned int handle, unsigned int config) {
        Set const* const set = Resolve(handle, config);
        Members const* const members = registry.GetMembers(handle, config);
        ASSERT_EQ(members != nullptr, set != nullptr) << handle << " " << config;
        Handles handles{99};
        std::size_t const count = set == nullptr ? 0 : set->Count();
        EXPECT_EQ(Kind::List(registry, handle, config, handles), count != 0);
        ASSERT_EQ(handles.size(), count);
        for (unsigned int i = 0; i < count; ++i) {
            Identifier id;
            Member const member = set->Get(i);
            EXPECT_EQ(handles[i], i + 1);
            EXPECT_EQ(Kind::GetName(registry, handle, config, i + 1, id), member.name);
            EXPECT_TRUE(id == member.id && id.GetRow() == member.id.GetRow());
            EXPECT_EQ(Kind::IsInherited(*members, i), member.isInherited);
        }
        for (unsigned int k = 0; k < 5; ++k) {
            Identifier const id = RandomIdentifier(random, 12);
            std::size_t const place = set == nullptr ? 0 : set->Find(id);
            EXPECT_EQ(Kind::Find(registry, handle, config, id), place < count ? place + 1 : 0);
        }
    }

    Set* Resolve(unsigned int handle, unsigned int config) {
        Metaclass const& metaclass = model.metaclasses[handle];
        if (metaclass.usage == MetaclassMgr::CONFIG_USAGE_NONE)
            return metaclass.sets[0];
        return config < metaclass.sets.size() ? metaclass.sets[config] : nullptr;
    }
    unsigned int Find(qzString const& name) {
        for (unsigned int handle = 1; handle < model.metaclasses.size(); ++handle) {
            if (model.metaclasses[handle].name == name)
                return handle;
        }
        return 0;
    }
    static unsigned int FindConfig(Metaclass const& metaclass, qzString const& name) {
        for (unsigned int config = 1; config < metaclass.configs.size(); ++config) {
            if (metaclass.configs[config] == name)
                return config;
        }
        return 0;
    }
    // Sometimes the handle of none.
    unsigned int RandomHandle() {
        return random.Below(static_cast<unsigned int>(model.metaclasses.size()) + 1);
    }
    qzString RandomConfigName() { return "c" + std::to_string(random.Below(5)); }
    Handles RandomHandles(unsigned int limit) {
        Handles handles;
        for (unsigned int k = random.Below(4); k > 0; --k)
            handles.push_back(random.Chance(12) ? 0 : 1 + random.Below(limit));
        return handles;
    }

    Random random;
    TestRegistry registry;
    Model model;

private:
    int m_lastName = 0;
};

using Kinds = testing::Types<Attributes, Actions>;
TYPED_TEST_SUITE(RegistryOverALongRun, Kinds);

TYPED_TEST(RegistryOverALongRun, AgreesWithAPlainModel) {
    SCOPED_TRACE(this->random.GetSeed());
    for (unsigned int step = 0; step < 3000 && !this->HasFailure(); ++step) {
        switch (this->random.Below(12)) {
        case 0:
            this->InsertMetaclass();
            break;
        case 1:
        case 2:
            this->InsertConfig();
            break;
        case 3:
        case 4:
        case 5:
            this->InsertIntoConfig();
            break;
        default:
            this->InsertMember();
        }
        if (step % 50 == 0)
            this->Compare();
    }
    this->Compare();
}

} // namespace
} // namespace qzDescriptor::test
