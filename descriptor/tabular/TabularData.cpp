#include "tabular/TabularData.h"

#include "tabular/TabularDataColumnEntity.h"

#include <algorithm>

namespace qzDescriptor {

std::unique_ptr<TabularDataBase> TabularData::Clone(qzStlVector<unsigned int> const& rows) const {
    auto rising = rows;
    std::ranges::sort(rising);
    auto copy = std::make_unique<TabularData>();
    for (auto const& column : m_columns)
        copy->m_columns.push_back(column->Clone(rising));
    return copy;
}

std::unique_ptr<TabularDataBase> TabularData::Clone() const {
    auto copy = std::make_unique<TabularData>();
    for (auto const& column : m_columns)
        copy->m_columns.push_back(column->Clone());
    return copy;
}

std::unique_ptr<TabularDataColumn> TabularData::P_MakeColumn(BasicType basic, CompoundType compound,
                                                             EntityFullType const& entityType, unsigned int) {
    std::unique_ptr<TabularDataColumn> column;
    VisitColumn(basic, compound, [&]<class List>(std::type_identity<List>) {
        if constexpr (std::is_same_v<List, EntityList>)
            column = std::make_unique<TabularDataColumnEntity>(EntityList(entityType, {}, {}));
        else
            column = std::make_unique<
                TabularDataColumnT<CellTraits<List>::s_basic, CellTraits<List>::s_compound, List>>();
    });
    return column;
}

} // namespace qzDescriptor
