#include "support/FailingAllocation.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

thread_local constinit unsigned int s_allocationsToFailure = 0; // 0 when none is to fail

void* Allocate(std::size_t size) noexcept {
    if (s_allocationsToFailure != 0 && --s_allocationsToFailure == 0)
        return nullptr;
    return std::malloc(size != 0 ? size : 1);
}

void* AllocateOrThrow(std::size_t size) {
    if (void* const place = Allocate(size))
        return place;
    throw std::bad_alloc();
}

} // namespace

// All forms but the aligned ones: a sanitizer brings its own of each, which must not meet.
void* operator new(std::size_t size) { return AllocateOrThrow(size); }
void* operator new[](std::size_t size) { return AllocateOrThrow(size); }
void* operator new(std::size_t size, std::nothrow_t const&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, std::nothrow_t const&) noexcept { return Allocate(size); }
void operator delete(void* place) noexcept { std::free(place); }
void operator delete[](void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t) noexcept { std::free(place); }
void operator delete[](void* place, std::size_t) noexcept { std::free(place); }
void operator delete(void* place, std::nothrow_t const&) noexcept { std::free(place); }
void operator delete[](void* place, std::nothrow_t const&) noexcept { std::free(place); }

bool FailsAtAllocation(unsigned int n, std::function<void()> const& work) {
    s_allocationsToFailure = n;
    bool failed = false;
    try {
        work();
    } catch (std::bad_alloc const&) {
        failed = true;
    }
    s_allocationsToFailure = 0;
    return failed;
}
