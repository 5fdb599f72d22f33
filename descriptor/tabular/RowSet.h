#pragma once

#include "qzutl/qzStlVector.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace qzDescriptor {

/// The rows that are removed from a table: a bit for each, made once for all columns.
class RowSet {
public:
    /// `longest`: the rows of the longest column. Indices that no column has need no bits.
    RowSet(qzStlVector<unsigned int> const& rows, unsigned int longest);

    /// Whether there are rows, and a column of that length has all of them.
    bool AreWithin(std::size_t rowCount) const { return m_end > 0 && m_end <= rowCount; }

    /// Calls visit(first, last) for each run of rows below rowCount that stay, in order.
    template <class F>
    void ForEachRunThatStays(std::size_t rowCount, F&& visit) const {
        for (std::size_t first = P_Find(0, false); first < rowCount;) {
            std::size_t const last = std::min(P_Find(first, true), rowCount);
            visit(first, last);
            first = P_Find(last, false);
        }
    }

    /// Those below rowCount, rising.
    qzStlVector<unsigned int> GetRows(std::size_t rowCount) const;

private:
    /// The first row from `row` on that is in the set, or is not.
    std::size_t P_Find(std::size_t row, bool inSet) const;

    std::size_t m_end = 0; ///< behind the largest row
    std::vector<std::uint64_t> m_bits;
};

/// Removes the rows from a list, as far as it goes.
template <class List>
void EraseRows(List& list, RowSet const& rows) {
    auto const begin = list.begin();
    auto kept = begin;
    rows.ForEachRunThatStays(list.size(), [&](std::size_t first, std::size_t last) {
        auto const from = begin + static_cast<std::ptrdiff_t>(first);
        auto const to = begin + static_cast<std::ptrdiff_t>(last);
        kept = from == kept ? to : std::move(from, to, kept);
    });
    list.erase(kept, list.end());
}

/// The given rows of a list, which rise, as far as it goes.
template <class T>
qzStlVector<T> PickRows(qzStlVector<T> const& list, qzStlVector<unsigned int> const& rows) {
    auto const end = std::lower_bound(rows.begin(), rows.end(), list.size());
    qzStlVector<T> picked;
    picked.reserve(static_cast<std::size_t>(end - rows.begin()));
    std::for_each(rows.begin(), end, [&](unsigned int row) { picked.push_back(list[row]); });
    return picked;
}

} // namespace qzDescriptor
