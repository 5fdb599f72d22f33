#pragma once

#include <cstddef>
#include <cstdint>
#include <new>

namespace qzDescriptor {

/// Lengthens a list so that it has a place at the index, new places zero. The length is computed in 64 bits:
/// the last index of all asks for more memory than there may be, and must not wrap to an empty list.
template <class List>
void GrowToHold(List& list, unsigned int index) {
    if (index < list.size())
        return;
    std::uint64_t const length = std::uint64_t{index} + 1;
    if (length > list.max_size())
        throw std::bad_alloc();
    list.resize(static_cast<std::size_t>(length));
}

} // namespace qzDescriptor
