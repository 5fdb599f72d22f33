#include "tables/table_store.h"

#include "descriptor/ExternalTables.h"
#include "qzdistribution/QZ_DT_Mgr.h"

namespace qzDeck {

using qzDescriptor::Identifier;
using qzDescriptor::Tabular;

namespace {

QZ_DT_Mgr& Manager() { return QZ_DT_Mgr::GetInstance(); }

/// A database that is closed at the end.
class OpenFile {
public:
    explicit OpenFile(std::string const& path) : m_opened(Manager().OpenDatabase(path, m_database)) {}
    OpenFile(OpenFile const&) = delete;
    OpenFile& operator=(OpenFile const&) = delete;
    ~OpenFile() {
        if (Manager().IsOpen(m_database))
            (void)Close();
    }

    QZDT_Result const& HasOpened() const { return m_opened; }
    QZDT_DBHandle const& Database() const { return m_database; }
    QZDT_Result Close() { return Manager().CloseDatabase(m_database); }

private:
    QZDT_DBHandle m_database; // before what opens it
    QZDT_Result m_opened;
};

bool WriteTable(ModelTable const& table, QZDT_DBHandle const& database, QZDT_DTSHandle const& set) {
    Tabular stored = CopyToStore(table.data, database, set);
    bool isDone = HasStorage(stored) && NameTable(stored, table.name);
    for (unsigned int column = 0; isDone && column < table.columns.size(); ++column)
        isDone = SetColumnIdentifier(stored, column, table.columns[column].identifier);
    return isDone;
}

QZDT_Result WriteSet(QZDT_DBHandle const& database, std::string const& name,
                     std::vector<ModelTable> const& tables) {
    QZDT_Change change(database);
    QZDT_DTSHandle set;
    if (Manager().OpenTableSet(database, name, set)) {
        if (QZDT_Result dropped = Manager().DropTableSet(set); !dropped)
            return dropped;
    }
    if (QZDT_Result created = Manager().CreateTableSet(database, name, set); !created)
        return created;
    for (ModelTable const& table : tables) {
        if (!WriteTable(table, database, set))
            return QZDT_Result::Failure("the table " + table.name + " cannot be written");
    }
    return change.Commit();
}

bool IsStored(ModelTable const& table, QZDT_DBHandle const& database, QZDT_DTSHandle const& set) {
    Tabular const stored = qzDescriptor::OpenTable(database, set, table.name);
    if (!HasStorage(stored) || !(stored == table.data))
        return false;
    for (unsigned int column = 0; column < table.columns.size(); ++column) {
        Identifier identifier;
        if (!stored.GetIdentifierFromColumn(column, identifier) ||
            !(identifier == table.columns[column].identifier))
            return false;
    }
    return true;
}

} // namespace

QZDT_Result StoreTables(std::string const& file, std::string const& set,
                        std::vector<ModelTable> const& tables) {
    OpenFile opened(file);
    if (!opened.HasOpened())
        return opened.HasOpened();
    if (QZDT_Result written = WriteSet(opened.Database(), set, tables); !written)
        return written;
    return opened.Close();
}

QZDT_Result CompareWithStore(std::string const& file, std::string const& set,
                             std::vector<ModelTable> const& tables, std::vector<bool>& areEqual) {
    OpenFile const opened(file);
    if (!opened.HasOpened())
        return opened.HasOpened();
    QZDT_DTSHandle handle;
    if (QZDT_Result found = Manager().OpenTableSet(opened.Database(), set, handle); !found)
        return found;
    areEqual.clear();
    for (ModelTable const& table : tables)
        areEqual.push_back(IsStored(table, opened.Database(), handle));
    return {};
}

} // namespace qzDeck
