#include "descriptor/FormulaBag.h"

#include "descriptor/Formula.h"
#include "values/Absence.h"
#include "values/collections/EntityTypeMap.h"

#include "qzutl/qzSimpleMutex.h"
#include "qzutl/qzStlVector.h"

#include <algorithm>
#include <mutex>

namespace qzDescriptor {

// What is handed out by value is copied, and two bags are compared, under the lock; what a copy replaces is
// destroyed after it.
class FormulaBagPrivate {
public:
    using Map = EntityTypeMap<Formula>;
    using Guard = std::lock_guard<qzSimpleMutex>;

    explicit FormulaBagPrivate(unsigned int block) : poolBlock(std::max(block, 4U)), formulas(poolBlock) {}
    FormulaBagPrivate(FormulaBagPrivate const& other)
        : poolBlock(other.poolBlock), formulas(other.CopyFormulas(poolBlock)) {}

    Map CopyFormulas(unsigned int block) const {
        Guard const guard(mutex);
        return Map(formulas, block);
    }

    Formula* Find(EntityFullType const& type) {
        Guard const guard(mutex);
        return formulas.Find(type);
    }

    unsigned int const poolBlock;
    mutable qzSimpleMutex mutex;
    Map formulas;
};

FormulaBag::FormulaBag(unsigned int poolBlock) : m_private(std::make_unique<FormulaBagPrivate>(poolBlock)) {}
FormulaBag::FormulaBag(FormulaBag const& other)
    : m_private(std::make_unique<FormulaBagPrivate>(*other.m_private)) {}
FormulaBag::~FormulaBag() = default;

FormulaBag& FormulaBag::operator=(FormulaBag const& other) {
    if (this == &other) // what was handed out stays
        return *this;
    auto formulas = other.m_private->CopyFormulas(m_private->poolBlock);
    FormulaBagPrivate::Guard const guard(m_private->mutex);
    std::swap(m_private->formulas, formulas);
    return *this;
}

void FormulaBag::SetFormula(Formula const& formula) {
    EntityFullType type = formula.GetEntityFullType();
    Formula copy = formula;
    FormulaBagPrivate::Guard const guard(m_private->mutex);
    m_private->formulas.Set(std::move(type), std::move(copy));
}

Formula const& FormulaBag::GetFormula(EntityFullType const& type) const {
    static Formula const& absent = *new Formula; // still there for objects in static storage
    Formula const* const found = GetFormulaPointer(type);
    return found != nullptr ? *found : absent;
}

Formula& FormulaBag::GetFormula(EntityFullType const& type) {
    if (Formula* const found = m_private->Find(type))
        return *found;
    return MakeAbsent<Formula>();
}

bool FormulaBag::GetFormula(EntityFullType const& type, Formula& formula) const {
    Formula copy;
    {
        FormulaBagPrivate::Guard const guard(m_private->mutex);
        Formula const* const found = m_private->formulas.Find(type);
        if (found == nullptr)
            return false;
        copy = *found;
    }
    formula = std::move(copy);
    return true;
}

Formula const* FormulaBag::GetFormulaPointer(EntityFullType const& type) const {
    return m_private->Find(type);
}

bool FormulaBag::RemoveFormula(EntityFullType const& type) {
    FormulaBagPrivate::Guard const guard(m_private->mutex);
    return m_private->formulas.Erase(type);
}

unsigned int FormulaBag::GetEntityFullTypeListCount() const {
    FormulaBagPrivate::Guard const guard(m_private->mutex);
    return m_private->formulas.GetCount();
}

void FormulaBag::GetEntityFullTypeList(qzStlVector<EntityFullType>& types) const {
    qzStlVector<EntityFullType> found;
    {
        FormulaBagPrivate::Guard const guard(m_private->mutex);
        found.reserve(m_private->formulas.GetCount());
        for (auto const& entry : m_private->formulas)
            found.push_back(entry.type);
    }
    types = std::move(found);
}

bool operator==(FormulaBag const& a, FormulaBag const& b) {
    if (a.m_private == b.m_private)
        return true;
    std::scoped_lock const guard(a.m_private->mutex, b.m_private->mutex);
    auto const& left = a.m_private->formulas;
    auto const& right = b.m_private->formulas;
    return left.GetCount() == right.GetCount() &&
           std::all_of(left.begin(), left.end(), [&](auto const& entry) {
               Formula const* const other = right.Find(entry.type);
               return other != nullptr && *other == entry.value;
           });
}

} // namespace qzDescriptor
