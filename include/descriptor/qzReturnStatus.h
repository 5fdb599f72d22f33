#pragma once

#include <cstdint>
#include <string>

namespace qzDescriptor {

/// The result of an operation that can fail with an explanation: status 0 and no message, or status -1 and a
/// sentence.
struct qzReturnStatus {
    std::int32_t status = 0;
    std::string message;

    friend bool operator==(qzReturnStatus const&, qzReturnStatus const&) = default;
};

} // namespace qzDescriptor
