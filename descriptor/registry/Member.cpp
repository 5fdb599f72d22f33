#include "registry/Member.h"

#include "descriptor/TabularDefinition.h"
#include "descriptor/ValuePtr.h"
#include "qzdistribution/Handles.h"

#include <utility>

namespace qzDescriptor {

Variable::Variable(Identifier const& id, DefinitionPointer definition, Identifier const& secondaryId)
    : m_id(id), m_definition(std::move(definition)) {
    SetSecondaryId(secondaryId);
}

Variable::Variable(Variable const& other)
    : m_id(other.m_id),
      m_definition(other.m_definition),
      m_extras(other.m_extras ? std::make_unique<Extras>(*other.m_extras) : nullptr) {}

Variable::~Variable() { ValuePtr::Destroy(const_cast<ValuePtr*>(m_defaultValue.load())); }

Identifier const& Variable::GetSecondaryId() const {
    static Identifier const s_none;
    return m_extras ? m_extras->secondaryId : s_none;
}

std::shared_ptr<TabularDefinition const> Variable::GetTabularDefinition() const {
    return m_extras ? m_extras->tabularDefinition : nullptr;
}

// Threads that ask at the same time each make one, and all but the first give theirs up.
ValuePtr const* Variable::GetDefaultValue() const {
    ValuePtr const* value = m_defaultValue.load(std::memory_order_acquire);
    if (value != nullptr)
        return value;
    ValuePtr* const made = ValuePtr::Create(
        m_definition.get(), m_definition->GetUserParams().GetDefaultDisplayStatus(), QZDT_DBHandle());
    if (m_defaultValue.compare_exchange_strong(value, made, std::memory_order_acq_rel))
        return made;
    ValuePtr::Destroy(made);
    return value;
}

void Variable::SetDefinition(DefinitionPointer definition) {
    m_definition = std::move(definition);
    ValuePtr::Destroy(const_cast<ValuePtr*>(m_defaultValue.exchange(nullptr)));
}

void Variable::SetSecondaryId(Identifier const& secondaryId) {
    if (m_extras || secondaryId.IsValid())
        P_Extras().secondaryId = secondaryId;
}

void Variable::SetTabularDefinition(std::shared_ptr<TabularDefinition const> definition) {
    if (m_extras || definition)
        P_Extras().tabularDefinition = std::move(definition);
}

void Variable::Redefine(Variable const& other) {
    SetDefinition(other.m_definition);
    SetSecondaryId(other.GetSecondaryId());
    SetTabularDefinition(other.GetTabularDefinition());
}

Variable::Extras& Variable::P_Extras() {
    if (!m_extras)
        m_extras = std::make_unique<Extras>();
    return *m_extras;
}

Action::Action(Identifier const& id, DefinitionPointer definition)
    : m_id(id), m_definition(std::move(definition)) {}

void Action::SetDefinition(DefinitionPointer definition) { m_definition = std::move(definition); }

} // namespace qzDescriptor
