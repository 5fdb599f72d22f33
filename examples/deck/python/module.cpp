// The module `qzdeck`: decks as sessions for the package `qzdescriptor`.

#include "descriptor/ScriptSession.h"
#include "objects/DeckRegistry.h"
#include "objects/DeckSession.h"
#include "writer/save_deck.h"

#include <memory>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>
#include <string>
#include <vector>

namespace py = pybind11;
using namespace py::literals;

namespace qzDeck {

namespace {

using Path = std::filesystem::path;

[[noreturn]] void RaiseOsError(std::string const& message) {
    PyErr_SetString(PyExc_OSError, message.c_str());
    throw py::error_already_set();
}

/// What the package gives to a script that asks for its session.
py::object ToPython(DeckSession& session) {
    qzDescriptor::ScriptSessionScope const scope(&session);
    return py::module_::import("qzdescriptor").attr("get_script_session")();
}

std::vector<std::string> ListReports(Model const& model) {
    std::vector<std::string> texts;
    for (Report const& report : model.GetReports())
        texts.push_back(Describe(report, model.GetSource()));
    return texts;
}

/// The first few, in lines.
std::string Summarize(std::vector<std::string> const& reports) {
    constexpr std::size_t s_shown = 20;
    std::string text;
    for (std::size_t i = 0; i < reports.size() && i < s_shown; ++i)
        text += (i == 0 ? "" : "\n") + reports[i];
    return reports.size() > s_shown ? text + "\nand " + std::to_string(reports.size() - s_shown) + " more"
                                    : text;
}

/// What a deck is read into: the registry and, until it ends, the session.
class Deck {
public:
    explicit Deck(Path const& path) {
        py::gil_scoped_release const others;
        m_registry = std::make_unique<DeckRegistry>();
        m_session = static_cast<DeckSession*>(m_registry->GetSession(path.string()));
    }
    bool IsRead() const { return m_session != nullptr; }
    /// To be called once it is read, with Python held.
    void TakeHandle() { m_handle = ToPython(*m_session); }

    /// A new handle, which is to keep this deck; once the session has ended the one that says so.
    py::object GetHandle() const { return IsOpen() ? ToPython(*m_session) : m_handle; }
    bool IsOpen() const { return m_handle.attr("is_alive").cast<bool>(); }
    /// Raises `Ended` when it has ended.
    DeckSession& Get() const {
        if (!IsOpen())
            py::getattr(m_handle, "name"); // the handle knows how to say it
        return *m_session;
    }
    void Close() { m_registry.reset(); }

private:
    std::unique_ptr<DeckRegistry> m_registry;
    DeckSession* m_session = nullptr;
    py::object m_handle; // keeps nothing alive, and knows whether the session is
};

py::object GetSession(py::object const& self) {
    auto const& deck = self.cast<Deck const&>();
    py::object const handle = deck.GetHandle();
    if (deck.IsOpen()) // the deck keeps the other handle, which must not keep the deck
        py::detail::keep_alive_impl(handle, self);
    return handle;
}

std::unique_ptr<Deck> Load(Path const& path, bool isStrict) {
    auto deck = std::make_unique<Deck>(path);
    if (!deck->IsRead())
        RaiseOsError("cannot read " + path.string());
    deck->TakeHandle();
    auto const reports = isStrict ? ListReports(deck->Get().GetModel()) : std::vector<std::string>();
    if (!reports.empty())
        throw py::value_error(Summarize(reports));
    return deck;
}

void Save(Deck const& deck, Path const& path) {
    if (auto const problem = SaveDeck(deck.Get().GetModel(), path.string()))
        RaiseOsError("cannot write " + path.string() + ": " + *problem);
}

} // namespace

PYBIND11_MODULE(qzdeck, module) {
    module.doc() = "Structural models in the fixed-column card format, as sessions of qzdescriptor:\n\n"
                   "    with qzdeck.load('bridge.bdf') as deck:\n"
                   "        for plate in deck.objects('PSHELL', 'T < 5'):\n"
                   "            plate['T'] = 5\n"
                   "        deck.save('thicker.bdf')\n";
    py::module_::import("qzdescriptor");
    py::class_<Deck>(
        module, "Deck",
        "A deck that was read. It has every operation of qzdescriptor.Session. Its session lives "
        "as long as the deck, or its `session`, is kept, and until the deck is closed; objects "
        "keep nothing alive.")
        .def_property_readonly("session", &GetSession, "Its session.")
        .def_property_readonly(
            "reports", [](Deck const& self) { return ListReports(self.Get().GetModel()); },
            "What is wrong in the files, as 'file:line: reason: text'. All of it was kept and read over.")
        .def_property_readonly("is_open", &Deck::IsOpen)
        .def("save", &Save, "path"_a,
             "Writes the deck as it is now, as one file. Raises OSError when that cannot be written, or is "
             "one of the files that the deck was read from.")
        .def("close", &Deck::Close, "Ends the session. What is asked of it afterwards raises Ended.")
        .def("__getattr__", [](py::object const& self,
                               py::str const& name) { return py::object(self.attr("session").attr(name)); })
        .def("__enter__", [](py::object const& self) { return self; })
        .def("__exit__", [](Deck& self, py::args const&) { self.Close(); });
    module.def("load", &Load, "path"_a, py::kw_only(), "strict"_a = false,
               "Reads a deck. Raises OSError when the file cannot be read and, if strict, ValueError when "
               "anything in it is wrong: its text is what the reader reports.");
}

} // namespace qzDeck
