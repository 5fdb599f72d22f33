#include "descriptor/Formula.h"

#include "values/PrivateBody.h"
#include "values/formulas/FormulaPrivate.h"

#include <algorithm>

namespace qzDescriptor {

namespace {

using Entry = FormulaPrivate::Entry;

Entry* FindEntry(std::unique_ptr<FormulaPrivate> const& body, unsigned int i) {
    return body && i < body->entries.size() ? &body->entries[i] : nullptr;
}

} // namespace

Entry FormulaPrivate::MakeEntry(Clause const& clause, EntityFullType const& source, bool addition) const {
    // The topology kind takes no part in equality, but a formula hands out what was put into it.
    bool const isOwnType = source == type && source.GetTopologyType() == type.GetTopologyType();
    return {clause, isOwnType ? std::nullopt : std::optional(source), addition};
}

bool operator==(FormulaPrivate const& a, FormulaPrivate const& b) {
    return a.type == b.type &&
           std::ranges::equal(a.entries, b.entries, [&](Entry const& left, Entry const& right) {
               return left.clause == right.clause && a.GetSource(left) == b.GetSource(right) &&
                      left.addition == right.addition;
           });
}

Formula::Formula() = default;
Formula::Formula(EntityFullType const& type) : m_private(std::make_unique<FormulaPrivate>(type)) {}
Formula::Formula(Formula const& other) : m_private(CloneBody(other.m_private)) {}
Formula::Formula(Formula&& other) noexcept = default;
Formula& Formula::operator=(Formula&& other) noexcept = default;
Formula::~Formula() = default;

Formula& Formula::operator=(Formula const& other) {
    m_private = CloneBody(other.m_private);
    return *this;
}

bool Formula::IsValid() const { return GetClauseCount() > 0; }

EntityFullType Formula::GetEntityFullType() const { return m_private ? m_private->type : EntityFullType(); }

unsigned int Formula::GetClauseCount() const {
    return m_private ? static_cast<unsigned int>(m_private->entries.size()) : 0;
}

void Formula::GetClause(unsigned int i, Clause& clause, EntityFullType& source, bool& addition) const {
    auto const* const entry = FindEntry(m_private, i);
    if (entry == nullptr) {
        clause = Clause();
        return;
    }
    clause = entry->clause;
    source = m_private->GetSource(*entry);
    addition = entry->addition;
}

Clause const& Formula::GetClauseReference(unsigned int i) const {
    // Still there for objects in static storage.
    static Clause const& ofNoFormula = *new Clause;
    static Clause const& ofNoEntry = *new Clause;
    if (auto const* const entry = FindEntry(m_private, i))
        return entry->clause;
    return m_private ? ofNoEntry : ofNoFormula;
}

bool Formula::GetClauseAdditionType(unsigned int i) const {
    auto const* const entry = FindEntry(m_private, i);
    return entry != nullptr && entry->addition;
}

EntityFullType Formula::GetClauseEntityTypeSource(unsigned int i) const {
    auto const* const entry = FindEntry(m_private, i);
    return entry != nullptr ? m_private->GetSource(*entry) : EntityFullType();
}

// The arguments of the next three may be parts of this formula: they are copied before anything moves.

void Formula::PushBackClause(Clause const& clause, EntityFullType const& source, bool addition) {
    if (m_private)
        m_private->entries.push_back(m_private->MakeEntry(clause, source, addition));
}

void Formula::InsertClause(unsigned int i, Clause const& clause, EntityFullType const& source,
                           bool addition) {
    if (FindEntry(m_private, i) == nullptr)
        return;
    Entry entry = m_private->MakeEntry(clause, source, addition);
    m_private->entries.insert(m_private->entries.begin() + i, std::move(entry));
}

void Formula::ReplaceClause(unsigned int i, Clause const& clause, EntityFullType const& source,
                            bool addition) {
    if (auto* const entry = FindEntry(m_private, i))
        *entry = m_private->MakeEntry(clause, source, addition);
}

void Formula::RemoveClauses(unsigned int first, unsigned int last) {
    if (FindEntry(m_private, first) == nullptr)
        return;
    auto const begin = m_private->entries.begin();
    auto const end = last > first ? std::min(last, GetClauseCount()) : first + 1;
    m_private->entries.erase(begin + first, begin + end);
}

bool Formula::IsIdWithin(unsigned int id, bool lenient) const {
    if (!m_private)
        return false;
    bool within = false;
    for (auto const& entry : m_private->entries) {
        bool applicable = false;
        bool const matched = entry.clause.IsIdWithin(id, applicable);
        if (!applicable && !lenient)
            return false; // whatever the earlier clauses decided
        if (matched)
            within = entry.addition;
    }
    return within;
}

bool operator==(Formula const& a, Formula const& b) { return EqualBodies(a.m_private, b.m_private); }

} // namespace qzDescriptor
