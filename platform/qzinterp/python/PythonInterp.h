#pragma once

#include "qzinterp/qzInterp.h"

#include <pybind11/pybind11.h>

/// Python in this process. It may be used on any thread, and never ends before the process does, or before
/// the program that had it running first ends it.
class PythonInterp : public qzInterp {
public:
    /// Finds Python running or starts it, apart from the user's settings: no variables of the environment, no
    /// folder of the user, no folder of the current script. Null with a failure when it does not start.
    static PythonInterp* Open(qzString& failure);

    /// Runs statements in the main module.
    bool Execute(qzString const& script, qzString& output) override;
    /// The function may be one of the main module, a built-in one, or one of a module that can be imported,
    /// by its dotted name.
    bool Call(qzString const& function, qzStlVector<qzVariant> const& arguments, qzString& output) override;

private:
    template <class Work>
    static bool P_Run(qzString& output, Work&& work);
};
