#pragma once

#include "descriptor/Value.h"

/// A value in static storage of this library.
__attribute__((visibility("default"))) qzDescriptor::Value& LibraryValue();
