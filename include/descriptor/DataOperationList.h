#pragma once

#include "descriptor/DataOperation.h"
#include "descriptor/Export.h"
#include "qzutl/qzStlVector.h"

namespace qzDescriptor {

/// The entries of a menu of operations on data, in order.
class QZDESCRIPTOR_API DataOperationList {
public:
    DataOperationList() = default;
    explicit DataOperationList(qzStlVector<DataOperation> const& operations) : m_operations(operations) {}

    void PushBack(DataOperation const& operation) { m_operations.push_back(operation); }
    unsigned int GetCount() const { return static_cast<unsigned int>(m_operations.size()); }
    /// A separator, the same at every call, for an entry that does not exist.
    DataOperation const& Get(unsigned int i) const;

    friend bool operator==(DataOperationList const&, DataOperationList const&) = default;

private:
    qzStlVector<DataOperation> m_operations;
};

} // namespace qzDescriptor
