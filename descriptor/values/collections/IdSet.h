#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace qzDescriptor {

using IdSpan = std::span<unsigned int const>;

/// What a core may keep to itself, in bytes.
constexpr std::size_t s_nearCache = std::size_t{256} * 1024;

/// Ids of a known range, one bit for each: for ids that lie close together.
class IdBitmap {
public:
    IdBitmap(unsigned int first, unsigned int last)
        : m_first(first), m_largestOffset(last - first), m_words(m_largestOffset / 64 + 1) {}

    /// Takes in an id of the range; true when it was not there.
    bool Insert(unsigned int id) {
        std::size_t const offset = P_GetOffset(id);
        std::uint64_t const bit = std::uint64_t{1} << offset % 64;
        std::uint64_t& word = m_words[offset / 64];
        bool const isNew = (word & bit) == 0;
        word |= bit;
        return isNew;
    }

    /// Asks for any id, of the range or not.
    bool Contains(unsigned int id) const {
        std::size_t const offset = P_GetOffset(id);
        return offset <= m_largestOffset && (m_words[offset / 64] >> offset % 64 & 1) != 0;
    }

    std::size_t GetByteCount() const { return m_words.size() * sizeof(std::uint64_t); }
    void const* GetPlace(unsigned int id) const {
        return &m_words[std::min(P_GetOffset(id), m_largestOffset) / 64];
    }

private:
    // Wraps for ids below the first one, to an offset that is too large.
    std::size_t P_GetOffset(unsigned int id) const { return static_cast<std::uint32_t>(id - m_first); }

    unsigned int m_first;
    std::size_t m_largestOffset;
    std::vector<std::uint64_t> m_words;
};

/// Any ids, in one flat table that is sized once: an id stands in the first free slot from its own on. Slots
/// that hold 0 are free; the id 0 itself is kept aside.
class IdTable {
public:
    explicit IdTable(std::size_t idCount) : m_slots(GetSlotCount(idCount)), m_mask(m_slots.size() - 1) {}

    /// A power of two. In a roomy table fewer ids meet, as long as it stays in the near cache.
    static std::size_t GetSlotCount(std::size_t idCount) {
        std::size_t const roomy = std::bit_ceil(4 * idCount + 2);
        return roomy * sizeof(std::uint32_t) <= s_nearCache ? roomy : std::bit_ceil(2 * idCount + 2);
    }

    /// Takes in an id; true when it was not there.
    bool Insert(unsigned int id) {
        if (id == 0)
            return !std::exchange(m_holdsZero, true);
        std::size_t const slot = P_FindSlot(id);
        bool const isNew = m_slots[slot] == 0;
        m_slots[slot] = id;
        return isNew;
    }

    bool Contains(unsigned int id) const { return id == 0 ? m_holdsZero : m_slots[P_FindSlot(id)] == id; }

    std::size_t GetByteCount() const { return m_slots.size() * sizeof(std::uint32_t); }
    void const* GetPlace(unsigned int id) const { return &m_slots[P_GetOwnSlot(id)]; }

private:
    // Multiplied twice, with a fold between: after one multiplication ids in steps of some numbers, hundreds
    // of them harmless to look at, would stand in one long run.
    std::size_t P_GetOwnSlot(unsigned int id) const {
        constexpr std::uint64_t scramble = 0x9E3779B97F4A7C15;
        std::uint64_t const product = id * scramble;
        return static_cast<std::size_t>((product ^ product >> 32) * scramble >> 32) & m_mask;
    }

    // The slot that holds the id, or the free one where it belongs. The first step is arithmetic: whether it
    // is taken cannot be foreseen, and after it most ids have come to their slot.
    std::size_t P_FindSlot(unsigned int id) const {
        std::size_t slot = P_GetOwnSlot(id);
        slot = (slot + P_IsTaken(slot, id)) & m_mask;
        while (P_IsTaken(slot, id))
            slot = (slot + 1) & m_mask;
        return slot;
    }

    // Whether another id stands there. The minimum is 0 for a free slot and for the id's own.
    bool P_IsTaken(std::size_t slot, unsigned int id) const {
        return std::min(m_slots[slot], m_slots[slot] ^ id) != 0;
    }

    std::vector<std::uint32_t> m_slots;
    std::size_t m_mask;
    bool m_holdsZero = false;
};

/// The extent of the ids that were included.
struct IdExtent {
    unsigned int first = std::numeric_limits<unsigned int>::max();
    unsigned int last = 0;

    void Include(IdSpan ids) {
        for (unsigned int const id : ids) {
            first = std::min(first, id);
            last = std::max(last, id);
        }
    }
    bool IsEmpty() const { return first > last; }
    unsigned int GetSpan() const { return IsEmpty() ? 0 : last - first; }
};

/// The extent of all the lists as far as its span stays below the limit.
inline IdExtent FindExtent(std::initializer_list<IdSpan> lists, std::uint64_t limit) {
    constexpr std::size_t step = 256;
    IdExtent extent;
    for (IdSpan ids : lists)
        for (; !ids.empty() && extent.GetSpan() < limit; ids = ids.subspan(std::min(step, ids.size())))
            extent.Include(ids.first(std::min(step, ids.size())));
    return extent;
}

/// Calls work with an empty set that takes in any of the listed ids: of the kind that needs less memory.
template <class Work>
void WithIdSet(std::initializer_list<IdSpan> lists, Work work) {
    std::size_t count = 0;
    for (IdSpan const ids : lists)
        count += ids.size();
    std::uint64_t const bitsOfTable = std::uint64_t{32} * IdTable::GetSlotCount(count);
    IdExtent const extent = FindExtent(lists, bitsOfTable);
    if (extent.GetSpan() < bitsOfTable)
        work(IdBitmap(extent.first, extent.last));
    else
        work(IdTable(count));
}

/// Calls visit(i) for every place of the list, in order. With a set that no near cache holds, the memory that
/// an id will need is asked for some visits ahead, so that the misses of several ids overlap.
template <class Set, class Visit>
void VisitWithSet([[maybe_unused]] Set const& set, IdSpan ids, Visit visit) {
    std::size_t i = 0;
#if defined(__GNUC__)
    constexpr std::size_t ahead = 16;
    if (set.GetByteCount() > s_nearCache) {
        for (; i + ahead < ids.size(); ++i) {
            __builtin_prefetch(set.GetPlace(ids[i + ahead]), 1);
            visit(i);
        }
    }
#endif
    for (; i < ids.size(); ++i)
        visit(i);
}

} // namespace qzDescriptor
