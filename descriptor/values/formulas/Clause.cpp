#include "descriptor/Clause.h"

#include "values/PrivateBody.h"
#include "values/formulas/ClausePrivate.h"

#include <algorithm>

namespace qzDescriptor {

namespace {

using Body = std::unique_ptr<ClausePrivate>;

template <class Condition>
Body MakeBody(Condition const& condition) {
    return std::make_unique<ClausePrivate>(ClausePrivate{condition});
}

template <class Condition>
Condition const* FindCondition(Body const& body) {
    return body ? std::get_if<Condition>(&body->condition) : nullptr;
}

} // namespace

IdList::IdList(qzStlVector<unsigned int> const& ids) : m_ids(ids) {
    if (std::is_sorted(m_ids.begin(), m_ids.end()))
        return;
    m_ordered = m_ids;
    std::sort(m_ordered.begin(), m_ordered.end());
}

bool IdList::Contains(unsigned int id) const {
    auto const& ordered = m_ordered.empty() ? m_ids : m_ordered;
    return std::binary_search(ordered.begin(), ordered.end(), id);
}

Clause::Clause() = default;
Clause::Clause(Clause const& other) : m_private(CloneBody(other.m_private)) {}
Clause::Clause(Clause&& other) noexcept = default;
Clause& Clause::operator=(Clause&& other) noexcept = default;
Clause::~Clause() = default;

Clause& Clause::operator=(Clause const& other) {
    m_private = CloneBody(other.m_private);
    return *this;
}

Clause Clause::FromIdRange(unsigned int start, unsigned int end, unsigned int step) {
    Clause clause;
    clause.m_private = MakeBody(IdRange{start, end, step});
    return clause;
}

Clause Clause::FromIdList(qzStlVector<unsigned int> const& ids) {
    Clause clause;
    clause.m_private = MakeBody(IdList(ids));
    return clause;
}

Clause Clause::FromName(qzString const& name) {
    Clause clause;
    clause.m_private = MakeBody(name);
    return clause;
}

Clause Clause::FromColor(Color const& color) {
    Clause clause;
    clause.m_private = MakeBody(color);
    return clause;
}

Clause::Kind Clause::GetKind() const { return m_private ? m_private->GetKind() : KIND_EMPTY; }

bool Clause::GetIdRange(unsigned int& start, unsigned int& end, unsigned int& step) const {
    auto const* const range = FindCondition<IdRange>(m_private);
    if (range == nullptr)
        return false;
    start = range->start;
    end = range->end;
    step = range->step;
    return true;
}

bool Clause::GetIdList(qzStlVector<unsigned int>& ids) const {
    auto const* const list = FindCondition<IdList>(m_private);
    if (list == nullptr)
        return false;
    ids = list->GetIds();
    return true;
}

bool Clause::GetName(qzString& name) const {
    auto const* const held = FindCondition<qzString>(m_private);
    if (held == nullptr)
        return false;
    name = *held;
    return true;
}

bool Clause::GetColor(Color& color) const {
    auto const* const held = FindCondition<Color>(m_private);
    if (held == nullptr)
        return false;
    color = *held;
    return true;
}

bool Clause::IsIdWithin(unsigned int id, bool& applicable) const {
    applicable = false;
    if (auto const* const list = FindCondition<IdList>(m_private)) {
        applicable = true;
        return list->Contains(id);
    }
    auto const* const range = FindCondition<IdRange>(m_private);
    if (range == nullptr || !range->HasBetweenBounds(id))
        return false;
    applicable = true;
    return range->IsOnStep(id);
}

bool operator==(Clause const& a, Clause const& b) { return EqualBodies(a.m_private, b.m_private); }

} // namespace qzDescriptor
