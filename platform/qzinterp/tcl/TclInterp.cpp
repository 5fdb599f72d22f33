#include "TclInterp.h"

#include "../src/SharedLibrary.h"

#include <limits>
#include <utility>
#include <vector>

namespace {

/// A word of a Tcl command, as long as somebody holds it.
class Word {
public:
    explicit Word(Tcl_Obj* object) : m_object(object) { Tcl_IncrRefCount(m_object); }
    Word(Word&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    Word& operator=(Word&&) = delete;
    ~Word() {
        if (m_object != nullptr)
            Tcl_DecrRefCount(m_object);
    }
    Tcl_Obj* Get() const { return m_object; }

private:
    Tcl_Obj* m_object;
};

/// Texts come as UTF-8; Tcl has a form of its own for zero bytes and does not like broken sequences.
Tcl_Obj* MakeText(qzString const& text) {
    static Tcl_Encoding const utf8 = Tcl_GetEncoding(nullptr, "utf-8");
    Tcl_DString converted;
    Tcl_ExternalToUtfDString(utf8, text.data(), static_cast<int>(text.size()), &converted);
    Tcl_Obj* const object = Tcl_NewStringObj(Tcl_DStringValue(&converted), Tcl_DStringLength(&converted));
    Tcl_DStringFree(&converted);
    return object;
}

bool IsTooLong(qzString const& text) { return text.size() > std::numeric_limits<int>::max() / 2; }

struct ToTcl {
    Tcl_Obj* operator()(std::monostate) const { return Tcl_NewObj(); }
    Tcl_Obj* operator()(int value) const { return Tcl_NewIntObj(value); }
    Tcl_Obj* operator()(long long value) const { return Tcl_NewWideIntObj(value); }
    Tcl_Obj* operator()(bool value) const { return Tcl_NewBooleanObj(value ? 1 : 0); }
    Tcl_Obj* operator()(float value) const { return Tcl_NewDoubleObj(static_cast<double>(value)); }
    Tcl_Obj* operator()(double value) const { return Tcl_NewDoubleObj(value); }
    Tcl_Obj* operator()(void* value) const {
        return Tcl_NewWideIntObj(static_cast<Tcl_WideInt>(reinterpret_cast<std::intptr_t>(value)));
    }
    Tcl_Obj* operator()(qzString const& value) const { return MakeText(value); }
};

/// The packages of this project are beside the libraries, where they were built or installed.
void AddPackageFolder(Tcl_Interp* interp) {
    std::filesystem::path const libraries = SharedLibrary::GetFolderOf(&TclInterp::Open);
    std::filesystem::path const folder = libraries / "tcl";
    std::error_code ignored;
    if (!libraries.empty() && std::filesystem::exists(folder, ignored))
        Tcl_SetVar2Ex(interp, "auto_path", nullptr, MakeText(folder.generic_string()),
                      TCL_GLOBAL_ONLY | TCL_APPEND_VALUE | TCL_LIST_ELEMENT);
}

/// Whether this is the thread that Tcl was started on. The number of a thread that has ended may be given to
/// another, so that it tells nothing.
thread_local bool t_isThreadOfTcl = false;

} // namespace

TclInterp::TclInterp(Interp interp) : m_interp(std::move(interp)), m_channel(m_interp.get()) {
    Tcl_CreateObjCommand(m_interp.get(), "exit", P_Exit, this, nullptr);
}

TclInterp* TclInterp::Open(qzString& failure) {
    Tcl_FindExecutable(nullptr);
    Interp interp(Tcl_CreateInterp());
    if (Tcl_Init(interp.get()) != TCL_OK) {
        failure = Tcl_GetStringResult(interp.get());
        return nullptr;
    }
    AddPackageFolder(interp.get());
    t_isThreadOfTcl = true;
    return new TclInterp(std::move(interp)); // for good: scripts may be called until the process ends
}

// Goes through every `catch` of the script.
int TclInterp::P_Exit(ClientData self, Tcl_Interp* interp, int count, Tcl_Obj* const* words) {
    int code = 0;
    if (count > 2 || (count == 2 && Tcl_GetIntFromObj(interp, words[1], &code) != TCL_OK)) {
        Tcl_WrongNumArgs(interp, 1, words, "?returnCode?");
        return TCL_ERROR;
    }
    static_cast<TclInterp*>(self)->m_hasExited = true;
    static_cast<TclInterp*>(self)->m_exitCode = code;
    Tcl_CancelEval(interp, nullptr, nullptr, TCL_CANCEL_UNWIND);
    return TCL_ERROR;
}

template <class Work>
bool TclInterp::P_Run(qzString& output, Work&& work) {
    if (!t_isThreadOfTcl) {
        output = "Tcl is used by another thread";
        return false;
    }
    OutputChannel::Capture capture(m_channel);
    m_hasExited = false;
    bool succeeded = work() == TCL_OK;
    if (!succeeded && !m_hasExited) {
        char const* const info = Tcl_GetVar(m_interp.get(), "errorInfo", TCL_GLOBAL_ONLY);
        capture.text += info != nullptr ? info : Tcl_GetStringResult(m_interp.get());
    } else if (m_hasExited) {
        succeeded = m_exitCode == 0;
        if (!succeeded)
            capture.text += "the script ended itself with the code " + std::to_string(m_exitCode);
    }
    m_hasExited = false;
    Tcl_ResetResult(m_interp.get());
    output = std::move(capture.text);
    return succeeded;
}

bool TclInterp::Execute(qzString const& script, qzString& output) {
    if (IsTooLong(script)) {
        output = "the script is too long";
        return false;
    }
    return P_Run(output, [&] {
        Word const text(MakeText(script));
        return Tcl_EvalObjEx(m_interp.get(), text.Get(), TCL_EVAL_GLOBAL);
    });
}

bool TclInterp::Call(qzString const& function, qzStlVector<qzVariant> const& arguments, qzString& output) {
    return P_Run(output, [&] {
        std::vector<Word> words;
        words.emplace_back(MakeText(function));
        for (qzVariant const& argument : arguments)
            words.emplace_back(argument.Visit(ToTcl()));
        std::vector<Tcl_Obj*> objects;
        for (Word const& word : words)
            objects.push_back(word.Get());
        return Tcl_EvalObjv(m_interp.get(), static_cast<int>(objects.size()), objects.data(),
                            TCL_EVAL_GLOBAL);
    });
}

#ifdef _WIN32
#    define QZ_BACKEND_API __declspec(dllexport)
#else
#    define QZ_BACKEND_API __attribute__((visibility("default")))
#endif

extern "C" QZ_BACKEND_API qzInterp* qzinterp_open(qzString& failure) { return TclInterp::Open(failure); }
