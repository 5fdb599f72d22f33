#pragma once

#include "tabular/TabularDataBase.h"

namespace qzDescriptor {

/// The table that valid handles name, in its store outside memory; null when there is no such store. A
/// Tabular without a store answers every operation with a failure.
std::unique_ptr<TabularDataBase> MakeExternalTable(QZDT_DBHandle const& database,
                                                   QZDT_DTSHandle const& tableSet);

} // namespace qzDescriptor
