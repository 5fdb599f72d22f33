#pragma once

#include "OutputChannel.h"
#include "qzinterp/qzInterp.h"

#include <memory>
#include <tcl.h>

/// Tcl in this process, on the thread that asked for it first: calls from others are refused.
class TclInterp : public qzInterp {
public:
    /// Null with a failure when Tcl does not start.
    static TclInterp* Open(qzString& failure);

    /// Runs a script in the global namespace.
    bool Execute(qzString const& script, qzString& output) override;
    bool Call(qzString const& function, qzStlVector<qzVariant> const& arguments, qzString& output) override;

private:
    struct EndInterp {
        void operator()(Tcl_Interp* interp) const { Tcl_DeleteInterp(interp); }
    };
    using Interp = std::unique_ptr<Tcl_Interp, EndInterp>;

    explicit TclInterp(Interp interp);

    // The work answers what Tcl does.
    template <class Work>
    bool P_Run(qzString& output, Work&& work);

    // A script that ends itself ends that script, and never the process.
    static int P_Exit(ClientData self, Tcl_Interp* interp, int count, Tcl_Obj* const* words);

    Interp m_interp;
    OutputChannel m_channel;
    int m_exitCode = 0;
    bool m_hasExited = false;
};
