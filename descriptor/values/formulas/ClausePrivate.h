#pragma once

#include "descriptor/Clause.h"

#include <variant>

namespace qzDescriptor {

struct IdRange {
    unsigned int start = 0;
    unsigned int end = 0;
    unsigned int step = 1;

    bool HasBetweenBounds(unsigned int id) const { return start <= id && id <= end; }
    bool IsOnStep(unsigned int id) const { return step < 2 || (id - start) % step == 0; }

    friend bool operator==(IdRange const&, IdRange const&) = default;
};

/// Ids in the order they were given, found by bisection: formulas are evaluated for every entity of a model.
class IdList {
public:
    explicit IdList(qzStlVector<unsigned int> const& ids);

    qzStlVector<unsigned int> const& GetIds() const { return m_ids; }
    bool Contains(unsigned int id) const;

    friend bool operator==(IdList const& a, IdList const& b) { return a.m_ids == b.m_ids; }

private:
    qzStlVector<unsigned int> m_ids;
    qzStlVector<unsigned int> m_ordered; ///< empty when the ids are in order as they are
};

/// The condition of a clause that is not empty; the alternatives stand in the order of Clause::Kind.
class ClausePrivate {
public:
    Clause::Kind GetKind() const {
        return static_cast<Clause::Kind>(Clause::KIND_ID_RANGE + static_cast<int>(condition.index()));
    }

    friend bool operator==(ClausePrivate const&, ClausePrivate const&) = default;

    std::variant<IdRange, IdList, qzString, Color> condition;
};

} // namespace qzDescriptor
