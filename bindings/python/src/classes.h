#pragma once

#include "bindings.h"

/// What holds for all classes of the module, whatever they are.

namespace qzPython {

/// Classes without anything of C++ in them, as the base that they all share, raise TypeError when they are
/// called. Before the first class is made.
void RefuseBareInstances();
/// Makes sure that what the classes define is safe to be called anyhow. When all of them are made.
void FinishClasses(py::module_ const& module);

} // namespace qzPython
