#pragma once

#include "tabular/TabularDataBase.h"

namespace qzDescriptor {

/// A table in memory.
class TabularData : public TabularDataBase {
public:
    std::unique_ptr<TabularDataBase> Clone(qzStlVector<unsigned int> const& rows) const override;
    std::unique_ptr<TabularDataBase> Clone() const override;
    bool UsesExternalStorage() const override { return false; }
    QZDT_DBHandle GetDBHandle() const override { return QZDT_DBHandle(); }
    QZDT_DTSHandle GetDTSHandle() const override { return QZDT_DTSHandle(); }

protected:
    std::unique_ptr<TabularDataColumn> P_MakeColumn(BasicType basic, CompoundType compound,
                                                    EntityFullType const& entityType,
                                                    unsigned int at) override;
};

} // namespace qzDescriptor
