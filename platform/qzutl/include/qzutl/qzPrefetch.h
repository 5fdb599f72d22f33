#pragma once

#if defined(_MSC_VER) && !defined(__clang__)
#    include <intrin.h>
#endif

/// Asks the processor for memory that will be read soon. Any address will do; nothing else happens.
inline void qzPrefetch([[maybe_unused]] void const* address) noexcept {
#if defined(__GNUC__) || defined(__clang__)
    __builtin_prefetch(address);
    // To GCC a function of prefetches alone has no effect, and its calls may go.
    asm volatile("" : : "r"(address));
#elif defined(_M_X64) || defined(_M_IX86)
    _mm_prefetch(static_cast<char const*>(address), _MM_HINT_T0);
#endif
}
