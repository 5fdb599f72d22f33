#include "descriptor/Definition.h"

#include <new>

namespace qzDescriptor {

constinit decltype(Definition::p_allocatorDefinition) Definition::p_allocatorDefinition;

Definition::Definition(qzString const& displayName, BasicType valueBasicType, CompoundType valueCompoundType,
                       unsigned int arrayDimension, Allowables const& allowables, ValueSource valueSource,
                       ValueSpecification valueSpecification, bool editable, bool visible,
                       qzString const& description, qzString const& helpPath,
                       UnitsDimensionality const& unitsDimensionality,
                       ValueDifferentiator valueDifferentiator, DefinitionUserParams const& userParams)
    : m_specified(true),
      m_displayName(displayName),
      m_valueBasicType(valueBasicType),
      m_valueCompoundType(valueCompoundType),
      m_arrayDimension(arrayDimension),
      m_allowables(allowables),
      m_valueSource(valueSource),
      m_valueSpecification(valueSpecification),
      m_editable(editable),
      m_visible(visible),
      m_description(description),
      m_helpPath(helpPath),
      m_unitsDimensionality(unitsDimensionality),
      m_valueDifferentiator(valueDifferentiator),
      m_userParams(userParams) {}

void* Definition::operator new(std::size_t size) {
    if (size != sizeof(Definition))
        return ::operator new(size);
    static decltype(p_allocatorDefinition)::Closer const s_closer{p_allocatorDefinition};
    return p_allocatorDefinition.Get().Allocate();
}

void Definition::operator delete(void* memory, std::size_t size) noexcept {
    if (size != sizeof(Definition))
        ::operator delete(memory);
    else if (memory != nullptr)
        p_allocatorDefinition.Get().Release(memory);
}

} // namespace qzDescriptor
