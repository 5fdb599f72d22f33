#pragma once

#include "qzutl/qzFixedSizeAllocatorND.h"

#include <cstddef>
#include <new>

namespace qzDescriptor {

/// The pool of one holder class. A class derived from that one without a pool of its own is of another size
/// and comes from the heap.
template <class Holder>
class HolderPool {
public:
    static void* Allocate(std::size_t size) {
        if (size != sizeof(Holder))
            return ::operator new(size);
        (void)&s_closer; // instantiates it
        return s_pool.Get().Allocate();
    }

    static void Release(void* memory, std::size_t size) noexcept {
        if (size != sizeof(Holder))
            ::operator delete(memory);
        else
            s_pool.Get().Release(memory);
    }

private:
    using Pool = qzStaticPool<qzFixedSizeAllocatorND<Holder>>;

    static inline constinit Pool s_pool;
    static inline typename Pool::Closer s_closer{s_pool};
};

} // namespace qzDescriptor
