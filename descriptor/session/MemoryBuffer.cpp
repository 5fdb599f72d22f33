#include "descriptor/MemoryBuffer.h"

#include <cstring>
#include <new>

namespace qzDescriptor {

MemoryBuffer::MemoryBuffer(MemoryBuffer const& other) { SetBuffer(other.m_data, other.m_length); }

// The two members stay what they are for whoever looks at a buffer that has ended: no bytes.
MemoryBuffer::~MemoryBuffer() {
    delete[] m_data;
    m_data = nullptr;
}

void MemoryBuffer::SetBuffer(char const* bytes, unsigned long long count) {
    m_data = bytes != nullptr ? new (std::nothrow) char[count] : nullptr;
    m_length = m_data != nullptr ? count : 0;
    if (m_length != 0)
        std::memcpy(m_data, bytes, m_length);
}

unsigned long long MemoryBuffer::GetBuffer(char* out, unsigned long long capacity) const {
    if (out == nullptr || capacity < m_length)
        return 0;
    if (m_length != 0)
        std::memcpy(out, m_data, m_length);
    return m_length;
}

} // namespace qzDescriptor
