#include "NumberSet.h"

namespace ui::selexpr {

template <>
std::optional<long long> LowestWithin(Bound const& bound) {
    using Limits = std::numeric_limits<long long>;
    Number const& number = *bound.number;
    if (number.beyond < 0)
        return Limits::min();
    bool const next = number.hasFraction || bound.excluded;
    if (number.beyond > 0 || (next && number.floor == Limits::max()))
        return std::nullopt;
    return number.floor + (next ? 1 : 0);
}

template <>
std::optional<long long> HighestWithin(Bound const& bound) {
    using Limits = std::numeric_limits<long long>;
    Number const& number = *bound.number;
    if (number.beyond > 0)
        return Limits::max();
    bool const previous = bound.excluded && !number.hasFraction;
    if (number.beyond < 0 || (previous && number.floor == Limits::min()))
        return std::nullopt;
    return number.floor - (previous ? 1 : 0);
}

void NumberSet::Add(Bound const& low, Bound const& high) {
    m_integers.Add(MakeInterval<long long>(low, high));
    m_doubles.Add(MakeInterval<double>(low, high));
    m_singles.Add(MakeInterval<float>(low, high));
    m_isEmpty = false;
}

// Differences of 64-bit integers fit their unsigned type, whatever the signs.
void NumberSet::AddSteps(long long first, long long last, long long stride) {
    auto const unsignedOf = [](long long value) { return static_cast<unsigned long long>(value); };
    m_isEmpty = false;
    if (stride > 0) {
        m_steps.push_back({first, last, unsignedOf(stride), last});
        return;
    }
    unsigned long long const size = 0 - unsignedOf(stride);
    unsigned long long const distance = unsignedOf(first) - unsignedOf(last);
    auto const lowest = static_cast<long long>(unsignedOf(first) - distance / size * size);
    m_steps.push_back({lowest, first, size, first});
}

void NumberSet::Seal() {
    m_integers.Seal();
    m_doubles.Seal();
    m_singles.Seal();
    std::ranges::sort(m_steps, {}, &Steps::low);
    for (std::size_t k = 1; k < m_steps.size(); ++k)
        m_steps[k].reach = std::max(m_steps[k - 1].reach, m_steps[k].high);
}

bool NumberSet::Contains(Number const& number) const {
    return !number.isNan && (number.IsInteger() ? Contains(number.floor) : Contains(number.real.value));
}

bool NumberSet::P_IsOnAnyStep(long long value) const {
    auto steps = std::ranges::upper_bound(m_steps, value, {}, &Steps::low);
    while (steps != m_steps.begin() && (--steps)->reach >= value) {
        auto const distance =
            static_cast<unsigned long long>(value) - static_cast<unsigned long long>(steps->low);
        if (value <= steps->high && distance % steps->stride == 0)
            return true;
    }
    return false;
}

bool NumberSet::P_IsOnAnyStep(double value) const {
    constexpr double s_limit = 9223372036854775808.0; // 2^63, the first that no integer reaches
    return value >= -s_limit && value < s_limit && value == std::trunc(value) &&
           P_IsOnAnyStep(static_cast<long long>(value));
}

} // namespace ui::selexpr
