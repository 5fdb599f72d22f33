#include "handles.h"

#include "derived_object.h"
#include "derived_registry.h"
#include "derived_session.h"
#include "qzinterp/qzInterp.h"

#include <mutex>
#include <typeinfo>
#include <unordered_map>

namespace qzPython {

// --- sessions --------------------------------------------------------------------------------------------

namespace {

struct Tokens {
    std::mutex mutex;
    std::unordered_map<ISession const*, std::weak_ptr<SessionToken>> bySession;
};

/// Never destroyed: sessions may end after everything else.
Tokens& GetTokens() {
    static Tokens& tokens = *new Tokens;
    return tokens;
}

} // namespace

/// Sits in the signal of the session's end. Its own end comes with the session's signal handler at the
/// latest, also where the handler holds events back or somebody has disconnected everybody.
class EndSlot {
public:
    explicit EndSlot(std::shared_ptr<SessionToken> token) : m_token(std::move(token)) {}
    ~EndSlot() { m_token->P_End(); }
    EndSlot(EndSlot const&) = delete;
    EndSlot& operator=(EndSlot const&) = delete;

    void OnEnd(qzString const& name) const {
        std::shared_ptr<SessionToken> const token = m_token;
        ISession* const session = token->Find();
        if (session != nullptr && session->GetName() == name)
            token->P_TellEnd();
    }

private:
    std::shared_ptr<SessionToken> m_token;
};

std::shared_ptr<SessionToken> SessionToken::Of(ISession& session) {
    Tokens& tokens = GetTokens();
    {
        std::lock_guard const lock(tokens.mutex);
        if (auto const found = tokens.bySession.find(&session); found != tokens.bySession.end()) {
            if (auto token = found->second.lock())
                return token;
        }
    }
    auto token = std::make_shared<SessionToken>();
    token->m_session = &session;
    auto slot = std::make_shared<EndSlot>(token);
    session.GetSigSlotHandler()->GetSessionDeletedSignal()->Connect(
        [slot = std::move(slot)](qzString const& name) { slot->OnEnd(name); });
    std::lock_guard const lock(tokens.mutex);
    tokens.bySession[&session] = token;
    return token;
}

void SessionToken::P_TellEnd() {
    std::vector<Kept> const listeners = std::exchange(m_endListeners, {});
    // When nothing of the derived session is left, it can no longer be read.
    if (m_session != nullptr && typeid(*m_session) == typeid(ISession))
        P_End();
    for (Kept const& listener : listeners)
        RunOrReport([&] { listener.Get()(); });
    P_End();
}

void SessionToken::P_End() {
    ISession* const session = std::exchange(m_session, nullptr);
    if (session == nullptr)
        return;
    Tokens& tokens = GetTokens();
    std::lock_guard const lock(tokens.mutex);
    tokens.bySession.erase(session);
}

ISession& SessionHandle::Get() const {
    ISession* const session = Find();
    if (session == nullptr)
        throw Ended("the session has ended");
    return *session;
}

store::Session& SessionHandle::GetStore() const {
    auto* const session = dynamic_cast<store::Session*>(&Get());
    if (session == nullptr)
        throw Refused("only sessions that keep their objects in memory can do this");
    return *session;
}

// --- objects ---------------------------------------------------------------------------------------------

Metaobject const* ObjectHandle::Find() const {
    ISession const* const session = m_session.Find();
    if (m_lent)
        return session != nullptr || !m_session.GetToken() ? *m_lent : nullptr;
    return session != nullptr ? session->Get(m_entity) : nullptr;
}

Metaobject const& ObjectHandle::Get() const {
    Metaobject const* const object = Find();
    if (object == nullptr)
        throw Ended(m_session.GetToken() && m_session.Find() == nullptr ? "the session has ended"
                                                                        : "the object is gone");
    return *object;
}

LentObject::LentObject(Metaobject const* object) {
    if (auto const* const derived = dynamic_cast<DerivedObject const*>(object)) {
        m_given = derived->GetSelf();
        return;
    }
    ISession* const session = object != nullptr ? object->GetSession() : nullptr;
    if (session != nullptr && session->Get(object->GetEntity()) == object) {
        m_given = GiveObject(object, SessionHandle(*session));
        m_object = object;
        return;
    }
    m_lent = std::make_shared<Metaobject const*>(object);
    m_given =
        object != nullptr ? py::cast(ObjectHandle(m_lent, SessionHandle(), object->GetEntity())) : py::none();
}

LentObject::~LentObject() {
    if (m_lent)
        *m_lent = nullptr;
}

bool LentObject::IsGone() const {
    if (m_given.is_none())
        return false;
    Metaobject const* const found = m_given.cast<ObjectHandle const&>().Find();
    return found == nullptr || (m_object != nullptr && found != m_object);
}

Entity ToEntity(py::handle object) {
    if (py::isinstance<ObjectHandle>(object))
        return object.cast<ObjectHandle const&>().GetEntity();
    return object.cast<Entity>();
}

// --- registries ------------------------------------------------------------------------------------------

RegistryHandle::RegistryHandle(bool isDerived)
    : m_own(std::make_unique<PythonRegistry>(*this, isDerived)), m_registry(m_own.get()) {}
RegistryHandle::RegistryHandle(MetaclassMgr& registry, std::function<bool()> isAlive)
    : m_registry(&registry), m_isAlive(std::move(isAlive)) {}
RegistryHandle::~RegistryHandle() = default;

MetaclassMgr& RegistryHandle::Get() const {
    if (m_isAlive && !m_isAlive())
        throw Ended("the registry has ended");
    return *m_registry;
}

// --- Python objects --------------------------------------------------------------------------------------

py::object GiveSession(ISession* session) {
    if (session == nullptr)
        return py::none();
    if (auto const* const derived = dynamic_cast<DerivedSession const*>(session))
        return derived->GetSelf();
    return py::cast(SessionHandle(*session));
}

py::object GiveObject(Metaobject const* object, SessionHandle const& session) {
    if (object == nullptr)
        return py::none();
    if (auto const* const derived = dynamic_cast<DerivedObject const*>(object))
        return derived->GetSelf();
    return py::cast(ObjectHandle(session, object->GetEntity()));
}

py::object GiveRegistry(MetaclassMgr* registry, std::function<bool()> isAlive) {
    if (registry == nullptr)
        return py::none();
    if (auto const* const own = dynamic_cast<PythonRegistry const*>(registry))
        return py::cast(&own->GetHandle(), py::return_value_policy::reference);
    return py::cast(std::make_unique<RegistryHandle>(*registry, std::move(isAlive)));
}

// --- the module ------------------------------------------------------------------------------------------

py::object GiveText(qzString const& text) {
    return py::reinterpret_steal<py::object>(
        PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape"));
}

bool TakeText(py::handle object, qzString& text) {
    if (!PyUnicode_Check(object.ptr()))
        return false;
    Py_ssize_t size = 0;
    if (char const* const utf8 = PyUnicode_AsUTF8AndSize(object.ptr(), &size)) { // as nearly all texts have
        text.assign(utf8, static_cast<std::size_t>(size));
        return true;
    }
    ClearRefusal();
    auto const bytes =
        py::reinterpret_steal<py::bytes>(PyUnicode_AsEncodedString(object.ptr(), "utf-8", "surrogateescape"));
    ClearRefusal();
    if (bytes)
        text = std::string_view(bytes);
    return static_cast<bool>(bytes);
}

qzString ToText(py::handle object) {
    qzString text;
    TakeText(py::str(object), text);
    return text;
}

void ClearRefusal() {
    if (PyErr_Occurred() != nullptr && PyErr_ExceptionMatches(PyExc_Exception) == 0)
        throw py::error_already_set();
    PyErr_Clear();
}

bool HasAttribute(py::handle object, char const* name) {
    auto const found = py::reinterpret_steal<py::object>(PyObject_GetAttrString(object.ptr(), name));
    ClearRefusal();
    return static_cast<bool>(found);
}

bool IsPythonAlive() { return Py_IsInitialized() != 0 && _Py_IsFinalizing() == 0; }

namespace {

/// Python's own hook prints; one that somebody has set wants to be told.
bool IsHookSet() {
    PyObject* const hook = PySys_GetObject("unraisablehook"); // borrowed, as the next one
    return hook != nullptr && hook != Py_None && hook != PySys_GetObject("__unraisablehook__");
}

void SetError(py::handle type, char const* message) { PyErr_SetObject(type.ptr(), GiveText(message).ptr()); }

/// What was raised, and where. The text of an exception is a script's, too, and may raise it once more, for
/// which the bindings' own description would ask again and again.
qzString Describe(py::error_already_set const& error) {
    try {
        py::module_ const traceback = py::module_::import("traceback");
        py::str const nothing;
        qzString text = ToText(
            nothing.attr("join")(traceback.attr("format_exception_only")(error.type(), error.value())));
        if (error.trace())
            text += "At:\n" + ToText(nothing.attr("join")(traceback.attr("format_tb")(error.trace())));
        return text.substr(0, text.find_last_not_of('\n') + 1);
    } catch (py::error_already_set const&) {
        return Py_TYPE(error.value().ptr())->tp_name;
    }
}

/// Tells of an exception by its text, or in Python, where `raise` makes it the one that is pending.
template <class GetText, class Raise>
void Tell(GetText&& getText, Raise&& raise) {
    if (!IsHookSet()) {
        qzInterp::ReportFailure("python", getText());
        return;
    }
    raise();
    PyErr_WriteUnraisable(nullptr);
}

} // namespace

void ReportFailure() noexcept {
    try {
        try {
            throw;
        } catch (py::error_already_set& error) {
            Tell([&] { return Describe(error); }, [&] { error.restore(); });
        } catch (py::builtin_exception const& error) {
            Tell([&] { return error.what(); }, [&] { error.set_error(); });
        } catch (std::exception const& error) {
            Tell([&] { return error.what(); }, [&] { SetError(PyExc_RuntimeError, error.what()); });
        }
    } catch (...) { // whoever is told has failed, too: nobody is left to be told
    }
}

Kept::Kept(py::object object)
    : m_object(new py::object(std::move(object)), [](py::object* held) {
          if (IsPythonAlive()) {
              py::gil_scoped_acquire const holding;
              delete held;
          } else {
              held->release(); // what it refers to went with Python
              delete held;
          }
      }) {}

Kept KeepFunction(py::object function) {
    if (PyCallable_Check(function.ptr()) == 0)
        throw py::type_error("a callable is expected");
    return Kept(std::move(function));
}

namespace {

/// An exception of C++ as one of Python with the same message, any bytes included.
template <class Exception>
void Translate(py::handle type) {
    static py::handle s_type;
    s_type = type;
    py::register_exception_translator([](std::exception_ptr thrown) {
        try {
            std::rethrow_exception(thrown);
        } catch (Exception const& exception) {
            SetError(s_type, exception.what());
        }
    });
}

template <class Exception>
void BindException(py::module_& module, char const* name, py::handle base, char const* doc) {
    py::exception<Exception> type(module, name, base);
    type.attr("__doc__") = doc;
    Translate<Exception>(type.release());
}

} // namespace

void BindHandles(py::module_& module) {
    BindException<Refused>(module, "Refused", PyExc_ValueError,
                           "What the library does not accept, with its message: a value, a name, an "
                           "operation.");
    BindException<Ended>(module, "Ended", PyExc_RuntimeError,
                         "Raised by everything that is done with a session, an object, a registry or a "
                         "database that is no more.");
    Translate<Missing>(PyExc_KeyError);
}

} // namespace qzPython
