#include "descriptor/ExternalTables.h"

#include "tabular/TabularData.h"
#include "tabular/external/TabularDataDT.h"
#include "tabular/external/records.h"

namespace qzDescriptor {

/// Reaches the data behind a table.
class TabularAccess {
public:
    static TabularDataBase const* Data(Tabular const& table) { return table.m_data.get(); }
    static TabularDataDT const* External(Tabular const& table) {
        return dynamic_cast<TabularDataDT const*>(table.m_data.get());
    }
    static Tabular Make(std::unique_ptr<TabularDataBase> data) {
        Tabular table;
        table.m_data = std::move(data);
        return table;
    }
};

namespace {

QZ_DT_Mgr& Store() { return QZ_DT_Mgr::GetInstance(); }

} // namespace

Tabular CopyToStore(Tabular const& table, QZDT_DBHandle const& database, QZDT_DTSHandle const& tableSet) {
    auto data = MakeExternalTable(database, tableSet);
    auto* const stored = static_cast<TabularDataDT*>(data.get());
    bool const isCopied = stored != nullptr && HasStorage(table) && stored->CopyColumnsOf(table);
    return TabularAccess::Make(isCopied ? std::move(data) : nullptr);
}

Tabular CopyToMemory(Tabular const& table) {
    auto data = std::make_unique<TabularData>();
    bool const isCopied = HasStorage(table) && data->CopyColumnsOf(table);
    return TabularAccess::Make(isCopied ? std::move(data) : nullptr);
}

Tabular OpenTable(QZDT_DBHandle const& database, QZDT_DTSHandle const& tableSet, qzString const& name) {
    QZDT_TableHandle table;
    if (name.empty() || !Store().OpenTable(tableSet, name, table))
        return TabularAccess::Make(nullptr);
    return TabularAccess::Make(std::make_unique<TabularDataDT>(database, tableSet, table));
}

bool NameTable(Tabular& table, qzString const& name) {
    return !name.empty() && Store().SetName(GetTableHandle(table), name);
}

bool GetTableName(Tabular const& table, qzString& name) {
    qzString found;
    if (!Store().GetName(GetTableHandle(table), found) || found.empty())
        return false;
    name = found;
    return true;
}

QZDT_TableHandle GetTableHandle(Tabular const& table) {
    auto const* const external = TabularAccess::External(table);
    return external != nullptr ? external->GetTableHandle() : QZDT_TableHandle();
}

bool SetColumnIdentifier(Tabular& table, unsigned int column, Identifier const& identifier) {
    return bool(Store().SetColumnIdentifier(GetTableHandle(table), column, ToRecord(identifier)));
}

bool HasStorage(Tabular const& table) { return TabularAccess::Data(table) != nullptr; }

} // namespace qzDescriptor
