#include "descriptor/Qualifier.h"

#include <cstdint>

namespace qzDescriptor {

Qualifier::Qualifier(int numericKey, EntityFullType const& type, unsigned int solverIdx, unsigned int row,
                     unsigned int column, unsigned int solverIdPool)
    : Identifier(numericKey, solverIdx, row, column), m_type(type), m_solverIdPool(solverIdPool) {}

Qualifier::Qualifier(qzString const& nameKey, EntityFullType const& type, unsigned int solverIdx,
                     unsigned int row, unsigned int column, unsigned int solverIdPool)
    : Identifier(nameKey, solverIdx, row, column), m_type(type), m_solverIdPool(solverIdPool) {}

bool operator==(Qualifier const& a, Qualifier const& b) {
    return static_cast<Identifier const&>(a) == static_cast<Identifier const&>(b) && a.m_type == b.m_type &&
           a.m_solverIdPool == b.m_solverIdPool;
}

std::size_t Qualifier::hash::operator()(Qualifier const& qualifier) const {
    // A negative key hash is spread by its sign, so it wraps the same way wherever size_t has 64 bits.
    std::uint64_t const key = Identifier::hash()(qualifier);
    return static_cast<std::size_t>(100 * key + EntityFullType::hash()(qualifier.m_type));
}

} // namespace qzDescriptor
