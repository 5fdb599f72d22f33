#pragma once

#include "values/storage/HolderPool.h"
#include "values/storage/holder_parts.h"

namespace qzDescriptor {

/// Bytes that the cells in memory occupy.
std::size_t ByteSize(Tabular const& table);

/// A table, which is one element whose extents are its rows and columns. It is written whole only and cannot
/// be read from text.
class ValuePtrTabular
    : public ContainerPointerOf<Tabular, ContainerStorage<Tabular, BT_OBJECT, CT_TABULAR, 0>> {
public:
    QZ_USING_TEXT_OVERLOADS

    ValuePtrTabular(Tabular data, DisplayStatus status) : ContainerPointerOf(std::move(data), status) {}

    static void* operator new(std::size_t size) { return HolderPool<ValuePtrTabular>::Allocate(size); }
    static void operator delete(void* memory, std::size_t size) {
        HolderPool<ValuePtrTabular>::Release(memory, size);
    }

    ValuePtr* Clone() const override;
    unsigned int GetArrayDimensionExtent(unsigned int dimension) const override;
    /// "{{1 2.5 "a"} {2 3.5 "b"}}": rows in braces; row i alone; or the plain text of cell (i, j).
    bool GetValueAsString(qzString& out, char const* format, unsigned int i, unsigned int j) const override;
    void const* GetMemoryLocation(unsigned int, unsigned int) const override { return &m_data; }
    void* GetMemoryLocation(unsigned int, unsigned int) override { return &m_data; }
};

} // namespace qzDescriptor
