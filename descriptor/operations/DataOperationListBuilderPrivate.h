#pragma once

#include "descriptor/DataOperationListBuilder.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace qzDescriptor {

/// The entries in the order of insertion, those of lists without what goes into them.
class DataOperationListBuilderPrivate final : public DataOperationListBuilder {
public:
    DataOperationListBuilder* Clone() const override;
    void Destroy() override;
    bool InsertList(qzString const& displayName, qzString const& key, qzString const& parentKey, bool enabled,
                    qzString const& iconFilePath) override;
    bool InsertOperation(qzString const& displayName, qzString const& functionName, qzString const& parentKey,
                         bool enabled, qzString const& iconFilePath) override;
    bool InsertOperation(qzString const& displayName, DataOperation::Operation operation,
                         qzString const& parentKey, bool enabled, qzString const& iconFilePath) override;
    bool InsertOperation(qzString const& parentKey) override;
    void RetrieveDataOperationList(DataOperationList& list) const override;

private:
    static constexpr unsigned int s_topLevel = 0xFFFFFFFF;

    struct Entry {
        unsigned int parent; ///< a position in the order of insertion
        DataOperation operation;
    };

    bool P_Insert(qzString const& parentKey, DataOperation const& operation);
    /// The position of the list that a parent key means.
    std::optional<unsigned int> P_FindParent(qzString const& parentKey) const;

    std::vector<Entry> m_entries;
    std::unordered_map<qzString, unsigned int> m_listPositions;
};

} // namespace qzDescriptor
