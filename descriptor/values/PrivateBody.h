#pragma once

#include <memory>

namespace qzDescriptor {

// What handles do with the private body that they own, or have none of.

template <class Body>
std::unique_ptr<Body> CloneBody(std::unique_ptr<Body> const& body) {
    if (!body)
        return nullptr;
    return std::make_unique<Body>(*body);
}

template <class Body>
bool EqualBodies(std::unique_ptr<Body> const& a, std::unique_ptr<Body> const& b) {
    return a && b ? *a == *b : !a && !b;
}

} // namespace qzDescriptor
