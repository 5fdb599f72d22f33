#pragma once

#include "descriptor/DataOperation.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"

namespace qzDescriptor {

/// Makes a nested menu out of entries that name the list they go into by its key. A list has to be inserted
/// before its entries.
///
///     DataOperationListBuilder* const builder = DataOperationListBuilder::Create();
///     builder->InsertList("Display", "display", "", true, "");
///     builder->InsertOperation("Show", DataOperation::OPERATION_SHOW, "display", true, "");
///     DataOperationList menu;
///     builder->RetrieveDataOperationList(menu);
///     builder->Destroy();
class QZDESCRIPTOR_API DataOperationListBuilder {
public:
    /// An empty builder, which ends with Destroy.
    static DataOperationListBuilder* Create();

    DataOperationListBuilder& operator=(DataOperationListBuilder const&) = delete;
    virtual ~DataOperationListBuilder();

    virtual DataOperationListBuilder* Clone() const = 0;
    virtual void Destroy() = 0;

    // An empty parent key means the top level. A parent key that names no list inserts nothing and answers
    // false.

    /// False, too, when there is a list of this key.
    virtual bool InsertList(qzString const& displayName, qzString const& key, qzString const& parentKey,
                            bool enabled, qzString const& iconFilePath) = 0;
    /// A custom operation.
    virtual bool InsertOperation(qzString const& displayName, qzString const& functionName,
                                 qzString const& parentKey, bool enabled, qzString const& iconFilePath) = 0;
    /// A predefined operation.
    virtual bool InsertOperation(qzString const& displayName, DataOperation::Operation operation,
                                 qzString const& parentKey, bool enabled, qzString const& iconFilePath) = 0;
    /// A separator.
    virtual bool InsertOperation(qzString const& parentKey) = 0;

    /// The entries of each level in the order of insertion. A list that has no entries, or only lists without
    /// any, is left out.
    virtual void RetrieveDataOperationList(DataOperationList& list) const = 0;

protected:
    DataOperationListBuilder() = default;
    DataOperationListBuilder(DataOperationListBuilder const&) = default;
};

} // namespace qzDescriptor
