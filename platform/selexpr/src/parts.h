#pragma once

#include "Request.h"

namespace ui::selexpr {

inline Node const& FirstPart(Node const& node) { return *(&node + 1); }

/// The parts that a node is made of, for a loop.
class PartsOf {
public:
    explicit PartsOf(Node const& node) : m_node(node) {}

    struct Iterator {
        Node const* node;

        Node const& operator*() const { return *node; }
        Iterator& operator++() {
            node += node->size;
            return *this;
        }
        friend bool operator==(Iterator const&, Iterator const&) = default;
    };

    Iterator begin() const { return {&m_node + 1}; }
    Iterator end() const { return {&m_node + m_node.size}; }

private:
    Node const& m_node;
};

} // namespace ui::selexpr
