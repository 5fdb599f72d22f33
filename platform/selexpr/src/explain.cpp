#include "selexpr/explain.h"
#include "Lexer.h"
#include "Request.h"
#include "parts.h"

#include <charconv>

namespace ui::selexpr {

namespace {

template <class T>
qzString WriteNumber(T value) {
    char buffer[32];
    return qzString(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

qzString Write(Scalar const& value) {
    switch (value.GetKind()) {
    case Scalar::KIND_INTEGER:
        return WriteNumber(value.GetInteger());
    case Scalar::KIND_DOUBLE:
        return WriteNumber(value.GetDouble());
    case Scalar::KIND_FLOAT:
        return WriteNumber(value.GetFloat());
    case Scalar::KIND_BOOLEAN:
        return value.GetBoolean() ? "true" : "false";
    case Scalar::KIND_TEXT:
        return Quote(value.GetText());
    case Scalar::KIND_NONE:
        break;
    }
    return {};
}

bool NeedsBrackets(Node const& part, Node::Kind around) {
    return part.kind == Node::Kind::Or ? around != Node::Kind::Or
                                       : part.kind == Node::Kind::And && around == Node::Kind::Not;
}

} // namespace

/// Of a part alone.
bool Request::P_Evaluate(Node const& node, Subject& subject) const {
    if (node.kind == Node::Kind::Condition)
        return P_Test(m_parts.conditions[node.condition], subject);
    if (node.kind == Node::Kind::Not)
        return !P_Evaluate(FirstPart(node), subject);
    bool const decisive = node.kind == Node::Kind::Or;
    for (Node const& part : PartsOf(node))
        if (P_Evaluate(part, subject) == decisive)
            return decisive;
    return !decisive;
}

Explanation Request::Explain(void* object) const {
    Explanation explanation;
    Subject subject{object};
    explanation.matches = P_Evaluate(m_parts.nodes.front(), subject);
    P_Explain(m_parts.nodes.front(), subject, explanation);
    return explanation;
}

void Request::P_Explain(Node const& node, Subject& subject, Explanation& explanation) const {
    if (node.kind == Node::Kind::Condition) {
        explanation.reasons.push_back(P_GetReason(m_parts.conditions[node.condition], subject));
        return;
    }
    bool const decisive = node.kind == Node::Kind::Or;
    if (node.kind != Node::Kind::Not && P_Evaluate(node, subject) == decisive) {
        for (Node const& part : PartsOf(node))
            if (P_Evaluate(part, subject) == decisive)
                return P_Explain(part, subject, explanation);
    }
    for (Node const& part : PartsOf(node))
        P_Explain(part, subject, explanation);
}

Reason Request::P_GetReason(CompiledCondition const& condition, Subject& subject) const {
    Reason reason{condition.GetText(), P_Test(condition, subject), condition.GetProperty(), {}};
    Scalar value;
    IProperty const* const reader = condition.GetReader();
    if (reader == nullptr
            ? m_filter.GetValueSpecific(subject.object, condition.GetProperty(), value, subject.scratch)
            : reader->Read(subject.object, value, subject.scratch))
        reason.value = selexpr::Write(value);
    return reason;
}

qzString Request::Write() const { return P_Write(m_parts.nodes.front()); }

qzString Request::P_Write(Node const& node) const {
    if (node.kind == Node::Kind::Condition)
        return m_parts.conditions[node.condition].GetText();
    qzString text = node.kind == Node::Kind::Not ? "not " : "";
    char const* const between = node.kind == Node::Kind::And ? " and " : " or ";
    for (Node const& part : PartsOf(node)) {
        text += &part == &FirstPart(node) ? "" : between;
        text += NeedsBrackets(part, node.kind) ? "(" + P_Write(part) + ")" : P_Write(part);
    }
    return text;
}

qzString Explanation::GetText() const {
    qzString text;
    for (Reason const& reason : reasons) {
        text += text.empty() ? "" : "\n";
        text += reason.condition + (reason.holds ? " is true: " : " is false: ") + reason.property;
        text += reason.value.empty() ? " has no value" : " is " + reason.value;
    }
    return text;
}

Explanation Explain(IRequest const& request, void* object) {
    if (auto const* const ours = dynamic_cast<Request const*>(&request))
        return ours->Explain(object);
    return {request.Matches(object), {}};
}

qzString ToText(IRequest const& request) {
    auto const* const ours = dynamic_cast<Request const*>(&request);
    return ours != nullptr ? ours->Write() : qzString();
}

} // namespace ui::selexpr
