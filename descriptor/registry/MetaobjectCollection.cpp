#include "descriptor/MetaobjectCollection.h"

#include <new>

namespace qzDescriptor {

ICollectionIterator::~ICollectionIterator() = default;
MetaobjectCollectionIterator::~MetaobjectCollectionIterator() = default;
ICollection::~ICollection() = default;

void* ICollectionIterator::operator new(std::size_t size) { return ::operator new(size); }
void ICollectionIterator::operator delete(void* memory) noexcept { ::operator delete(memory); }

MetaobjectCollectionIterator* MetaobjectCollection::begin() const {
    return m_collection != nullptr ? m_collection->begin() : nullptr;
}

MetaobjectCollectionIterator* MetaobjectCollection::end() const {
    return m_collection != nullptr ? m_collection->end() : nullptr;
}

int MetaobjectCollection::add(Entity const& entity) const {
    return m_collection != nullptr ? m_collection->add(entity) : -1;
}

int MetaobjectCollection::remove(Entity const& entity) const {
    return m_collection != nullptr ? m_collection->remove(entity) : -1;
}

} // namespace qzDescriptor
