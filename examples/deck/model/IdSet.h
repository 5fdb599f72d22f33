#pragma once

#include "model/WholeNumber.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qzDeck {

/// The ids of one kind of card. First all are added, then Seal, then the questions.
class IdSet {
public:
    void Add(WholeNumber const& id);
    void Seal();

    /// How many were added, repeated ones included.
    std::size_t Count() const { return m_count; }
    std::size_t CountDistinct() const { return m_small.size() + m_large.size(); }
    /// Of a set that is not empty.
    WholeNumber Least() const;
    WholeNumber Greatest() const;
    bool Contains(WholeNumber const& id) const;

private:
    std::vector<std::int64_t> m_small;
    std::vector<WholeNumber> m_large; // beyond 64 bits
    std::size_t m_count = 0;
};

} // namespace qzDeck
