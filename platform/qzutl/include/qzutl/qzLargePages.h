#pragma once

#if defined(__linux__)
#    include <sys/mman.h>
#endif

#include <cstddef>
#include <cstdint>

/// Asks the system to back a large piece of fresh memory with large pages, which makes walking over many
/// objects in it cheaper: their addresses are translated once for 512 times as many of them. A hint, without
/// effect on small pieces and where the system does not take it.
inline void qzPreferLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) noexcept {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
    constexpr std::uintptr_t largePage = std::uintptr_t{1} << 21;
    constexpr std::uintptr_t page = std::uintptr_t{1} << 12;
    if (bytes < 2 * largePage)
        return;
    std::uintptr_t const begin = (reinterpret_cast<std::uintptr_t>(memory) + page - 1) & ~(page - 1);
    std::uintptr_t const end = (reinterpret_cast<std::uintptr_t>(memory) + bytes) & ~(page - 1);
    (void)madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#endif
}
