#include "Request.h"
#include "parts.h"

namespace ui::selexpr {

IRequest::~IRequest() = default;

bool Request::Matches(void* object) const {
    Subject subject{object};
    return P_Evaluate(m_parts.nodes.front(), subject);
}

bool Request::P_Evaluate(Node const& node, Subject& subject) const {
    switch (node.kind) {
    case Node::Kind::Condition:
        return P_Test(m_parts.conditions[node.condition], subject);
    case Node::Kind::Not:
        return !P_Evaluate(FirstPart(node), subject);
    case Node::Kind::And:
    case Node::Kind::Or:
        break;
    }
    bool const decisive = node.kind == Node::Kind::Or;
    for (Node const& part : PartsOf(node))
        if (P_Evaluate(part, subject) == decisive)
            return decisive;
    return !decisive;
}

bool Request::P_Test(CompiledCondition const& condition, Subject& subject) const {
    if (condition.GetReader() == nullptr)
        return m_filter.MatchSpecific(subject.object, condition);
    Scalar value;
    return condition.GetReader()->Read(subject.object, value, subject.scratch) &&
           m_filter.P_Holds(value, condition);
}

} // namespace ui::selexpr
