#include "tabular/ExternalTable.h"

namespace qzDescriptor {

// No store outside memory is built in: handles name nothing, and a table made with them must not look like an
// empty one that could be filled and then lost.
std::unique_ptr<TabularDataBase> MakeExternalTable(QZDT_DBHandle const&, QZDT_DTSHandle const&) {
    return nullptr;
}

} // namespace qzDescriptor
