#pragma once

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>

/// The C heap as a pair of functions; a backing of another kind supplies the same two.
struct qzDefaultAllocatorFunctions {
    static void* Allocate(std::size_t bytes) noexcept { return std::malloc(bytes); }
    static void Release(void* memory) noexcept { std::free(memory); }
};

/// Memory for arrays of T from a pair of allocation functions. Throws std::bad_alloc when there is none.
template <class T, class Functions = qzDefaultAllocatorFunctions>
class qzMallocAllocator {
public:
    static T* Allocate(std::size_t count) {
        if (count > std::numeric_limits<std::size_t>::max() / sizeof(T))
            throw std::bad_alloc();
        void* const memory = Functions::Allocate(count * sizeof(T));
        if (memory == nullptr)
            throw std::bad_alloc();
        return static_cast<T*>(memory);
    }

    static void Release(T* memory) noexcept { Functions::Release(memory); }
};
