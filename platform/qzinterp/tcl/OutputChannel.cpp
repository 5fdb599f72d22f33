#include "OutputChannel.h"

#include <cerrno>

namespace {

int Close(ClientData, Tcl_Interp*) { return 0; }
void Watch(ClientData, int) {}
int GetHandle(ClientData, int, ClientData*) { return TCL_ERROR; }

int Read(ClientData, char*, int, int* failure) {
    *failure = EINVAL;
    return -1;
}

Tcl_ChannelType MakeType(Tcl_DriverOutputProc* write) {
    Tcl_ChannelType type{};
    type.typeName = "captured output";
    type.version = TCL_CHANNEL_VERSION_5;
    type.closeProc = Close;
    type.inputProc = Read;
    type.outputProc = write;
    type.watchProc = Watch;
    type.getHandleProc = GetHandle;
    return type;
}

} // namespace

Tcl_ChannelType const OutputChannel::s_type = MakeType(&OutputChannel::P_Write);

OutputChannel::OutputChannel(Tcl_Interp* interp)
    : m_interp(interp), m_channel(Tcl_CreateChannel(&s_type, "captured", this, TCL_WRITABLE)) {
    Tcl_RegisterChannel(nullptr, m_channel); // a script that closes it does not end it
    Tcl_SetChannelOption(nullptr, m_channel, "-buffering", "none");
    Tcl_SetChannelOption(nullptr, m_channel, "-encoding", "utf-8");
    Tcl_SetChannelOption(nullptr, m_channel, "-translation", "lf");
}

int OutputChannel::P_Write(ClientData self, char const* bytes, int count, [[maybe_unused]] int* failure) {
    if (qzString* const text = static_cast<OutputChannel*>(self)->m_text)
        text->append(bytes, static_cast<std::size_t>(count));
    return count;
}

// A script finds its standard channels by what stands for them on the thread, among those it knows.
OutputChannel::Capture::Capture(OutputChannel& channel)
    : m_channel(channel),
      m_outer(channel.m_text),
      m_output(Tcl_GetStdChannel(TCL_STDOUT)),
      m_errors(Tcl_GetStdChannel(TCL_STDERR)) {
    m_channel.m_text = &text;
    if (Tcl_IsChannelRegistered(m_channel.m_interp, m_channel.m_channel) == 0)
        Tcl_RegisterChannel(m_channel.m_interp, m_channel.m_channel);
    Tcl_SetStdChannel(m_channel.m_channel, TCL_STDOUT);
    Tcl_SetStdChannel(m_channel.m_channel, TCL_STDERR);
}

OutputChannel::Capture::~Capture() {
    Tcl_SetStdChannel(m_output, TCL_STDOUT);
    Tcl_SetStdChannel(m_errors, TCL_STDERR);
    m_channel.m_text = m_outer;
}
