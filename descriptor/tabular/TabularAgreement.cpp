#include "descriptor/Tabular.h"

#include "tabular/column_types.h"
#include "values/storage/list_access.h"
#include "values/value/Agreement.h"

namespace qzDescriptor {

// Tables agree when their cells, taken one by one as values, would: whole columns are compared in place, each
// as far as its table has rows.

namespace {

template <class T>
bool CellsAgree(qzStlVector<T> const& a, qzStlVector<T> const& b, std::size_t count,
                [[maybe_unused]] Agreement const& agree) {
    auto const end = a.begin() + static_cast<std::ptrdiff_t>(count);
    if constexpr (std::is_integral_v<T>)
        return std::equal(a.begin(), end, b.begin()); // as bytes
    else
        return std::equal(a.begin(), end, b.begin(), agree);
}

// The types are equal. Topology indices count in entities, unlike in lists of them.
bool CellsAgree(EntityList const& a, EntityList const& b, std::size_t count, Agreement const&) {
    for (unsigned int row = 0; row < count; ++row) {
        unsigned int ids[2] = {};
        char topologyIndices[2] = {};
        a.GetIdAndTopologyIndex(row, ids[0], topologyIndices[0]);
        b.GetIdAndTopologyIndex(row, ids[1], topologyIndices[1]);
        if (ids[0] != ids[1] || topologyIndices[0] != topologyIndices[1])
            return false;
    }
    return true;
}

template <class List>
bool ColumnsAgree(Tabular const& a, Tabular const& b, unsigned int column, Agreement const& agree) {
    List scratchA, scratchB;
    List const& left = ReadColumn(a, column, scratchA);
    List const& right = ReadColumn(b, column, scratchB);
    auto const cells = [](Tabular const& table, List const& list) {
        return std::min<std::size_t>(ListAccess<List>::Count(list), table.GetRowCount());
    };
    return cells(a, left) == cells(b, right) && CellsAgree(left, right, cells(a, left), agree);
}

bool IdentifiersAgree(Tabular const& a, Tabular const& b, unsigned int column) {
    Identifier left, right;
    return !a.GetIdentifierFromColumn(column, left) || !b.GetIdentifierFromColumn(column, right) ||
           left == right;
}

bool ColumnsAgree(Tabular const& a, Tabular const& b, unsigned int column, Agreement const& agree) {
    if (a.GetBasicType(column) != b.GetBasicType(column) ||
        a.GetCompoundType(column) != b.GetCompoundType(column) ||
        !(a.GetEntityListType(column) == b.GetEntityListType(column)) || !IdentifiersAgree(a, b, column))
        return false;
    bool agreed = false;
    VisitColumn(a.GetBasicType(column), a.GetCompoundType(column), [&]<class List>(std::type_identity<List>) {
        agreed = ColumnsAgree<List>(a, b, column, agree);
    });
    return agreed;
}

} // namespace

bool Agreement::operator()(Tabular const& a, Tabular const& b) const {
    if (a.GetColumnCount() != b.GetColumnCount() || a.GetRowCount() != b.GetRowCount())
        return false;
    for (unsigned int column = 0; column < a.GetColumnCount(); ++column) {
        if (!ColumnsAgree(a, b, column, *this))
            return false;
    }
    return true;
}

} // namespace qzDescriptor
