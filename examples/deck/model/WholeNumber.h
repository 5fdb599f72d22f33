#pragma once

/// Integers of any length: ids and sums are exact however long a deck writes them.

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qzDeck {

class WholeNumber {
public:
    WholeNumber() = default;
    explicit WholeNumber(std::int64_t number) : m_small(number) {}
    /// Of digits, behind a sign or none.
    explicit WholeNumber(std::string_view text);

    bool IsZero() const { return m_small == 0 && IsSmall(); }
    /// Whether 64 bits hold it.
    bool IsSmall() const { return m_large.empty(); }
    std::int64_t Small() const { return m_small; }
    /// In digits, behind a minus or none.
    std::string Text() const;

    friend bool operator==(WholeNumber const&, WholeNumber const&) = default;
    friend std::strong_ordering operator<=>(WholeNumber const& a, WholeNumber const& b);

private:
    std::int64_t m_small = 0;
    std::string m_large; // the text of a number beyond 64 bits, without leading zeros; then m_small is 0
};

/// The sum of integers; of at most some 10^9 of them.
class WholeSum {
public:
    void Add(WholeNumber const& number);
    WholeNumber Value() const;

private:
    void P_AddLimb(std::size_t place, std::int64_t amount);

    std::vector<std::int64_t> m_limbs; // to the base 10^9, the lowest first; carried over only by Value
};

} // namespace qzDeck
