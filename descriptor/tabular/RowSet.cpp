#include "tabular/RowSet.h"

#include <bit>
#include <limits>

namespace qzDescriptor {

namespace {

constexpr std::size_t s_wordBits = 64;

} // namespace

RowSet::RowSet(qzStlVector<unsigned int> const& rows, unsigned int longest) {
    for (unsigned int const row : rows)
        m_end = std::max(m_end, std::size_t{row} + 1);
    if (m_end > longest)
        return; // no column has them all, and none will ask for the bits
    m_bits.resize(m_end / s_wordBits + 1);
    for (unsigned int const row : rows)
        m_bits[row / s_wordBits] |= std::uint64_t{1} << row % s_wordBits;
}

qzStlVector<unsigned int> RowSet::GetRows(std::size_t rowCount) const {
    qzStlVector<unsigned int> rows;
    for (std::size_t row = P_Find(0, true); row < rowCount; row = P_Find(row + 1, true))
        rows.push_back(static_cast<unsigned int>(row));
    return rows;
}

std::size_t RowSet::P_Find(std::size_t row, bool inSet) const {
    std::uint64_t const flip = inSet ? 0 : ~std::uint64_t{0};
    std::uint64_t mask = ~std::uint64_t{0} << row % s_wordBits;
    for (std::size_t word = row / s_wordBits; word < m_bits.size(); ++word) {
        if (std::uint64_t const found = (m_bits[word] ^ flip) & mask)
            return word * s_wordBits + static_cast<std::size_t>(std::countr_zero(found));
        mask = ~std::uint64_t{0};
    }
    // Behind the bits no row is in the set.
    return inSet ? std::numeric_limits<std::size_t>::max() : std::max(row, m_bits.size() * s_wordBits);
}

} // namespace qzDescriptor
