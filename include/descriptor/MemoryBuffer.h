#pragma once

#include "descriptor/Export.h"

namespace qzDescriptor {

/// Bytes that travel between a serializer and its caller.
///
///     MemoryBuffer buffer;
///     buffer.SetBuffer("abc", 3);
///     char bytes[3];
///     buffer.GetBuffer(bytes, sizeof bytes);          // 3
///
/// It is filled once. What it held is not released by a second SetBuffer or by an assignment, since another
/// buffer may share it: see operator=. Not synchronised; any number of threads may read.
class QZDESCRIPTOR_API MemoryBuffer {
public:
    MemoryBuffer() = default;
    /// Bytes of its own.
    MemoryBuffer(MemoryBuffer const& other);
    /// Shares the other's bytes from then on, which costs nothing for those who hand a buffer on. The caller
    /// sees to it that only one of the two is destroyed.
    MemoryBuffer& operator=(MemoryBuffer const& other) = default;
    ~MemoryBuffer();

    /// Copies bytes in. Without any given, or when there is no memory for them, the buffer is empty.
    void SetBuffer(char const* bytes, unsigned long long count);
    /// Copies all bytes out and returns how many they are; 0, writing nothing, when they do not fit.
    unsigned long long GetBuffer(char* out, unsigned long long capacity) const;
    unsigned long long GetBufferLength() const { return m_length; }

private:
    char* m_data = nullptr;
    unsigned long long m_length = 0;
};

} // namespace qzDescriptor
