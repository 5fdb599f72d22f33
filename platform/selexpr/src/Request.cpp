#include "Request.h"
#include "holds.h"
#include "parts.h"

#include <algorithm>

namespace ui::selexpr {

namespace {

std::size_t CountConditions(Node const& node) {
    return static_cast<std::size_t>(std::count_if(
        &node, &node + node.size, [](Node const& each) { return each.kind == Node::Kind::Condition; }));
}

} // namespace

IRequest::~IRequest() = default;

Request::Request(IDataFilter const& filter, Parts parts) : m_filter(filter), m_parts(std::move(parts)) {
    m_steps.reserve(m_parts.conditions.size()); // steps are known by their address
    P_AddSteps(m_parts.nodes.front(), &s_false, &s_true);
}

// Each condition is one step, so that the step behind a part is known before the part is added.
void Request::P_AddSteps(Node const& node, Step const* onFalse, Step const* onTrue) {
    switch (node.kind) {
    case Node::Kind::Condition:
        m_steps.push_back({&m_parts.conditions[node.condition], {onFalse, onTrue}});
        return;
    case Node::Kind::Not:
        return P_AddSteps(FirstPart(node), onTrue, onFalse);
    case Node::Kind::And:
    case Node::Kind::Or:
        break;
    }
    bool const isOr = node.kind == Node::Kind::Or;
    for (Node const& part : PartsOf(node)) {
        bool const isLast = &part + part.size == &node + node.size;
        Step const* const behind = m_steps.data() + m_steps.size() + CountConditions(part);
        P_AddSteps(part, isLast || !isOr ? onFalse : behind, isLast || isOr ? onTrue : behind);
    }
}

bool Request::Matches(void* object) const {
    Subject subject{object};
    Step const* step = m_steps.data();
    while (step->condition != nullptr)
        step = step->next[P_Test(*step->condition, subject) ? 1 : 0];
    return step == &s_true;
}

bool Request::P_Test(CompiledCondition const& condition, Subject& subject) const {
    if (condition.GetReader() == nullptr)
        return m_filter.MatchSpecific(subject.object, condition);
    Scalar value;
    return condition.GetReader()->Read(subject.object, value, subject.scratch) &&
           Holds(m_filter, value, condition);
}

} // namespace ui::selexpr
