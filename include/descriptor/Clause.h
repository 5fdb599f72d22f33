#pragma once

#include "descriptor/Color.h"
#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include "qzutl/qzStlVector.h"

#include <cstdint>
#include <memory>

namespace qzDescriptor {

class ClausePrivate;

/// One condition of a selection formula: which entity ids it speaks about, and which of them it matches.
///
///     Clause wing = Clause::FromIdRange(100, 199, 1);
///     Clause tips = Clause::FromIdList({104, 199});
class QZDESCRIPTOR_API Clause {
public:
    enum Kind : std::int32_t { KIND_EMPTY = 0, KIND_ID_RANGE, KIND_ID_LIST, KIND_NAME, KIND_COLOR };

    /// An empty clause speaks about no id.
    Clause();
    Clause(Clause const& other);
    Clause(Clause&& other) noexcept;
    Clause& operator=(Clause const& other);
    Clause& operator=(Clause&& other) noexcept;
    ~Clause();

    /// Ids from start to end, both included, every step-th of them; a step below 2 means every one.
    static Clause FromIdRange(unsigned int start, unsigned int end, unsigned int step = 1);
    static Clause FromIdList(qzStlVector<unsigned int> const& ids);
    /// Entities by name or by color. Only who holds the entities can judge these: they match no id.
    static Clause FromName(qzString const& name);
    static Clause FromColor(Color const& color);

    Kind GetKind() const;
    bool IsEmpty() const { return GetKind() == KIND_EMPTY; }
    // Each getter is false, leaving its arguments as they were, for a clause of another kind.
    bool GetIdRange(unsigned int& start, unsigned int& end, unsigned int& step) const;
    bool GetIdList(qzStlVector<unsigned int>& ids) const;
    bool GetName(qzString& name) const;
    bool GetColor(Color& color) const;

    /// Whether the id is matched; `applicable` says whether the clause speaks about it at all. A list speaks
    /// about every id, a range only about those between its bounds, a clause of another kind about none.
    bool IsIdWithin(unsigned int id, bool& applicable) const;

    /// ids(1 2 7), range(1 100), range(10 20 5), name("wing \"left\""), color(#0A14FF), color(3) or none().
    /// Control bytes of a name are written as \x0A.
    qzString GetAsString() const;
    /// Reads what GetAsString writes, with any blanks between its parts; false, changing nothing, for other
    /// texts.
    bool SetFromString(qzString const& text);

    QZDESCRIPTOR_API friend bool operator==(Clause const& a, Clause const& b);

private:
    std::unique_ptr<ClausePrivate> m_private;
};

} // namespace qzDescriptor
