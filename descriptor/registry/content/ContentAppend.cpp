// Merging contents: every change is worked out and checked before the first one is made.

#include "registry/content/ContentPrivate.h"
#include "registry/content/check_value.h"
#include "registry/content/extend_value.h"
#include "registry/content/identifier_name.h"

namespace qzDescriptor {

namespace {

/// What becomes of an attribute, whose own value is null where it is not set; empty when it stays as it is.
qzReturnStatus Settle(Content::AppendRule rule, ValuePtr const* own, ValuePtr const& theirs, Value& outcome) {
    if (own == nullptr || rule == Content::APPEND_REPLACE) {
        outcome = theirs;
    } else if (rule == Content::APPEND_EXTEND && HoldsMany(*own)) {
        outcome = ExtendedBy(*own, theirs);
        if (outcome.GetValuePtr() == nullptr)
            return Refusal("The values cannot be put together.");
    } else if (rule == Content::APPEND_FAIL && !HaveEqualData(own, &theirs)) {
        return Refusal("Both have a value, and not the same.");
    }
    return qzReturnStatus();
}

} // namespace

qzReturnStatus ContentPrivate::Append(Content const& other, AppendRule rule) {
    if (rule < APPEND_KEEP || rule > APPEND_FAIL)
        return Refusal("There is no such rule.");
    std::map<unsigned int, Value> changes;
    for (unsigned int theirIndex = 0; theirIndex < other.GetCount(); ++theirIndex) {
        ValuePtr const* theirs = nullptr;
        if (!other.IsSet(theirIndex) || !other.GetValue(theirIndex, theirs))
            continue;
        unsigned int const index = P_FindMatch(other, theirIndex);
        if (!P_Exists(index) || changes.contains(index)) // of several matches, the first one counts
            continue;
        Value& outcome = changes[index];
        qzReturnStatus status = Settle(rule, P_FindOwn(index), *theirs, outcome);
        if (status.status == 0 && outcome.GetValuePtr() != nullptr)
            status = TestValue(index, outcome);
        if (status.status != 0)
            return Refusal(NameOf(m_members->GetVariableIdentifier(index, false, false, false)) + ": " +
                           status.message);
    }
    for (auto& [index, outcome] : changes) {
        if (outcome.GetValuePtr() != nullptr)
            P_Store(index, std::move(outcome));
    }
    return qzReturnStatus();
}

unsigned int ContentPrivate::P_FindMatch(Content const& other, unsigned int theirIndex) const {
    Members const& theirMembers = *other.GetMembers();
    if (m_members == &theirMembers)
        return theirIndex;
    return m_members->FindVariableIndexFromIdentifier(theirMembers.GetVariableIdentifier(theirIndex), 0,
                                                      false);
}

} // namespace qzDescriptor
