#pragma once

#include <functional>

/// Runs the work with its n-th allocation (from 1) failing with std::bad_alloc; false when the work completes
/// because it allocates less often. For programs that FailingAllocation.cpp is part of: it replaces the
/// global operator new, for the libraries of the program too.
bool FailsAtAllocation(unsigned int n, std::function<void()> const& work);
