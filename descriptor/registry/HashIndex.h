#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace qzDescriptor {

/// Names are short, and most of a look-up would be the call of the standard library's hash. Word by word; the
/// last word may overlap the one before it.
inline std::uint32_t HashOf(std::string_view name) noexcept {
    auto const load = [&]<class Word>(Word word, std::size_t at) -> std::uint64_t {
        std::memcpy(&word, name.data() + at, sizeof word);
        return word;
    };
    std::size_t const size = name.size();
    std::uint64_t hash = size;
    auto const mix = [&hash](std::uint64_t word) {
        hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 32;
    };
    if (size >= 8) {
        for (std::size_t at = 0; at + 8 < size; at += 8)
            mix(load(std::uint64_t(), at));
        mix(load(std::uint64_t(), size - 8));
    } else if (size >= 4) {
        mix(load(std::uint32_t(), 0) << 32 | load(std::uint32_t(), size - 4));
    } else if (size > 0) {
        mix(load(std::uint8_t(), 0) << 16 | load(std::uint8_t(), size / 2) << 8 |
            load(std::uint8_t(), size - 1));
    }
    return static_cast<std::uint32_t>(hash);
}

/// Finds positions in a list that the caller keeps by a hash of what stands there. Cells are probed one after
/// the other and never removed, so that positions of equal hashes are met in the order of their insertion.
class HashIndex {
public:
    static constexpr unsigned int s_none = 0xFFFFFFFF;

    /// The first position of that hash that matches, or s_none.
    template <class Matches>
    unsigned int Find(std::uint32_t hash, Matches const& matches) const {
        if (m_cells.empty())
            return s_none;
        for (std::size_t i = P_Start(hash);; i = (i + 1) & P_Mask()) {
            Cell const& cell = m_cells[i];
            if (cell.position == s_none)
                return s_none;
            if (cell.hash == hash && matches(cell.position))
                return cell.position;
        }
    }

    /// Makes room for that many positions: inserting them allocates nothing.
    void Reserve(std::size_t count) {
        std::size_t cellCount = m_cells.empty() ? s_leastCells : m_cells.size();
        while (cellCount < 2 * count)
            cellCount *= 2;
        if (cellCount != m_cells.size())
            P_Rehash(cellCount);
    }

    std::size_t GetCount() const { return m_count; }

    void Insert(std::uint32_t hash, unsigned int position) {
        Reserve(m_count + 1);
        P_Place({hash, position});
        ++m_count;
    }

    /// Keeps the room.
    void Clear() {
        std::ranges::fill(m_cells, Cell());
        m_count = 0;
    }

private:
    struct Cell {
        std::uint32_t hash = 0;
        unsigned int position = s_none;
    };

    static constexpr std::size_t s_leastCells = 16;

    std::size_t P_Mask() const { return m_cells.size() - 1; }
    // The upper bits of the product: hashes may be plain numbers with nothing but zeros at the end.
    std::size_t P_Start(std::uint32_t hash) const { return (hash * 0x9E3779B9U) >> m_shift; }

    void P_Place(Cell cell) {
        std::size_t i = P_Start(cell.hash);
        while (m_cells[i].position != s_none)
            i = (i + 1) & P_Mask();
        m_cells[i] = cell;
    }

    // Starts behind an empty cell, where no run of cells is cut in two: the order of equal hashes is kept.
    void P_Rehash(std::size_t cellCount) {
        std::vector<Cell> old(cellCount);
        old.swap(m_cells);
        m_shift = 32 - std::countr_zero(static_cast<std::uint32_t>(cellCount));
        std::size_t start = 0;
        while (start < old.size() && old[start].position != s_none)
            ++start;
        for (std::size_t i = 0; i < old.size(); ++i) {
            Cell const& cell = old[(start + i) % old.size()];
            if (cell.position != s_none)
                P_Place(cell);
        }
    }

    std::vector<Cell> m_cells; ///< at most half of them used; their number is a power of two
    std::size_t m_count = 0;
    int m_shift = 0;
};

} // namespace qzDescriptor
