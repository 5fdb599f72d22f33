#pragma once

#include "descriptor/EntityFullType.h"
#include "descriptor/Identifier.h"

namespace qzDescriptor {

/// A key scoped to an entity type: it names one attribute of the entities of that type. It is an identifier,
/// but its key cannot be reassigned alone.
class QZDESCRIPTOR_API Qualifier : public Identifier {
public:
    Qualifier() = default;
    Qualifier(int numericKey, EntityFullType const& type, unsigned int solverIdx, unsigned int row,
              unsigned int column, unsigned int solverIdPool);
    Qualifier(qzString const& nameKey, EntityFullType const& type, unsigned int solverIdx, unsigned int row,
              unsigned int column, unsigned int solverIdPool);

    EntityFullType const& GetEntityFullType() const { return m_type; }
    unsigned int GetEntityFullTypeNumeric() const { return m_type.GetTypeNumeric(); }
    qzString const& GetEntityFullTypeNamed() const { return m_type.GetTypeNamed(); }
    unsigned int GetEntitySubtypeNumeric() const { return m_type.GetSubtypeNumeric(); }
    qzString const& GetEntitySubtypeNamed() const { return m_type.GetSubtypeNamed(); }
    bool IsEntityFullTypeNumeric() const { return m_type.IsTypeNumeric(); }
    bool IsEntitySubTypeNumeric() const { return m_type.IsSubTypeNumeric(); }
    bool HaveEntitySubType() const { return m_type.HaveSubType(); }
    unsigned int GetSolverIdPool() const { return m_solverIdPool; }

    bool IsValid() const { return Identifier::IsValid() && m_type.IsValid(); }

    /// Equal identifiers (what is unset matches anything), equal types and equal solver id pools.
    QZDESCRIPTOR_API friend bool operator==(Qualifier const& a, Qualifier const& b);

    struct QZDESCRIPTOR_API hash {
        std::size_t operator()(Qualifier const& qualifier) const;
    };

private:
    using Identifier::operator=;
    using Identifier::SetNameKey;
    using Identifier::SetNumericKey;

    EntityFullType m_type;
    unsigned int m_solverIdPool = 0;
};

} // namespace qzDescriptor
