#include "copies.h"

#include "descriptor/FormulaText.h"

namespace qzPython {

namespace {

Clause ToClause(qzString text) {
    Clause clause;
    Check(clause.SetFromString(text), "the text is no clause");
    return clause;
}

Formula ToFormula(qzString text) {
    Formula formula;
    Check(SetFromString(formula, text), "the text is no formula");
    return formula;
}

/// What a clause says: (start, end, step), ids, a name or a color.
py::object GiveContent(Clause const& self) {
    unsigned int start = 0, end = 0, step = 0;
    qzStlVector<unsigned int> ids;
    qzString name;
    Color color;
    if (self.GetIdRange(start, end, step))
        return py::make_tuple(start, end, step);
    if (self.GetIdList(ids))
        return py::cast(ids);
    if (self.GetName(name))
        return GiveText(name);
    return self.GetColor(color) ? py::cast(color) : py::object(py::none());
}

void BindClause(py::module_& module) {
    py::class_<Clause> bound(module, "Clause", "One condition of a selection formula: which ids it matches.");
    py::enum_<Clause::Kind>(bound, "Kind")
        .value("EMPTY", Clause::KIND_EMPTY)
        .value("ID_RANGE", Clause::KIND_ID_RANGE)
        .value("ID_LIST", Clause::KIND_ID_LIST)
        .value("NAME", Clause::KIND_NAME)
        .value("COLOR", Clause::KIND_COLOR);
    bound.def(py::init<>())
        .def(py::init(&ToClause), py::arg("text"), "Reads what str() writes: 'range(1 100)', 'ids(1 2 7)'.")
        .def_static("from_id_range", &Clause::FromIdRange, py::arg("start"), py::arg("end"),
                    py::arg("step") = 1)
        .def_static("from_id_list", &Clause::FromIdList, py::arg("ids"))
        .def_static("from_name", &Clause::FromName, py::arg("name"))
        .def_static("from_color", &Clause::FromColor, py::arg("color"))
        .def_property_readonly("kind", &Clause::GetKind)
        .def_property_readonly("content", &GiveContent,
                               "(start, end, step), a list of ids, a name or a Color; None for an empty one.")
        .def_property_readonly("is_empty", &Clause::IsEmpty)
        .def(
            "matches",
            [](Clause const& self, unsigned int id) -> std::optional<bool> {
                bool applicable = false;
                bool const within = self.IsIdWithin(id, applicable);
                return applicable ? std::optional(within) : std::nullopt;
            },
            py::arg("id"), "Whether the id is matched; None when the clause does not speak about it.")
        .def("__str__", &Clause::GetAsString)
        .def("__repr__",
             [](Clause const& self) { return py::str("Clause({!r})").format(self.GetAsString()); })
        .def(
            "__eq__", [](Clause const& a, Clause const& b) { return a == b; }, py::is_operator());
    BindPickle(
        bound, +[](Clause const& self) { return std::tuple(self.GetAsString()); }, &ToClause);
}

/// A clause of a formula: the clause, the type that it was written against, and whether it adds.
using Entry = std::tuple<Clause, EntityFullType, bool>;

Entry GetEntry(Formula const& self, unsigned int index) {
    if (index >= self.GetClauseCount())
        throw py::index_error("there is no such clause");
    Entry entry;
    self.GetClause(index, std::get<0>(entry), std::get<1>(entry), std::get<2>(entry));
    return entry;
}

void BindFormula(py::module_& module) {
    py::class_<Formula> bound(
        module, "Formula",
        "A selection of entities of one type: clauses that add or remove ids, the last one that "
        "speaks about an id decides.");
    bound.def(py::init<>())
        .def(py::init<EntityFullType const&>(), py::arg("type"))
        .def_static("from_text", &ToFormula, py::arg("text"),
                    "Reads what str() writes: 'GRID: +range(1 100) -ids(7)'.")
        .def_property_readonly("type", &Formula::GetEntityFullType)
        .def_property_readonly("is_valid", &Formula::IsValid)
        .def(
            "add",
            [](Formula& self, Clause const& clause, std::optional<EntityFullType> const& source) {
                self.PushBackClause(clause, source.value_or(self.GetEntityFullType()), true);
            },
            py::arg("clause"), py::arg("source") = py::none(), "Appends a clause that adds.")
        .def(
            "remove",
            [](Formula& self, Clause const& clause, std::optional<EntityFullType> const& source) {
                self.PushBackClause(clause, source.value_or(self.GetEntityFullType()), false);
            },
            py::arg("clause"), py::arg("source") = py::none(), "Appends a clause that removes.")
        .def(
            "insert",
            [](Formula& self, unsigned int index, Clause const& clause, bool adds,
               std::optional<EntityFullType> const& source) {
                GetEntry(self, index);
                self.InsertClause(index, clause, source.value_or(self.GetEntityFullType()), adds);
            },
            py::arg("index"), py::arg("clause"), py::arg("adds") = true, py::arg("source") = py::none(),
            "Inserts a clause before another one.")
        .def(
            "__setitem__",
            [](Formula& self, unsigned int index, Entry const& entry) {
                GetEntry(self, index);
                self.ReplaceClause(index, std::get<0>(entry), std::get<1>(entry), std::get<2>(entry));
            },
            py::arg("index"), py::arg("entry"))
        .def("contains", &Formula::IsIdWithin, py::arg("id"), py::arg("lenient") = true,
             "Whether the formula selects the id; lenient passes over clauses that do not speak about it.")
        .def("__len__", &Formula::GetClauseCount)
        .def("__getitem__", &GetEntry, py::arg("index"), "(clause, source type, whether it adds).")
        .def(
            "__delitem__",
            [](Formula& self, unsigned int index) {
                GetEntry(self, index);
                self.RemoveClauses(index, index + 1);
            },
            py::arg("index"))
        .def("__str__", [](Formula const& self) { return GetAsString(self); })
        .def("__repr__",
             [](Formula const& self) { return py::str("<Formula {}>").format(GetAsString(self)); })
        .def(
            "__eq__", [](Formula const& a, Formula const& b) { return a == b; }, py::is_operator());
    BindPickle(
        bound, +[](Formula const& self) { return std::tuple(GetAsString(self)); }, &ToFormula);
}

} // namespace

void BindFormulas(py::module_& module) {
    BindClause(module);
    BindFormula(module);
}

} // namespace qzPython
