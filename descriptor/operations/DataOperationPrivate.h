#pragma once

#include "descriptor/DataOperation.h"
#include "descriptor/DataOperationList.h"

namespace qzDescriptor {

/// What an entry other than a separator holds. It never changes: copies of the entry share it, and a menu is
/// handed about for the price of its top level.
class DataOperationPrivate {
public:
    qzString displayName;
    DataOperation::Operation operation;
    qzString functionName;
    DataOperationList list;
    bool enabled;
    qzString iconFilePath;

    DataOperationPrivate* nextToEnd = nullptr;
};

} // namespace qzDescriptor
