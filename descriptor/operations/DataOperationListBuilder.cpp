#include "descriptor/DataOperationListBuilder.h"

#include "descriptor/DataOperationList.h"
#include "operations/DataOperationListBuilderPrivate.h"

#include <algorithm>
#include <utility>

namespace qzDescriptor {

namespace {

using Operations = qzStlVector<DataOperation>;

DataOperationList MakeList(Operations& lastToFirst) {
    std::ranges::reverse(lastToFirst);
    return DataOperationList(std::exchange(lastToFirst, {}));
}

DataOperation Fill(DataOperation const& list, Operations& lastToFirst) {
    return DataOperation(list.GetDisplayName(), MakeList(lastToFirst), list.IsEnabled(),
                         list.GetIconFilePath());
}

} // namespace

DataOperationListBuilder* DataOperationListBuilder::Create() { return new DataOperationListBuilderPrivate; }

DataOperationListBuilder::~DataOperationListBuilder() = default;

DataOperationListBuilder* DataOperationListBuilderPrivate::Clone() const {
    return new DataOperationListBuilderPrivate(*this);
}

void DataOperationListBuilderPrivate::Destroy() { delete this; }

bool DataOperationListBuilderPrivate::InsertList(qzString const& displayName, qzString const& key,
                                                 qzString const& parentKey, bool enabled,
                                                 qzString const& iconFilePath) {
    auto const position = static_cast<unsigned int>(m_entries.size());
    if (m_listPositions.contains(key) ||
        !P_Insert(parentKey, DataOperation(displayName, DataOperationList(), enabled, iconFilePath)))
        return false;
    m_listPositions.emplace(key, position);
    return true;
}

bool DataOperationListBuilderPrivate::InsertOperation(qzString const& displayName,
                                                      qzString const& functionName, qzString const& parentKey,
                                                      bool enabled, qzString const& iconFilePath) {
    return P_Insert(parentKey, DataOperation(displayName, functionName, enabled, iconFilePath));
}

bool DataOperationListBuilderPrivate::InsertOperation(qzString const& displayName,
                                                      DataOperation::Operation operation,
                                                      qzString const& parentKey, bool enabled,
                                                      qzString const& iconFilePath) {
    return P_Insert(parentKey, DataOperation(displayName, operation, enabled, iconFilePath));
}

bool DataOperationListBuilderPrivate::InsertOperation(qzString const& parentKey) {
    return P_Insert(parentKey, DataOperation());
}

// An entry always stands behind its list: walked from the back, every list is complete when its turn comes.
void DataOperationListBuilderPrivate::RetrieveDataOperationList(DataOperationList& list) const {
    std::vector<Operations> lastToFirst(m_entries.size());
    Operations topLevel;
    for (std::size_t position = m_entries.size(); position-- > 0;) {
        Entry const& entry = m_entries[position];
        Operations& siblings = entry.parent == s_topLevel ? topLevel : lastToFirst[entry.parent];
        if (!entry.operation.HasList())
            siblings.push_back(entry.operation);
        else if (!lastToFirst[position].empty())
            siblings.push_back(Fill(entry.operation, lastToFirst[position]));
    }
    list = MakeList(topLevel);
}

bool DataOperationListBuilderPrivate::P_Insert(qzString const& parentKey, DataOperation const& operation) {
    std::optional<unsigned int> const parent = P_FindParent(parentKey);
    if (!parent)
        return false;
    m_entries.push_back({*parent, operation});
    return true;
}

std::optional<unsigned int> DataOperationListBuilderPrivate::P_FindParent(qzString const& parentKey) const {
    if (parentKey.empty())
        return s_topLevel; // even where there is a list with an empty key
    auto const found = m_listPositions.find(parentKey);
    return found == m_listPositions.end() ? std::nullopt : std::optional(found->second);
}

} // namespace qzDescriptor
