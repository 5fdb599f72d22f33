#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>

namespace qzDescriptor {

/// Makes room for a list of the length, by factors, and changes nothing else: lists that are kept in step get
/// room first, so that none of them can fail once another has grown. Lengths have 64 bits: one past the last
/// index of all asks for more memory than there may be, and must not wrap to an empty list.
template <class List>
void MakeRoom(List& list, std::uint64_t length) {
    std::uint64_t const capacity = list.capacity();
    if (length <= capacity)
        return;
    std::uint64_t const largest = list.max_size();
    if (length > largest)
        throw std::bad_alloc();
    list.reserve(static_cast<std::size_t>(std::clamp(capacity + capacity / 2, length, largest)));
}

/// Lengthens a list so that it has a place at the index, new places zero.
template <class List>
void GrowToHold(List& list, unsigned int index) {
    if (index < list.size())
        return;
    std::uint64_t const length = std::uint64_t{index} + 1;
    MakeRoom(list, length);
    list.resize(static_cast<std::size_t>(length));
}

} // namespace qzDescriptor
