#include "tabular/external/TabularDataDT.h"

#include "tabular/external/TabularDataDTColumn.h"

#include <algorithm>

namespace qzDescriptor {

namespace {

QZ_DT_Mgr& Store() { return QZ_DT_Mgr::GetInstance(); }

/// Tables that were given no set of their own.
constexpr char const* s_valuesSet = "values";

QZDT_Result FindValuesSet(QZDT_DBHandle const& database, QZDT_DTSHandle& set) {
    if (auto const opened = Store().OpenTableSet(database, s_valuesSet, set))
        return opened;
    return Store().CreateTableSet(database, s_valuesSet, set);
}

template <class F, class... List>
void VisitStoredType(QZDT_Type type, F&& visitor, TypeList<List...>) {
    (void)((StoredType<List>() == type && (visitor(std::type_identity<List>()), true)) || ...);
}

} // namespace

std::unique_ptr<TabularDataBase> MakeExternalTable(QZDT_DBHandle const& database,
                                                   QZDT_DTSHandle const& tableSet) {
    QZDT_DTSHandle set = tableSet;
    QZDT_TableHandle table;
    if ((!set.IsValid() && !FindValuesSet(database, set)) || !Store().CreateTable(set, qzString(), table))
        return nullptr;
    return std::make_unique<TabularDataDT>(database, set, table);
}

TabularDataDT::TabularDataDT(QZDT_DBHandle const& database, QZDT_DTSHandle const& tableSet,
                             QZDT_TableHandle const& table)
    : m_database(database), m_tableSet(tableSet), m_table(table) {
    P_ReadColumns();
}

TabularDataDT::~TabularDataDT() {
    qzString name;
    if (Store().GetName(m_table, name) && name.empty())
        (void)Store().DropTable(m_table); // if it cannot, the store does when it opens the next time
}

void TabularDataDT::P_ReadColumns() {
    m_columns.clear();
    for (unsigned int column = 0; column < Store().GetColumnCount(m_table); ++column) {
        VisitStoredType(
            Store().GetColumnType(m_table, column),
            [&]<class List>(std::type_identity<List>) {
                m_columns.push_back(std::make_unique<TabularDataDTColumn<List>>(*this));
            },
            ColumnTypes());
    }
}

std::unique_ptr<TabularDataBase> TabularDataDT::Clone(qzStlVector<unsigned int> const& rows) const {
    QZDT_TableHandle copy;
    return P_Take(Store().CloneTable(m_table, rows, copy), copy);
}

std::unique_ptr<TabularDataBase> TabularDataDT::Clone() const {
    QZDT_TableHandle copy;
    return P_Take(Store().CloneTable(m_table, copy), copy);
}

std::unique_ptr<TabularDataBase> TabularDataDT::P_Take(QZDT_Result const& made,
                                                       QZDT_TableHandle const& table) const {
    return made ? std::make_unique<TabularDataDT>(m_database, m_tableSet, table) : nullptr;
}

unsigned int TabularDataDT::PlaceOf(TabularDataColumn const& column) const {
    auto const found =
        std::ranges::find_if(m_columns, [&](auto const& candidate) { return candidate.get() == &column; });
    return static_cast<unsigned int>(found - m_columns.begin());
}

bool TabularDataDT::Note(QZDT_Result const& result) {
    m_hasFailed = m_hasFailed || !result;
    return bool(result);
}

// What the store could not do in full is undone, and the columns are again those of the store. Operations are
// made of others: the outermost is the change.
template <class Result, class Operation>
Result TabularDataDT::P_Change(Result failure, Operation operation) {
    if (m_isChanging)
        return operation();
    {
        QZDT_Change change(m_database);
        m_isChanging = true;
        m_hasFailed = !change.HasBegun();
        Result result = failure;
        try {
            result = m_hasFailed ? failure : operation();
        } catch (...) { // there is no memory
            m_hasFailed = true;
        }
        m_isChanging = false;
        if (!m_hasFailed && change.Commit())
            return result;
    }
    P_ReadColumns();
    return failure;
}

#define QZ_CHANGES(C, ...)                                                                                   \
    unsigned int TabularDataDT::InsertColumn(C const& values, unsigned int at) {                             \
        return P_Change(0u, [&] { return TabularDataBase::InsertColumn(values, at); });                      \
    }                                                                                                        \
    bool TabularDataDT::SetColumn(unsigned int column, C const& values) {                                    \
        return P_Change(false, [&] { return TabularDataBase::SetColumn(column, values); });                  \
    }
QZ_COLUMN_TYPES(QZ_CHANGES)
#undef QZ_CHANGES

unsigned int TabularDataDT::InsertColumn(BasicType basic, CompoundType compound,
                                         EntityFullType const& entityType, unsigned int at) {
    return P_Change(Tabular::s_notInserted,
                    [&] { return TabularDataBase::InsertColumn(basic, compound, entityType, at); });
}

bool TabularDataDT::RemoveColumn(unsigned int column) {
    return P_Change(false, [&] { return TabularDataBase::RemoveColumn(column); });
}

bool TabularDataDT::ClearRows() {
    return P_Change(false, [&] { return TabularDataBase::ClearRows(); });
}

bool TabularDataDT::RemoveRows(qzStlVector<unsigned int> const& rows) {
    return P_Change(false, [&] { return TabularDataBase::RemoveRows(rows); });
}

bool TabularDataDT::CopyColumnsOf(Tabular const& other) {
    return P_Change(false, [&] {
        bool done = TabularDataBase::CopyColumnsOf(other);
        Identifier identifier;
        for (unsigned int column = 0; column < other.GetColumnCount(); ++column) {
            if (other.GetIdentifierFromColumn(column, identifier))
                done = done && Note(Store().SetColumnIdentifier(m_table, column, ToRecord(identifier)));
        }
        return done;
    });
}

std::unique_ptr<TabularDataColumn> TabularDataDT::P_MakeColumn(BasicType basic, CompoundType compound,
                                                               EntityFullType const& entityType,
                                                               unsigned int at) {
    std::unique_ptr<TabularDataColumn> column;
    VisitColumn(basic, compound, [&]<class List>(std::type_identity<List>) {
        bool made = Note(Store().InsertColumn(m_table, StoredType<List>(), at));
        if constexpr (std::is_same_v<List, EntityList>)
            made = made && Note(Store().SetColumnEntityType(m_table, at, ToRecord(entityType)));
        if (made)
            column = std::make_unique<TabularDataDTColumn<List>>(*this);
    });
    return column;
}

} // namespace qzDescriptor
