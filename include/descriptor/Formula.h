#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <memory>

namespace qzDescriptor {

class FormulaPrivate;

/// A selection of entities of one type: clauses that add or remove ids, in order, so that the last clause
/// that speaks about an id decides. A formula made without a type is the absence of a formula: it holds no
/// clauses and takes none.
class QZDESCRIPTOR_API Formula {
public:
    Formula();
    explicit Formula(EntityFullType const& type);
    Formula(Formula const& other);
    Formula(Formula&& other) noexcept;
    Formula& operator=(Formula const& other);
    Formula& operator=(Formula&& other) noexcept;
    ~Formula();

    /// True when there is at least one clause.
    bool IsValid() const;
    EntityFullType GetEntityFullType() const;
    unsigned int GetClauseCount() const;

    /// Copies entry i out: the clause, the type that it was written against, and whether it adds. Without
    /// such an entry the clause is emptied and the others keep what they hold.
    void GetClause(unsigned int i, Clause& clause, EntityFullType& source, bool& addition) const;
    /// The clause of entry i; an empty one when there is none.
    Clause const& GetClauseReference(unsigned int i) const;
    bool GetClauseAdditionType(unsigned int i) const;
    EntityFullType GetClauseEntityTypeSource(unsigned int i) const;

    void PushBackClause(Clause const& clause, EntityFullType const& source, bool addition);
    /// Inserts before entry i, which must exist: this never appends.
    void InsertClause(unsigned int i, Clause const& clause, EntityFullType const& source, bool addition);
    void ReplaceClause(unsigned int i, Clause const& clause, EntityFullType const& source, bool addition);
    /// Removes the entries from first up to, but not, last; only the entry first when last is not behind it.
    void RemoveClauses(unsigned int first, unsigned int last);

    /// Whether the formula selects the id. A clause that does not speak about it (an id range whose bounds
    /// exclude it; an id list speaks about every id) ends the evaluation with false, or is passed over when
    /// lenient.
    bool IsIdWithin(unsigned int id, bool lenient) const;

    QZDESCRIPTOR_API friend bool operator==(Formula const& a, Formula const& b);

private:
    friend class FormulaPrivate;

    std::unique_ptr<FormulaPrivate> m_private;
};

} // namespace qzDescriptor
