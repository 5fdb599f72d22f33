#pragma once

#include "descriptor/ActionDefinition.h"
#include "descriptor/Definition.h"
#include "descriptor/Identifier.h"

#include <atomic>
#include <memory>

namespace qzDescriptor {

/// An attribute. Sets that inherit or show it share it; its identifier never changes.
class Variable {
public:
    using DefinitionPointer = std::shared_ptr<Definition const>;

    Variable(Identifier const& id, DefinitionPointer definition, Identifier const& secondaryId);
    /// Makes its own default value.
    Variable(Variable const& other);
    Variable& operator=(Variable const&) = delete;
    ~Variable();

    Identifier const& GetId() const { return m_id; }
    DefinitionPointer const& GetDefinition() const { return m_definition; }
    /// Empty when there is none.
    Identifier const& GetSecondaryId() const;
    std::shared_ptr<TabularDefinition const> GetTabularDefinition() const;
    /// Made at the first call, on whichever thread.
    ValuePtr const* GetDefaultValue() const;

    void SetDefinition(DefinitionPointer definition);
    void SetSecondaryId(Identifier const& secondaryId);
    void SetTabularDefinition(std::shared_ptr<TabularDefinition const> definition);
    /// This attribute as another one says it is, under its own identifier.
    void Redefine(Variable const& other);

private:
    /// What most attributes do not have.
    struct Extras {
        Identifier secondaryId;
        std::shared_ptr<TabularDefinition const> tabularDefinition;
    };

    Extras& P_Extras();

    Identifier m_id;
    DefinitionPointer m_definition;
    std::unique_ptr<Extras> m_extras;
    mutable std::atomic<ValuePtr const*> m_defaultValue = nullptr;
};

/// An action, shared in the same way.
class Action {
public:
    using DefinitionPointer = std::shared_ptr<ActionDefinition const>;

    Action(Identifier const& id, DefinitionPointer definition);

    Identifier const& GetId() const { return m_id; }
    DefinitionPointer const& GetDefinition() const { return m_definition; }

    void SetDefinition(DefinitionPointer definition);
    void Redefine(Action const& other) { SetDefinition(other.m_definition); }

private:
    Identifier m_id;
    DefinitionPointer m_definition;
};

} // namespace qzDescriptor
