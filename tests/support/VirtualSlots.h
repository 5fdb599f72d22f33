#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

// The slot of a virtual function can be read from a member pointer under the Itanium C++ ABI.
#if defined(__GXX_ABI_VERSION) && (defined(__x86_64__) || defined(__i386__))
#    define QZ_HAVE_VIRTUAL_SLOTS

/// Expects virtual operations to stand in the order in which they are named.
class VirtualSlots {
public:
    template <class Function>
    void Next(char const* name, Function function) {
        std::ptrdiff_t word = 0;
        std::memcpy(&word, &function, sizeof word);
        EXPECT_EQ((word - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)), m_next) << name;
        ++m_next;
    }

    /// A virtual destructor takes two slots and has no member pointer.
    void Destructor() { m_next += 2; }

private:
    std::ptrdiff_t m_next = 0;
};

#endif
