#pragma once

#include "qzdistribution/QZ_DT_Variant.h"
#include "tabular/column_types.h"

namespace qzDescriptor {

// What tables hold, as the store outside memory keeps it.

inline QZDT_EntityType ToRecord(EntityFullType const& type) {
    return {type.GetTypeNumeric(), type.GetSubtypeNumeric(), type.GetTypeNamed(), type.GetSubtypeNamed(),
            static_cast<std::int32_t>(type.GetTopologyType())};
}

/// A number goes before a name, in the type and in the subtype.
inline EntityFullType FromRecord(QZDT_EntityType const& record) {
    auto const topology = static_cast<EntityFullType::TopologyType>(record.topology);
    if (record.type == 0 && record.subtype == 0)
        return EntityFullType(topology, record.typeName, record.subtypeName);
    if (record.type == 0)
        return EntityFullType(topology, record.typeName, record.subtype);
    if (record.subtype == 0)
        return EntityFullType(topology, record.type, record.subtypeName);
    return EntityFullType(topology, record.type, record.subtype);
}

inline QZDT_ColumnIdentifier ToRecord(Identifier const& identifier) {
    return {identifier.GetNumericKey(), identifier.GetNameKey(), identifier.GetSolverIdx(),
            identifier.GetRow(), identifier.GetColumn()};
}

inline Identifier FromRecord(QZDT_ColumnIdentifier const& record) {
    Identifier identifier;
    identifier.SetNumericKey(record.number);
    identifier.SetNameKey(record.name);
    identifier.SetSolverIdx(record.solverIndex);
    identifier.SetRow(record.row);
    identifier.SetColumn(record.column);
    return identifier;
}

/// The list that the store takes and gives for a column.
template <class List>
struct StoredList {
    using Type = List;
    using Cell = CellOf<List>;

    static List const& Store(List const& list) { return list; }
    static List Load(List&& stored, EntityFullType const&) { return std::move(stored); }
    static Cell const& StoreCell(Cell const& cell) { return cell; }
    static Cell const& LoadCell(Cell const& stored, EntityFullType const&) { return stored; }
};

template <>
struct StoredList<EntityList> {
    using Type = qzStlVector<QZDT_Id>;

    static Type Store(EntityList const& list) {
        Type stored(list.GetIdListCount());
        for (unsigned int row = 0; row < stored.size(); ++row)
            list.GetIdAndTopologyIndex(row, stored[row].id, stored[row].topologyIndex);
        return stored;
    }
    static EntityList Load(Type&& stored, EntityFullType const& type) {
        qzStlVector<unsigned int> ids;
        qzStlVector<char> topologyIndices;
        ids.reserve(stored.size());
        topologyIndices.reserve(stored.size());
        for (QZDT_Id const& id : stored) {
            ids.push_back(id.id);
            topologyIndices.push_back(id.topologyIndex);
        }
        return EntityList(type, ids, topologyIndices);
    }
    static QZDT_Id StoreCell(Entity const& cell) { return {cell.GetId(), cell.GetTopologyIndex()}; }
    static Entity LoadCell(QZDT_Id const& stored, EntityFullType const& type) {
        return Entity(type, stored.id, stored.topologyIndex);
    }
};

/// The store's code of a column's cells.
template <class List>
QZDT_Type StoredType() {
    return QZ_DT_Variant(typename StoredList<List>::Type::value_type()).GetType();
}

} // namespace qzDescriptor
