#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qzDescriptor::store {

/// Finds the place of an id in a list of ids: one flat table of places, four to eight bytes for each.
class IdIndex {
public:
    using Ids = std::vector<unsigned int>;

    static constexpr unsigned int s_notFound = 0xFFFFFFFF;

    unsigned int Find(Ids const& ids, unsigned int id) const {
        if (m_places.empty())
            return s_notFound;
        for (std::size_t slot = P_GetSlot(id); m_places[slot] != s_free; slot = P_GetNext(slot)) {
            if (m_places[slot] != s_left && ids[m_places[slot]] == id)
                return m_places[slot];
        }
        return s_notFound;
    }

    /// The id stands at its place already.
    void Insert(Ids const& ids, unsigned int place) {
        if ((m_used + 1) * 4 > m_places.size() * 3)
            Rebuild(ids);
        else
            P_Put(ids[place], place);
    }

    /// The id stands at its place still.
    void Remove(Ids const& ids, unsigned int id) {
        std::size_t slot = P_GetSlot(id);
        while (m_places[slot] == s_left || ids[m_places[slot]] != id)
            slot = P_GetNext(slot);
        m_places[slot] = s_left;
    }

    /// Takes in all ids of the list; a 0 is none.
    void Rebuild(Ids const& ids) {
        std::size_t size = 16;
        while (size < ids.size() * 2)
            size *= 2;
        m_places.assign(size, s_free);
        m_used = 0;
        for (std::size_t place = 0; place < ids.size(); ++place) {
            if (ids[place] != 0)
                P_Put(ids[place], static_cast<unsigned int>(place));
        }
    }

private:
    static constexpr unsigned int s_free = 0xFFFFFFFF;
    static constexpr unsigned int s_left = 0xFFFFFFFE; // a search goes on behind it

    std::size_t P_GetSlot(unsigned int id) const {
        return static_cast<std::size_t>((id * std::uint64_t{0x9E3779B97F4A7C15}) >> 32) &
               (m_places.size() - 1);
    }
    std::size_t P_GetNext(std::size_t slot) const { return (slot + 1) & (m_places.size() - 1); }

    void P_Put(unsigned int id, unsigned int place) {
        std::size_t slot = P_GetSlot(id);
        while (m_places[slot] != s_free)
            slot = P_GetNext(slot);
        m_places[slot] = place;
        ++m_used;
    }

    std::vector<unsigned int> m_places; // their number is a power of two
    std::size_t m_used = 0;             // what is not free
};

} // namespace qzDescriptor::store
