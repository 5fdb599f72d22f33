// The registry itself: metaclasses, their line of descent, and their configurations.

#include "descriptor/MetaclassMgr.h"

#include "registry/MetaclassMgrPrivate.h"

#include <set>
#include <utility>

namespace qzDescriptor {

// --- records --------------------------------------------------------------------------------------------

// Configurations end first, in their order, then the metaclass's own members.
MetaclassRecord::~MetaclassRecord() {
    for (ConfigRecord& config : configs)
        config.ownMembers.reset();
}

unsigned int MetaclassRecord::FindConfig(qzString const& configName) const {
    unsigned int const found = configsByName.Find(
        HashOf(configName), [&](unsigned int config) { return configs[config].name == configName; });
    return found == HashIndex::s_none ? 0 : found;
}

unsigned int MetaclassRecord::FindConfig(unsigned int number) const {
    unsigned int const found =
        configsByNumber.Find(number, [&](unsigned int config) { return configs[config].number == number; });
    return found == HashIndex::s_none ? 0 : found;
}

unsigned int MetaclassRecord::FindParentConfig(qzString const& configName) const {
    return configName.empty() ? 0 : FindConfig(configName);
}

Members* MetaclassRecord::FindMembers(unsigned int config) const {
    if (config == 0 || usage == MetaclassMgr::CONFIG_USAGE_NONE)
        return members.get();
    if (config >= configs.size())
        return nullptr;
    if (usage == MetaclassMgr::CONFIG_USAGE_SUBMEMBER)
        return MembersPrivate::Of(*members).GetSubMember(configs[config].name);
    return configs[config].ownMembers.get();
}

std::vector<std::unique_ptr<MetaclassRecord>> MetaclassMgrPrivate::P_EmptySlot() {
    return std::vector<std::unique_ptr<MetaclassRecord>>(1);
}

unsigned int MetaclassMgrPrivate::FindHandle(qzString const& name) const {
    unsigned int const found = metaclassesByName.Find(
        HashOf(name), [&](unsigned int metaclass) { return names[metaclass] == name; });
    return found == HashIndex::s_none ? 0 : found;
}

Members* MetaclassMgrPrivate::FindMembers(unsigned int metaclass, unsigned int config) const {
    MetaclassRecord const* const record = Find(metaclass);
    return record == nullptr ? nullptr : record->FindMembers(config);
}

// --- metaclasses ----------------------------------------------------------------------------------------

MetaclassMgr::MetaclassMgr() : m_private(std::make_unique<MetaclassMgrPrivate>()) {}

MetaclassMgr::~MetaclassMgr() {
    P_DeleteSessions();
    for (auto& record : m_private->metaclasses)
        record.reset();
}

unsigned int MetaclassMgr::Insert(qzString const& name, Version const& version, qzString const& parentName,
                                  ConfigUsage usage, qzString const& parentConfigName) {
    if (FindHandle(name) != 0)
        return 0;
    auto record = std::make_unique<MetaclassRecord>();
    record->name = name;
    record->version = version;
    record->usage = usage;
    record->configs.emplace_back();
    Members* parentMembers = nullptr;
    if (MetaclassRecord const* const parent = m_private->Find(FindHandle(parentName))) {
        parentMembers = parent->FindMembers(parent->FindParentConfig(parentConfigName));
        if (parentMembers != nullptr)
            record->parentName = parent->name;
    }
    record->parentMembers = parentMembers;
    record->members.reset(Members::CreateWithParent(name, parentMembers, true, 10, 0));
    if (parentMembers != nullptr)
        MembersPrivate::Of(*record->members).InheritFrom(MembersPrivate::Of(*parentMembers));

    auto const handle = static_cast<unsigned int>(m_private->metaclasses.size());
    m_private->childrenByParentName[record->parentName].push_back(handle);
    m_private->names.push_back(record->name);
    m_private->metaclasses.push_back(std::move(record));
    m_private->metaclassesByName.Insert(HashOf(name), handle);
    return handle;
}

unsigned int MetaclassMgr::FindHandle(qzString const& name) const { return m_private->FindHandle(name); }

unsigned int MetaclassMgr::GetHandlesCount() const {
    return static_cast<unsigned int>(m_private->metaclasses.size()) - 1;
}

bool MetaclassMgr::GetNameAndOfParent(unsigned int metaclass, qzString& name, qzString& parentName) const {
    MetaclassRecord const* const record = m_private->Find(metaclass);
    if (record == nullptr)
        return false;
    name = record->name;
    parentName = record->parentName;
    return true;
}

bool MetaclassMgr::GetVersion(unsigned int metaclass, Version& version) const {
    MetaclassRecord const* const record = m_private->Find(metaclass);
    if (record == nullptr)
        return false;
    version = record->version;
    return true;
}

// A metaclass without a name is the parent of every root, itself included: no line is longer than the list.
bool MetaclassMgr::CheckParent(unsigned int metaclass, unsigned int ancestor) const {
    for (unsigned int steps = GetHandlesCount(); steps > 0; --steps) {
        MetaclassRecord const* const record = m_private->Find(metaclass);
        if (record == nullptr)
            return false;
        if (metaclass == ancestor)
            return true;
        metaclass = FindHandle(record->parentName);
    }
    return false;
}

bool MetaclassMgr::FindChildrenHandles(unsigned int metaclass, qzStlVector<unsigned int>& children,
                                       bool recursive, bool includeSelf) const {
    children.clear();
    if (m_private->Find(metaclass) == nullptr)
        return false;
    std::set<unsigned int> found{metaclass};
    std::vector<unsigned int> work{metaclass};
    while (!work.empty()) {
        MetaclassRecord const& record = *m_private->Find(work.back());
        work.pop_back();
        auto const known = m_private->childrenByParentName.find(record.name);
        if (known == m_private->childrenByParentName.end())
            continue;
        for (unsigned int const child : known->second) {
            if (found.insert(child).second && recursive)
                work.push_back(child);
        }
    }
    if (!includeSelf)
        found.erase(metaclass);
    children.assign(found.begin(), found.end());
    return true;
}

MetaclassMgr::ConfigUsage MetaclassMgr::GetConfigUsage(unsigned int metaclass) const {
    MetaclassRecord const* const record = m_private->Find(metaclass);
    return record == nullptr ? CONFIG_USAGE_NONE : record->usage;
}

// --- configurations -------------------------------------------------------------------------------------

unsigned int MetaclassMgr::InsertConfig(unsigned int metaclass, qzString const& name,
                                        qzString const& parentConfigName, unsigned int number) {
    MetaclassRecord* const record = m_private->Find(metaclass);
    if (record == nullptr || record->usage == CONFIG_USAGE_NONE || record->FindConfig(name) != 0)
        return 0;
    if (number != 0 && record->FindConfig(number) != 0)
        return 0;
    while (number == 0) {
        if (record->FindConfig(record->leastFreeNumber) == 0)
            number = record->leastFreeNumber;
        ++record->leastFreeNumber;
    }
    unsigned int const parentConfig = record->FindParentConfig(parentConfigName);
    ConfigRecord config{name, parentConfigName, number, nullptr};
    Members* members = nullptr;
    if (record->usage == CONFIG_USAGE_OWN_MEMBERS) {
        members = Members::CreateWithParent(name, record->FindMembers(parentConfig), true, 10, 0);
        config.ownMembers.reset(members);
    } else if (record->usage == CONFIG_USAGE_SUBMEMBER) {
        members = record->members->InsertSubMember(name);
    }
    if (members != nullptr && parentConfig != 0)
        MembersPrivate::Of(*members).InheritFrom(MembersPrivate::Of(*record->FindMembers(parentConfig)));

    auto const handle = static_cast<unsigned int>(record->configs.size());
    record->configs.push_back(std::move(config));
    record->configsByName.Insert(HashOf(name), handle);
    record->configsByNumber.Insert(number, handle);
    return handle;
}

unsigned int MetaclassMgr::FindConfigHandle(unsigned int metaclass, qzString const& name) const {
    MetaclassRecord const* const record = m_private->Find(metaclass);
    return record == nullptr ? 0 : record->FindConfig(name);
}

unsigned int MetaclassMgr::FindConfigHandle(unsigned int metaclass, unsigned int number) const {
    MetaclassRecord const* const record = m_private->Find(metaclass);
    return record == nullptr ? 0 : record->FindConfig(number);
}

bool MetaclassMgr::GetConfigHandlesCount(unsigned int metaclass, unsigned int& count) const {
    MetaclassRecord const* const record = m_private->Find(metaclass);
    count = record == nullptr ? 0 : static_cast<unsigned int>(record->configs.size()) - 1;
    return count != 0;
}

bool MetaclassMgr::GetConfigNumber(unsigned int metaclass, unsigned int config, unsigned int& number) const {
    MetaclassRecord const* const record = m_private->Find(metaclass);
    number = record != nullptr && record->HasConfig(config) ? record->configs[config].number : 0;
    return number != 0;
}

bool MetaclassMgr::GetConfigNameAndOfParent(unsigned int metaclass, unsigned int config, qzString& name,
                                            qzString& parentName) const {
    MetaclassRecord const* const record = m_private->Find(metaclass);
    if (record == nullptr || !record->HasConfig(config))
        return false;
    name = record->configs[config].name;
    parentName = record->configs[config].parentName;
    return true;
}

} // namespace qzDescriptor
