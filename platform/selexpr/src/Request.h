#pragma once

#include "CompiledCondition.h"
#include "selexpr/IDataFilter.h"
#include "selexpr/IRequest.h"
#include "selexpr/explain.h"

#include <memory>
#include <vector>

namespace ui::selexpr {

/// A part of a request, followed by the parts that it is made of.
struct Node {
    enum class Kind { Condition, Not, And, Or };

    Kind kind;
    std::size_t size;          ///< in nodes, itself included: the next part begins there
    std::size_t condition = 0; ///< for Kind::Condition, which
};

class Request : public IRequest {
public:
    struct Parts {
        std::vector<Node> nodes; ///< one tree, each part before those that it is made of
        std::vector<CompiledCondition> conditions;
        std::vector<std::unique_ptr<IProperty>> properties; ///< what the conditions read with
    };

    Request(IDataFilter const& filter, Parts parts);

    bool Matches(void* object) const override;

    Explanation Explain(void* object) const;
    qzString Write() const;

private:
    /// A condition, and where its answer leads: to another step, or to an end, which has no condition.
    struct Step {
        CompiledCondition const* condition;
        Step const* next[2]; ///< on false and on true
    };

    /// An object, and where the text lies that was read from it last.
    struct Subject {
        void* object;
        qzString scratch = {};
    };

    static constexpr Step s_false = {};
    static constexpr Step s_true = {};

    void P_AddSteps(Node const& node, Step const* onFalse, Step const* onTrue);
    bool P_Evaluate(Node const& node, Subject& subject) const;
    bool P_Test(CompiledCondition const& condition, Subject& subject) const;
    void P_Explain(Node const& node, Subject& subject, Explanation& explanation) const;
    Reason P_GetReason(CompiledCondition const& condition, Subject& subject) const;
    qzString P_Write(Node const& node) const;

    IDataFilter const& m_filter;
    Parts m_parts;
    std::vector<Step> m_steps; ///< the conditions of the tree in their order, as a way through them
};

} // namespace ui::selexpr
