#pragma once

/// Tables between memory and a store outside of it, and what only the latter have.
///
///     QZDT_DBHandle database;
///     QZDT_DTSHandle results;
///     QZ_DT_Mgr& manager = QZ_DT_Mgr::GetInstance();
///     if (manager.OpenDatabase("run.qzdt", database) &&
///         manager.CreateTableSet(database, "results", results)) {
///         Tabular stored = CopyToStore(inMemory, database, results);
///         NameTable(stored, "displacements");               // stays in the file when `stored` ends
///     }

#include "descriptor/Tabular.h"
#include "qzdistribution/Handles.h"

namespace qzDescriptor {

/// A copy of a table in a store, as one change of it; without storage when the store refuses it. With an
/// invalid set handle it stands in the database's set "values".
QZDESCRIPTOR_API Tabular CopyToStore(Tabular const& table, QZDT_DBHandle const& database,
                                     QZDT_DTSHandle const& tableSet);
/// A copy of a table in memory.
QZDESCRIPTOR_API Tabular CopyToMemory(Tabular const& table);

/// The table of that name in a set; without storage when there is none. It is not to be opened twice: what is
/// changed through one Tabular is unknown to the other.
QZDESCRIPTOR_API Tabular OpenTable(QZDT_DBHandle const& database, QZDT_DTSHandle const& tableSet,
                                   qzString const& name);
/// Names a table of a store. A table with a name outlives its Tabular; one without goes with it. False for a
/// table in memory and for a name that another table of the set has.
QZDESCRIPTOR_API bool NameTable(Tabular& table, qzString const& name);
/// The table's name in the store for an external table that has one.
QZDESCRIPTOR_API bool GetTableName(Tabular const& table, qzString& name);
/// Invalid for a table in memory.
QZDESCRIPTOR_API QZDT_TableHandle GetTableHandle(Tabular const& table);

/// Gives a column of an external table an identifier. False for a table in memory.
QZDESCRIPTOR_API bool SetColumnIdentifier(Tabular& table, unsigned int column, Identifier const& identifier);

/// Whether there is anything behind a table: not after it was moved from, nor when a store refused it.
QZDESCRIPTOR_API bool HasStorage(Tabular const& table);

} // namespace qzDescriptor
