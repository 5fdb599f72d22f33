#include "selexpr/filter.h"
#include "Request.h"
#include "Selection.h"
#include "parts.h"

#include <algorithm>

namespace ui::selexpr {

void MatchEach(IRequest const& request, void* const* objects, std::size_t count, bool* matches) {
    auto const* const ours = dynamic_cast<Request const*>(&request);
    if (ours == nullptr) { // a request of a parser elsewhere
        std::transform(objects, objects + count, matches,
                       [&](void* object) { return request.Matches(object); });
        return;
    }
    std::fill(matches, matches + count, false);
    for (std::size_t begin = 0; begin < count; begin += Selection::s_capacity) {
        Selection all(std::min(count - begin, Selection::s_capacity));
        for (unsigned char const index : ours->Select(all, objects + begin))
            matches[begin + index] = true;
    }
}

Selection Request::Select(Selection const& from, void* const* objects) const {
    qzString scratch;
    return P_Select(m_parts.nodes.front(), from, objects, scratch);
}

Selection Request::P_Select(Node const& node, Selection const& from, void* const* objects,
                            qzString& scratch) const {
    switch (node.kind) {
    case Node::Kind::Condition:
        return P_SelectBy(m_parts.conditions[node.condition], from, objects, scratch);
    case Node::Kind::Not:
        return from.Without(P_Select(FirstPart(node), from, objects, scratch));
    case Node::Kind::And:
    case Node::Kind::Or:
        break;
    }
    bool const isAnd = node.kind == Node::Kind::And;
    Selection undecided = from;
    for (Node const& part : PartsOf(node)) {
        Selection const found = P_Select(part, undecided, objects, scratch);
        undecided = isAnd ? found : undecided.Without(found);
    }
    return isAnd ? undecided : from.Without(undecided);
}

Selection Request::P_SelectBy(CompiledCondition const& condition, Selection const& from, void* const* objects,
                              qzString& scratch) const {
    IProperty const* const reader = condition.GetReader();
    Selection found;
    for (unsigned char const index : from) {
        Scalar value;
        bool const holds = reader == nullptr ? m_filter.MatchSpecific(objects[index], condition)
                                             : reader->Read(objects[index], value, scratch) &&
                                                   m_filter.P_Holds(value, condition);
        found.AddIf(index, holds);
    }
    return found;
}

} // namespace ui::selexpr
