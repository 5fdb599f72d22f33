#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qzDescriptor {

/// The hash of every name in the library. Its values decide the order in which bags list their types, so they
/// are the same on every platform: words are little-endian and the bytes of the last, short word are signed.
constexpr std::uint32_t StringHash(std::string_view text) noexcept {
    auto const byteAt = [text](std::size_t i) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i]));
    };
    auto hash = static_cast<std::uint32_t>(text.size());
    std::size_t i = 0;
    for (; text.size() - i >= 4; i += 4) {
        std::uint32_t const word = byteAt(i) | byteAt(i + 1) << 8 | byteAt(i + 2) << 16 | byteAt(i + 3) << 24;
        hash = std::rotl(hash, 5) ^ word;
    }
    if (i == text.size())
        return hash;

    std::uint32_t tail = 0;
    for (; i < text.size(); ++i)
        tail = (tail << 8) + static_cast<std::uint32_t>(static_cast<signed char>(text[i]));
    return std::rotl(hash, 5) ^ tail;
}

} // namespace qzDescriptor
