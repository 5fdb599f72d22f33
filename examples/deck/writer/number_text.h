#pragma once

#include <cstddef>
#include <string>

namespace qzDeck {

/// Enough for every finite number to read back as itself.
inline constexpr std::size_t s_exactColumns = 24;

/// The text of a finite number that reads back nearest to it, in so many columns, at least 8: with a point,
/// and with an exponent where that keeps more digits or saves many zeros (`0.0015`, `.0333333`, `7.85-9`).
std::string RealText(double number, std::size_t columns);

} // namespace qzDeck
