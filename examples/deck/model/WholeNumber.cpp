#include "model/WholeNumber.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace qzDeck {

namespace {

constexpr std::int64_t s_base = 1000000000;
constexpr std::size_t s_digitsPerLimb = 9;

template <class T>
std::errc ReadDigits(std::string_view text, T& number) {
    return std::from_chars(text.data(), text.data() + text.size(), number).ec;
}

/// Negative large numbers, then all small ones, then the positive large ones.
int Rank(WholeNumber const& number, std::string_view large) {
    if (number.IsSmall())
        return 0;
    return large.front() == '-' ? -1 : 1;
}

/// Carries over, so that every limb but the highest is a digit of the base.
void Carry(std::vector<std::int64_t>& limbs) {
    for (std::size_t i = 0; i < limbs.size(); ++i) {
        std::int64_t const digit = ((limbs[i] % s_base) + s_base) % s_base;
        std::int64_t const carry = (limbs[i] - digit) / s_base;
        bool const isHighest = i + 1 == limbs.size();
        if (isHighest && (carry == 0 || carry == -1))
            return;
        if (isHighest)
            limbs.push_back(0);
        limbs[i] = digit;
        limbs[i + 1] += carry;
    }
}

} // namespace

WholeNumber::WholeNumber(std::string_view text) {
    bool const isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    std::string canonical = isNegative ? "-" : "";
    canonical += text;
    if (ReadDigits(canonical, m_small) == std::errc::result_out_of_range)
        m_large = std::move(canonical);
}

std::string WholeNumber::Text() const { return IsSmall() ? std::to_string(m_small) : m_large; }

std::strong_ordering operator<=>(WholeNumber const& a, WholeNumber const& b) {
    int const rank = Rank(a, a.m_large);
    if (auto const order = rank <=> Rank(b, b.m_large); std::is_neq(order))
        return order;
    if (rank == 0)
        return a.m_small <=> b.m_small;
    std::string const& first = rank > 0 ? a.m_large : b.m_large;
    std::string const& second = rank > 0 ? b.m_large : a.m_large;
    auto const length = first.size() <=> second.size();
    return std::is_neq(length) ? length : first <=> second;
}

void WholeSum::Add(WholeNumber const& number) {
    if (number.IsSmall()) {
        P_AddLimb(0, number.Small() % s_base);
        if (std::int64_t const rest = number.Small() / s_base; rest != 0) {
            P_AddLimb(1, rest % s_base);
            P_AddLimb(2, rest / s_base);
        }
        return;
    }
    std::string const text = number.Text();
    bool const isNegative = text.front() == '-';
    std::string_view digits = std::string_view(text).substr(isNegative ? 1 : 0);
    for (std::size_t place = 0; !digits.empty(); ++place) {
        std::size_t const count = std::min(digits.size(), s_digitsPerLimb);
        std::int64_t limb = 0;
        ReadDigits(digits.substr(digits.size() - count), limb);
        P_AddLimb(place, isNegative ? -limb : limb);
        digits.remove_suffix(count);
    }
}

WholeNumber WholeSum::Value() const {
    std::vector<std::int64_t> limbs = m_limbs;
    Carry(limbs);
    bool const isNegative = !limbs.empty() && limbs.back() < 0;
    if (isNegative) {
        for (std::int64_t& limb : limbs)
            limb = -limb;
        Carry(limbs);
    }
    std::string text = isNegative ? "-" : "";
    for (auto limb = limbs.rbegin(); limb != limbs.rend(); ++limb) {
        std::string const digits = std::to_string(*limb);
        text.append(s_digitsPerLimb - std::min(digits.size(), s_digitsPerLimb), '0').append(digits);
    }
    return WholeNumber(text);
}

void WholeSum::P_AddLimb(std::size_t place, std::int64_t amount) {
    if (m_limbs.size() <= place)
        m_limbs.resize(place + 1);
    m_limbs[place] += amount;
}

} // namespace qzDeck
