#pragma once

#include "descriptor/MetaclassMgr.h"
#include "descriptor/Version.h"
#include "registry/HashIndex.h"
#include "registry/MembersPrivate.h"

#include <map>
#include <memory>
#include <set>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qzDescriptor {

struct MembersEnd {
    void operator()(Members* members) const noexcept { members->Destroy(); }
};
using OwnedMembers = std::unique_ptr<Members, MembersEnd>;

struct ConfigRecord {
    qzString name;
    qzString parentName;
    unsigned int number = 0;
    OwnedMembers ownMembers; ///< only when configurations have member sets of their own
};

struct MetaclassRecord {
    qzString name;
    qzString parentName;
    Version version;
    MetaclassMgr::ConfigUsage usage = MetaclassMgr::CONFIG_USAGE_NONE;
    OwnedMembers members;
    Members const* parentMembers = nullptr;
    std::vector<ConfigRecord> configs; ///< 0 stands for the metaclass itself

    HashIndex configsByName;
    HashIndex configsByNumber;
    unsigned int leastFreeNumber = 1; ///< no smaller number is free

    ~MetaclassRecord();

    unsigned int FindConfig(qzString const& configName) const;
    unsigned int FindConfig(unsigned int number) const;
    /// An empty name means the metaclass itself.
    unsigned int FindParentConfig(qzString const& configName) const;
    bool HasConfig(unsigned int config) const { return config != 0 && config < configs.size(); }
    /// The set of the metaclass in a configuration; null when there is none.
    Members* FindMembers(unsigned int config) const;
};

class MetaclassMgrPrivate {
public:
    using OwnershipTable = std::map<unsigned int, std::map<unsigned int, qzStlVector<unsigned int>>>;

    /// Null for a handle that is none.
    MetaclassRecord* Find(unsigned int metaclass) const {
        return metaclass < metaclasses.size() ? metaclasses[metaclass].get() : nullptr;
    }
    unsigned int FindHandle(qzString const& name) const;
    Members* FindMembers(unsigned int metaclass, unsigned int config) const;

    ISession* currentSession = nullptr; ///< may have ended
    OwnershipTable ownership;
    std::map<qzString, ISession*> sessions;
    std::vector<std::unique_ptr<MetaclassRecord>> metaclasses = P_EmptySlot();

    HashIndex metaclassesByName;
    std::vector<std::string_view> names{
        std::string_view()}; ///< of the records: compared without a way around
    /// By the recorded name of the parent, which is empty for roots; in handle order.
    std::unordered_map<qzString, std::vector<unsigned int>> childrenByParentName;
    /// The owner attributes of all rules, by owner.
    std::unordered_map<unsigned int, std::set<unsigned int>> ownerAttributes;

    /// How far the end of the registry has come.
    enum class End { No, Begun, LastSessions };
    End end = End::No;
    std::set<ISession*> endingSessions;

private:
    static std::vector<std::unique_ptr<MetaclassRecord>> P_EmptySlot();
};

} // namespace qzDescriptor
