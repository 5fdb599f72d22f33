// What Tcl calls: the start of the package, and its command.

#include "commands.h"

#include <exception>
#include <string_view>

namespace qzTcl {

namespace {

/// A message quotes what was given, which may be of any length.
int Fail(Tcl_Interp* interp, std::string_view message) noexcept {
    constexpr std::size_t longest = 10'000;
    try {
        Tcl_SetObjResult(interp, GiveText(qzString(message.substr(0, longest))));
    } catch (...) {
        Tcl_SetObjResult(interp, Tcl_NewStringObj("there is no memory for the reason", -1));
    }
    return TCL_ERROR;
}

int Run(ClientData, Tcl_Interp* interp, int count, Tcl_Obj* const* words) {
    if (count < 2) {
        Tcl_WrongNumArgs(interp, 1, words, "subcommand ?arg ...?");
        return TCL_ERROR;
    }
    int index = 0;
    if (Tcl_GetIndexFromObjStruct(interp, words[1], AllCommands(), sizeof(Command), "subcommand", 0,
                                  &index) != TCL_OK)
        return TCL_ERROR;
    Command const& command = AllCommands()[index];
    auto const given = static_cast<std::size_t>(count) - 2;
    if (given < command.least || given > command.most) {
        Tcl_WrongNumArgs(interp, 2, words, command.usage);
        return TCL_ERROR;
    }
    try { // nothing may be thrown through Tcl
        Tcl_SetObjResult(interp, command.run(Call(Words(words + 2, given))));
        return TCL_OK;
    } catch (std::exception const& failure) {
        return Fail(interp, failure.what());
    } catch (...) {
        return Fail(interp, "something unknown was thrown");
    }
}

} // namespace

} // namespace qzTcl

#ifdef _WIN32
#    define QZ_PACKAGE_API __declspec(dllexport)
#else
#    define QZ_PACKAGE_API __attribute__((visibility("default")))
#endif

extern "C" QZ_PACKAGE_API int Qzdescriptor_Init(Tcl_Interp* interp) {
    if (Tcl_PkgRequire(interp, "Tcl", "8.6", 0) == nullptr)
        return TCL_ERROR;
    Tcl_CreateObjCommand(interp, "qz", qzTcl::Run, nullptr, nullptr);
    return Tcl_PkgProvide(interp, "qzdescriptor", QZ_VERSION);
}
