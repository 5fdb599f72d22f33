#include "copies.h"
#include "databases.h"
#include "elements.h"

#include "descriptor/ExternalTables.h"

namespace qzPython {

namespace {

/// The lists that columns are.
using ColumnLists = std::tuple<qzStlVector<bool>, qzStlVector<int>, qzStlVector<double>,
                               qzStlVector<qzString>, qzStlVector<qzTTriple<int>>,
                               qzStlVector<qzTTriple<double>>, EntityList, qzStlVector<unsigned int>>;

/// Calls the visitor with the first kind of column that the data fit; arrays of unsigned numbers keep their
/// type.
template <class F, class... List>
bool VisitData(py::handle data, F&& visitor, std::type_identity<std::tuple<List...>>) {
    qzStlVector<unsigned int> ids;
    if (!py::isinstance<EntityList>(data) && TakeArray(data, ids)) {
        visitor(ids);
        return true;
    }
    auto const visit = [&]<class L>(std::type_identity<L>) {
        L list;
        bool const fits = Take(data, list);
        if (fits)
            visitor(list);
        return fits;
    };
    return (visit(std::type_identity<List>()) || ...);
}

/// Columns of pandas as what they hold.
py::object ToArray(py::handle data) {
    return HasAttribute(data, "to_numpy") ? py::object(data.attr("to_numpy")())
                                          : py::reinterpret_borrow<py::object>(data);
}

template <class F>
void VisitData(py::handle data, F&& visitor) {
    if (!VisitData(ToArray(data), visitor, std::type_identity<ColumnLists>()))
        throw Refused("a column holds bools, whole numbers, floats, texts, triples, or entities of one type");
}

template <class... List>
py::object GiveColumn(Tabular const& table, unsigned int column, std::type_identity<std::tuple<List...>>) {
    py::object given = py::none();
    auto const give = [&]<class L>(std::type_identity<L>) {
        L list;
        bool const is = table.GetColumn(column, list) == 0;
        if (is)
            given = Give(list);
        return is;
    };
    static_cast<void>((give(std::type_identity<List>()) || ...));
    return given;
}

unsigned int CheckColumn(Tabular const& table, long long column) {
    CheckOpen(table);
    long long const count = table.GetColumnCount();
    if (column < -count || column >= count)
        throw py::index_error("there is no such column");
    return static_cast<unsigned int>(column < 0 ? column + count : column);
}

unsigned int CheckRow(Tabular const& table, long long row) {
    long long const count = table.GetRowCount();
    if (row < -count || row >= count)
        throw py::index_error("there is no such row");
    return static_cast<unsigned int>(row < 0 ? row + count : row);
}

py::object GetColumn(Tabular const& table, long long column) {
    return GiveColumn(table, CheckColumn(table, column), std::type_identity<ColumnLists>());
}

/// Calls the visitor with the data as the list that the column is; refuses other data.
template <class... List>
bool SetColumnOf(Tabular& table, unsigned int column, py::handle data,
                 std::type_identity<std::tuple<List...>>) {
    auto const set = [&]<class L>(std::type_identity<L>) {
        L list;
        return table.GetColumn(column, list) == 0 && Take(data, list) && table.SetColumn(column, list);
    };
    return (set(std::type_identity<List>()) || ...);
}

void SetColumn(Tabular& table, long long column, py::object const& data) {
    unsigned int const at = CheckColumn(table, column);
    Check(SetColumnOf(table, at, ToArray(data), std::type_identity<ColumnLists>()),
          "the column does not take these values");
}

py::object GetCell(Tabular const& table, std::pair<long long, long long> place) {
    Value cell;
    table.GetCellValue(CheckRow(table, place.first), CheckColumn(table, place.second), cell);
    return GiveData(cell.GetValuePtr());
}

void SetCell(Tabular& table, std::pair<long long, long long> place, py::object const& data) {
    unsigned int const column = CheckColumn(table, place.second);
    TypeSpec const type{table.GetBasicType(column), table.GetCompoundType(column), 0};
    Value const cell = TakeValue(type, data);
    Check(table.SetCellValue(CheckRow(table, place.first), CheckColumn(table, place.second), cell),
          "the cell does not take this value");
}

/// The names of columns: those given, those of a tabular definition, the identifiers of the columns, or
/// numbers.
py::list NameColumns(Tabular const& table, py::object const& names) {
    py::list given;
    if (py::isinstance<TabularDefinition>(names)) {
        TabularDefinition const& definition = names.cast<TabularDefinition const&>();
        for (unsigned int i = 0; i < definition.GetColumnCount(); ++i)
            given.append(definition.GetColumnDefinition(i).GetDisplayName());
    } else if (!names.is_none()) {
        for (py::handle const name : names)
            given.append(name);
    }
    for (auto i = static_cast<unsigned int>(given.size()); i < table.GetColumnCount(); ++i) {
        Identifier identifier;
        if (table.GetIdentifierFromColumn(i, identifier) && identifier.UsesNameKey())
            given.append(GiveText(identifier.GetNameKey()));
        else
            given.append(i);
    }
    return given;
}

py::dict ToDict(Tabular const& table, py::object const& names) {
    py::list const keys = NameColumns(table, names);
    py::dict columns;
    for (unsigned int i = 0; i < table.GetColumnCount(); ++i)
        columns[keys[i]] = GetColumn(table, i);
    return columns;
}

// pandas has no tuples in columns: triples become lists of them, entities their ids.
py::object ToPandas(Tabular const& table, py::object const& names) {
    py::dict columns = ToDict(table, names);
    for (auto const& [name, column] : ToDict(table, names)) {
        if (py::isinstance<EntityList>(column))
            columns[name] = column.attr("ids");
        else if (HasAttribute(column, "ndim") && column.attr("ndim").cast<int>() == 2)
            columns[name] = py::list(py::reinterpret_borrow<py::object>(column));
    }
    return py::module_::import("pandas").attr("DataFrame")(columns);
}

void BindColumns(py::class_<Tabular>& bound) {
    bound
        .def("column", &GetColumn, py::arg("column"),
             "A copy of a column: an array, a list of texts, or an EntityList.")
        .def("set_column", &SetColumn, py::arg("column"), py::arg("data"), "Replaces a column.")
        .def(
            "insert_column",
            [](Tabular& self, py::object const& data, std::optional<unsigned int> at) {
                VisitData(data, [&](auto const& list) {
                    self.InsertColumn(list, at.value_or(self.GetColumnCount()));
                });
            },
            py::arg("data"), py::arg("at") = py::none(),
            "Inserts a column, behind the last one unless it is said.")
        .def(
            "insert_empty_column",
            [](Tabular& self, py::object const& type, std::optional<unsigned int> at,
               EntityFullType const& entityType) {
                TypeSpec const spec = ToTypeSpec(type);
                Check(spec.dimension == 0 &&
                          self.InsertColumn(spec.basic, spec.compound, entityType,
                                            at.value_or(self.GetColumnCount())) != Tabular::s_notInserted,
                      "tables have no columns of this type");
            },
            py::arg("type"), py::arg("at") = py::none(), py::arg("entity_type") = EntityFullType(),
            "Inserts a column of default cells.")
        .def(
            "remove_column",
            [](Tabular& self, long long column) { self.RemoveColumn(CheckColumn(self, column)); },
            py::arg("column"))
        .def(
            "column_type",
            [](Tabular const& self, long long column) {
                unsigned int const at = CheckColumn(self, column);
                return TypeSpec{self.GetBasicType(at), self.GetCompoundType(at), 0};
            },
            py::arg("column"))
        .def(
            "entity_type",
            [](Tabular const& self, long long column) {
                return self.GetEntityListType(CheckColumn(self, column));
            },
            py::arg("column"), "The type of the entities in a column; an empty one for other columns.")
        .def("has_entity_type", &Tabular::HasThisEntityListType, py::arg("type"),
             "Whether a column holds entities of the type.")
        .def(
            "column_identifier",
            [](Tabular const& self, long long column) -> std::optional<Identifier> {
                Identifier identifier;
                bool const has = self.GetIdentifierFromColumn(CheckColumn(self, column), identifier);
                return has ? std::optional(identifier) : std::nullopt;
            },
            py::arg("column"), "What a column of an external table is known by; None without that.")
        .def(
            "set_column_identifier",
            [](Tabular& self, long long column, Identifier const& identifier) {
                Check(SetColumnIdentifier(self, CheckColumn(self, column), identifier),
                      "columns of tables in memory have no identifiers");
            },
            py::arg("column"), py::arg("identifier"))
        .def(
            "find_column",
            [](Tabular const& self, Identifier const& identifier) -> std::optional<unsigned int> {
                CheckOpen(self);
                unsigned int column = 0;
                bool const has = self.GetColumnFromIdentifier(identifier, column);
                return has ? std::optional(column) : std::nullopt;
            },
            py::arg("identifier"), "The column of an identifier; None when there is none.");
}

/// A column by its type, the type of its entities, and its cells.
using ColumnState = std::tuple<TypeSpec, EntityFullType, py::object>;

void BindCopies(py::class_<Tabular>& bound) {
    BindPickle(
        bound,
        +[](Tabular const& self) {
            if (self.UsesExternalStorage())
                throw py::type_error("a table outside memory cannot be pickled, its copy_to_memory() can");
            std::vector<ColumnState> columns;
            for (unsigned int i = 0; i < self.GetColumnCount(); ++i)
                columns.push_back(ColumnState(TypeSpec{self.GetBasicType(i), self.GetCompoundType(i), 0},
                                              self.GetEntityListType(i), GetColumn(self, i)));
            return std::tuple(columns);
        },
        +[](std::vector<ColumnState> columns) {
            Tabular table;
            for (auto const& [type, entityType, cells] : columns) {
                unsigned int const at = table.GetColumnCount();
                table.InsertColumn(type.basic, type.compound, entityType, at);
                SetColumn(table, at, cells);
            }
            return table;
        });
}

} // namespace

bool TakeTable(py::handle data, Tabular& table) {
    if (!py::isinstance<py::dict>(data) && !HasAttribute(data, "to_numpy"))
        return false;
    Tabular made;
    for (py::handle const name : data) {
        py::object const column = data[name];
        VisitData(column, [&](auto const& list) { made.InsertColumn(list, made.GetColumnCount()); });
    }
    table = std::move(made);
    return true;
}

void BindTables(py::module_& module) {
    py::class_<Tabular> bound(
        module, "Tabular",
        "The data of a table: typed columns with a common number of rows. table[row, column] "
        "is a cell. Nothing is converted between types of columns.");
    bound.def(py::init<>())
        .def(py::init([](py::object const& columns) {
                 Tabular table;
                 Check(TakeTable(columns, table), "a table is made of a mapping of names to columns");
                 return table;
             }),
             py::arg("columns"),
             "A table of the columns of a dict or a pandas table, whose names are not kept.")
        .def_property_readonly("row_count", &Tabular::GetRowCount)
        .def_property_readonly("column_count", &Tabular::GetColumnCount)
        .def("__len__", &Tabular::GetRowCount)
        .def("__getitem__", &GetCell, py::arg("place"))
        .def("__setitem__", &SetCell, py::arg("place"), py::arg("data"))
        .def(
            "take",
            [](Tabular const& self, qzStlVector<unsigned int> const& rows) { return Tabular(self, rows); },
            py::arg("rows"), "A table of some of the rows, in rising order.")
        .def(
            "remove_rows",
            [](Tabular& self, qzStlVector<unsigned int> const& rows) {
                Check(rows.empty() || self.RemoveRows(rows), "there is no such row");
            },
            py::arg("rows"))
        .def(
            "reserve_rows", [](Tabular& self, unsigned int rows) { self.ReserveRows(rows); }, py::arg("rows"),
            "Makes room for rows to come.")
        .def(
            "clear_rows", [](Tabular& self) { self.ClearRows(); },
            "Removes every row; columns keep their types.")
        .def("to_dict", &ToDict, py::arg("names") = py::none(),
             "The columns by name: the names given or those of a TabularDefinition, else numbers from 0 on.")
        .def("to_pandas", &ToPandas, py::arg("names") = py::none(), "The same as a pandas table.")
        .def_static("are_equal_within_tolerance", &Tabular::AreEqualWithinTolerance, py::arg("a"),
                    py::arg("b"), py::arg("tolerance") = 1e-12)
        .def(
            "__eq__", [](Tabular const& a, Tabular const& b) { return a == b; }, py::is_operator())
        .def("__repr__", [](Tabular const& self) {
            return py::str("<Tabular of {} rows and {} columns>")
                .format(self.GetRowCount(), self.GetColumnCount());
        });
    BindColumns(bound);
    BindCopies(bound);
}

} // namespace qzPython
