#pragma once

#include "qzutl/qzString.h"

#include <tcl.h>

/// A channel of one Tcl interpreter that takes what scripts write to their standard output and error.
class OutputChannel {
public:
    explicit OutputChannel(Tcl_Interp* interp);
    OutputChannel(OutputChannel const&) = delete;
    OutputChannel& operator=(OutputChannel const&) = delete;

    /// While one lives, what is written goes into its text. Captures nest.
    class Capture {
    public:
        explicit Capture(OutputChannel& channel);
        ~Capture();
        Capture(Capture const&) = delete;
        Capture& operator=(Capture const&) = delete;

        qzString text;

    private:
        OutputChannel& m_channel;
        qzString* m_outer;
        Tcl_Channel m_output;
        Tcl_Channel m_errors;
    };

private:
    static int P_Write(ClientData self, char const* bytes, int count, int* failure);

    static Tcl_ChannelType const s_type;

    Tcl_Interp* m_interp;
    Tcl_Channel m_channel;
    qzString* m_text = nullptr;
};
