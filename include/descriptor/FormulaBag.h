#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <memory>

namespace qzDescriptor {

class FormulaBagPrivate;

/// Formulas by entity type, one per type. Threads may read and change a bag together; what GetFormula and
/// GetFormulaPointer hand out is not protected once they return.
class QZDESCRIPTOR_API FormulaBag {
public:
    /// poolBlock: how many entries one allocation makes room for, at least 4.
    explicit FormulaBag(unsigned int poolBlock);
    FormulaBag() : FormulaBag(4) {}
    FormulaBag(FormulaBag const& other);
    FormulaBag& operator=(FormulaBag const& other);
    virtual ~FormulaBag();

    /// Puts a copy under the formula's entity type, in place of the one that was there.
    void SetFormula(Formula const& formula);
    /// The formula of a type; the absence of a formula when there is none.
    Formula const& GetFormula(EntityFullType const& type) const;
    Formula& GetFormula(EntityFullType const& type);
    bool GetFormula(EntityFullType const& type, Formula& formula) const;
    Formula const* GetFormulaPointer(EntityFullType const& type) const;
    bool RemoveFormula(EntityFullType const& type);

    unsigned int GetEntityFullTypeListCount() const;
    /// The types, in no particular order.
    void GetEntityFullTypeList(qzStlVector<EntityFullType>& types) const;

    QZDESCRIPTOR_API friend bool operator==(FormulaBag const& a, FormulaBag const& b);

private:
    std::unique_ptr<FormulaBagPrivate> m_private;
};

} // namespace qzDescriptor
