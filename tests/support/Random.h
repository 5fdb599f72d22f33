#pragma once

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <iterator>
#include <random>
#include <string>

/// Random choices for property tests. Every run makes the same ones unless QZ_TEST_SEED names another seed; a
/// test shows the seed with SCOPED_TRACE(random.GetSeed()).
class Random {
public:
    /// The stream tells the random choices of several threads apart.
    explicit Random(std::uint32_t stream = 0) {
        if (char const* const seed = std::getenv("QZ_TEST_SEED"))
            m_seed = static_cast<std::uint32_t>(std::strtoul(seed, nullptr, 10));
        m_engine.seed(m_seed + stream);
    }

    std::string GetSeed() const { return "QZ_TEST_SEED=" + std::to_string(m_seed); }

    /// Below a limit that is above 0.
    unsigned int Below(unsigned int limit) { return static_cast<unsigned int>(m_engine() % limit); }
    bool Chance(unsigned int oneIn) { return Below(oneIn) == 0; }

    template <class Range>
    auto const& Pick(Range const& range) {
        return *std::next(std::begin(range), Below(static_cast<unsigned int>(std::size(range))));
    }

    template <class Item>
    Item const& Pick(std::initializer_list<Item> items) {
        return *(items.begin() + Below(static_cast<unsigned int>(items.size())));
    }

private:
    std::uint32_t m_seed = 20240229;
    std::mt19937 m_engine;
};
