#pragma once

#include <cstddef>
#include <numeric>

namespace ui::selexpr {

/// Some of the objects of a block, by their index and in their order.
class Selection {
public:
    static constexpr std::size_t s_capacity = 128;

    Selection() = default;
    /// The first ones.
    explicit Selection(std::size_t count) : m_count(count) {
        std::iota(m_indices, m_indices + count, static_cast<unsigned char>(0));
    }

    unsigned char const* begin() const { return m_indices; }
    unsigned char const* end() const { return m_indices + m_count; }

    /// Without a branch: what a condition says of the next object is hard to foretell. Indices come in order,
    /// each once.
    void AddIf(unsigned char index, bool condition) {
        m_indices[m_count] = index;
        m_count += condition ? 1 : 0;
    }

    /// What is here and not in a part of this selection.
    Selection Without(Selection const& part) const {
        Selection rest;
        unsigned char const* next = part.begin();
        for (unsigned char const index : *this) {
            bool const isThere = next != part.end() && *next == index;
            next += isThere ? 1 : 0;
            rest.AddIf(index, !isThere);
        }
        return rest;
    }

private:
    std::size_t m_count = 0;
    unsigned char m_indices[s_capacity + 1] = {}; // one more, which AddIf may write and not count
};

} // namespace ui::selexpr
