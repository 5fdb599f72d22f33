#pragma once

#include <string>

/// The text type of every interface: a narrow string that may hold any bytes, zero bytes included.
using qzString = std::string;

namespace qzDescriptor {
using ::qzString;
}
