#include "databases.h"

#include "conversions.h"

#include "descriptor/ExternalTables.h"
#include "qzdistribution/QZ_DT_Mgr.h"

namespace qzPython {

namespace {

QZ_DT_Mgr& Manager() { return QZ_DT_Mgr::GetInstance(); }

void Check(QZDT_Result const& result) {
    if (!result)
        throw Refused(result.GetMessage());
}

/// A database of this script, which ends with its last handle, or one of the application's.
class OpenDatabase {
public:
    explicit OpenDatabase(qzString const& path) : m_isOwn(true) {
        Check(Manager().OpenDatabase(path, m_handle));
    }
    explicit OpenDatabase(QZDT_DBHandle const& handle) : m_handle(handle) {}
    OpenDatabase(OpenDatabase const&) = delete;
    OpenDatabase& operator=(OpenDatabase const&) = delete;
    ~OpenDatabase() {
        if (m_isOwn && IsOpen())
            static_cast<void>(Manager().CloseDatabase(m_handle));
    }

    bool IsOpen() const { return Manager().IsOpen(m_handle); }
    /// Throws Ended.
    QZDT_DBHandle const& Get() const {
        if (!IsOpen())
            throw Ended("the database is closed");
        return m_handle;
    }

private:
    QZDT_DBHandle m_handle;
    bool m_isOwn = false;
};

/// `Database` in Python.
class DatabaseHandle {
public:
    explicit DatabaseHandle(qzString const& path) : m_database(std::make_shared<OpenDatabase>(path)) {}
    explicit DatabaseHandle(std::shared_ptr<OpenDatabase> database) : m_database(std::move(database)) {}

    QZDT_DBHandle const& Get() const { return m_database->Get(); }
    bool IsOpen() const { return m_database->IsOpen(); }
    void Close() {
        if (IsOpen())
            Check(Manager().CloseDatabase(Get()));
    }
    std::shared_ptr<OpenDatabase> const& Share() const { return m_database; }

private:
    std::shared_ptr<OpenDatabase> m_database;
};

/// `TableSet` in Python; it keeps its database open.
class TableSetHandle {
public:
    TableSetHandle(std::shared_ptr<OpenDatabase> database, QZDT_DTSHandle const& set)
        : m_database(std::move(database)), m_set(set) {}

    QZDT_DBHandle const& GetDatabase() const { return m_database->Get(); }
    QZDT_DTSHandle const& Get() const {
        m_database->Get();
        return m_set;
    }
    std::shared_ptr<OpenDatabase> const& Share() const { return m_database; }

private:
    std::shared_ptr<OpenDatabase> m_database;
    QZDT_DTSHandle m_set;
};

/// The names of sets or tables; those of tables without a name are left out.
template <class Handle>
qzStlVector<qzString> ToNames(qzStlVector<Handle> const& handles) {
    qzStlVector<qzString> names;
    for (Handle const& handle : handles) {
        qzString name;
        if (Manager().GetName(handle, name) && !name.empty())
            names.push_back(name);
    }
    return names;
}

qzStlVector<qzString> ListSets(DatabaseHandle const& self) {
    qzStlVector<QZDT_DTSHandle> sets;
    Check(Manager().GetTableSets(self.Get(), sets));
    return ToNames(sets);
}

qzStlVector<qzString> ListTables(TableSetHandle const& self) {
    qzStlVector<QZDT_TableHandle> tables;
    Check(Manager().GetTables(self.Get(), tables));
    return ToNames(tables);
}

QZDT_DTSHandle FindSet(DatabaseHandle const& self, qzString const& name) {
    QZDT_DTSHandle set;
    if (!Manager().OpenTableSet(self.Get(), name, set))
        throw Missing("no set of tables " + name);
    return set;
}

/// A table under a name, or without one; refuses what the store refuses.
Tabular Named(Tabular table, qzString const& name) {
    qzPython::Check(HasStorage(table), "the store does not take the table");
    qzPython::Check(name.empty() || NameTable(table, name), "there is a table of that name");
    return table;
}

/// What is done in a `with` becomes one operation; an exception undoes it all.
class Change {
public:
    explicit Change(DatabaseHandle database) : m_database(std::move(database)) {}

    void Enter() { Check(Manager().BeginChange(m_database.Get())); }
    void Exit(py::handle type, py::handle, py::handle) {
        if (type.is_none())
            Check(Manager().CommitChange(m_database.Get()));
        else if (m_database.IsOpen())
            Check(Manager().CancelChange(m_database.Get()));
    }

private:
    DatabaseHandle m_database;
};

void BindDatabase(py::module_& module) {
    py::class_<DatabaseHandle> database(
        module, "Database",
        "A database of tables that are held outside memory: a file, or ':memory:'. A mapping of names to "
        "sets "
        "of tables. It is closed by close(), at the end of a with, and with its last handle; its tables can "
        "then no longer be used.");
    py::class_<TableSetHandle> set(
        module, "TableSet",
        "A mapping of names to the tables of one set. A table is to be opened once: what is changed through "
        "one Tabular is unknown to another.");
    py::class_<Change>(module, "DatabaseChange", "Several operations on a database as one, in a with.")
        .def("__enter__", &Change::Enter)
        .def("__exit__", &Change::Exit, py::arg("type"), py::arg("value"), py::arg("traceback"));

    database
        .def(py::init<qzString const&>(), py::arg("path"), "Opens a file, which is made when there is none.")
        .def("close", &DatabaseHandle::Close)
        .def_property_readonly("is_open", &DatabaseHandle::IsOpen)
        .def("__enter__", [](py::object self) { return self; })
        .def(
            "__exit__", [](DatabaseHandle& self, py::handle, py::handle, py::handle) { self.Close(); },
            py::arg("type"), py::arg("value"), py::arg("traceback"))
        .def(
            "flush", [](DatabaseHandle const& self) { Check(Manager().Flush(self.Get())); },
            "Writes what has gathered in memory.")
        .def(
            "set_size_limit",
            [](DatabaseHandle const& self, std::uint64_t bytes) {
                Check(Manager().SetSizeLimit(self.Get(), bytes));
            },
            py::arg("bytes"), "From here on growing beyond it fails as on a full disk; 0 for no limit.")
        .def(
            "change", [](DatabaseHandle const& self) { return Change(self); },
            "with database.change(): what is done inside is done as one, or not at all.")
        .def(
            "create",
            [](DatabaseHandle const& self, qzString const& name) {
                QZDT_DTSHandle made;
                Check(Manager().CreateTableSet(self.Get(), name, made));
                return TableSetHandle(self.Share(), made);
            },
            py::arg("name"), "Makes a set of tables.")
        .def("__len__", [](DatabaseHandle const& self) { return ListSets(self).size(); })
        .def("__iter__", [](DatabaseHandle const& self) { return py::iter(py::cast(ListSets(self))); })
        .def(
            "__contains__",
            [](DatabaseHandle const& self, qzString const& name) {
                QZDT_DTSHandle found;
                return static_cast<bool>(Manager().OpenTableSet(self.Get(), name, found));
            },
            py::arg("name"))
        .def(
            "__getitem__",
            [](DatabaseHandle const& self, qzString const& name) {
                return TableSetHandle(self.Share(), FindSet(self, name));
            },
            py::arg("name"))
        .def(
            "__delitem__",
            [](DatabaseHandle const& self, qzString const& name) {
                Check(Manager().DropTableSet(FindSet(self, name)));
            },
            py::arg("name"), "Ends a set with all its tables.")
        .def("__repr__", [](DatabaseHandle const& self) {
            return self.IsOpen() ? py::str("<Database of {}>").format(ListSets(self))
                                 : py::str("<Database, closed>");
        });
}

void BindTableSet(py::module_& module) {
    auto set = py::reinterpret_borrow<py::class_<TableSetHandle>>(module.attr("TableSet"));
    set.def_property_readonly("name",
                              [](TableSetHandle const& self) {
                                  qzString name;
                                  Check(Manager().GetName(self.Get(), name));
                                  return name;
                              })
        .def_property_readonly("database",
                               [](TableSetHandle const& self) { return DatabaseHandle(self.Share()); })
        .def(
            "store",
            [](TableSetHandle const& self, Tabular const& table, qzString const& name) {
                return Named(CopyToStore(table, self.GetDatabase(), self.Get()), name);
            },
            py::arg("table"), py::arg("name") = "",
            "Copies a table into the set, as one change. One without a name goes with the Tabular.")
        .def(
            "create",
            [](TableSetHandle const& self, qzString const& name) {
                return Named(Tabular(self.GetDatabase(), self.Get()), name);
            },
            py::arg("name") = "", "A new table without columns.")
        .def("__len__", [](TableSetHandle const& self) { return ListTables(self).size(); })
        .def("__iter__", [](TableSetHandle const& self) { return py::iter(py::cast(ListTables(self))); })
        .def(
            "__contains__",
            [](TableSetHandle const& self, qzString const& name) {
                QZDT_TableHandle found;
                return static_cast<bool>(Manager().OpenTable(self.Get(), name, found));
            },
            py::arg("name"))
        .def(
            "__getitem__",
            [](TableSetHandle const& self, qzString const& name) {
                Tabular table = OpenTable(self.GetDatabase(), self.Get(), name);
                if (!HasStorage(table))
                    throw Missing("no table " + name);
                return table;
            },
            py::arg("name"), "Opens a table.")
        .def(
            "__delitem__",
            [](TableSetHandle const& self, qzString const& name) {
                QZDT_TableHandle found;
                if (!Manager().OpenTable(self.Get(), name, found))
                    throw Missing("no table " + name);
                Check(Manager().DropTable(found));
            },
            py::arg("name"), "Ends a table; a Tabular of it can no longer be used.")
        .def("__repr__", [](TableSetHandle const& self) {
            qzString name;
            static_cast<void>(Manager().GetName(self.Get(), name));
            return py::str("<TableSet {!r} of {}>").format(name, ListTables(self));
        });
}

void BindStorage(py::module_& module) {
    auto table = py::reinterpret_borrow<py::class_<Tabular>>(module.attr("Tabular"));
    table.def_property_readonly("uses_external_storage", &Tabular::UsesExternalStorage)
        .def_property_readonly("has_storage", &HasStorage, "Whether there is anything behind the table.")
        .def_property_readonly(
            "table_set",
            [](Tabular const& self) -> py::object {
                if (!self.UsesExternalStorage())
                    return py::none();
                CheckOpen(self);
                QZDT_DTSHandle set;
                Check(Manager().GetTableSet(GetTableHandle(self), set));
                return py::cast(TableSetHandle(std::make_shared<OpenDatabase>(self.GetDBHandle()), set));
            },
            "The set that an external table is in; None for a table in memory.")
        .def_property(
            "name",
            [](Tabular const& self) -> std::optional<qzString> {
                qzString name;
                return GetTableName(self, name) ? std::optional(name) : std::nullopt;
            },
            [](Tabular& self, qzString const& name) {
                CheckOpen(self);
                qzPython::Check(NameTable(self, name),
                                "the table is in memory, or there is another one of that name");
            },
            "The name of an external table, with which it outlives its Tabular; None without one.")
        .def(
            "copy_to_memory",
            [](Tabular const& self) {
                CheckOpen(self);
                return CopyToMemory(self);
            },
            "A copy of the table in memory.");
}

} // namespace

void CheckOpen(Tabular const& table) {
    if (table.UsesExternalStorage() && !Manager().IsOpen(table.GetDBHandle()))
        throw Ended("the database of the table is closed");
}

void BindDatabases(py::module_& module) {
    BindDatabase(module);
    BindTableSet(module);
    BindStorage(module);
}

} // namespace qzPython
