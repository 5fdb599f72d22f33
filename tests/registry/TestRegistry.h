#pragma once

#include "descriptor/qzdescriptor.h"

namespace qzDescriptor::test {

/// A session without entities.
class TestSession : public ISession {
public:
    TestSession(qzString const& name, MetaclassMgr* registry) : ISession(name, registry) {}

    qzReturnStatus Delete(Entity const&) override { return {-1, "There are no entities."}; }
    bool Find(EntityFullType const&, qzString const&, Entity&) const override { return false; }
    void GetOwnedEntities(EntityListBag&, Entity const&, Identifier const&) const override {}
    bool GetOwner(Entity const&, Entity&, Identifier&) const override { return false; }

protected:
    Metaobject const* GetMetaobject(Entity const&) const override { return nullptr; }
    qzReturnStatus P_CreateEntity(EntityFullType const&, Entity&, Entity const&,
                                  Identifier const&) const override {
        return {-1, "There are no entities."};
    }
    void P_CollectAll(EntityList&, EntityFullType const&, std::string const&) const override {}
};

class TestRegistry : public MetaclassMgr {
public:
    ISession* CreateSession(qzString const& name) override {
        ++created;
        return makesSessions ? new TestSession(name, this) : nullptr;
    }

    unsigned int Insert(qzString const& name, qzString const& parent = "",
                        ConfigUsage usage = CONFIG_USAGE_NONE, qzString const& parentConfig = "") {
        return MetaclassMgr::Insert(name, Version(), parent, usage, parentConfig);
    }
    unsigned int InsertAttribute(unsigned int metaclass, qzString const& name,
                                 qzStlVector<unsigned int> const& configs = {}) {
        return MetaclassMgr::InsertAttribute(metaclass, Identifier(name), Definition(), Identifier(),
                                             configs);
    }

    bool makesSessions = true;
    int created = 0;
};

inline Definition NamedDefinition(qzString const& name) {
    Definition definition;
    definition.SetDisplayName(name);
    return definition;
}

} // namespace qzDescriptor::test
