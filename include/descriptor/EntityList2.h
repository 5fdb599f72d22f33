#pragma once

#include "descriptor/EntityFullType.h"

#include "qzutl/qzStlVector.h"

namespace qzDescriptor {

/// Entities of one type in rows: the two-level form of EntityList, without topology indices.
class QZDESCRIPTOR_API EntityList2 {
public:
    static constexpr unsigned int s_mostReservedColumns = 4096;

    EntityList2() = default;
    /// As Reserve.
    EntityList2(unsigned int rows, unsigned int columns) { Reserve(rows, columns); }
    EntityList2(EntityFullType const& type, qzStlVector<qzStlVector<unsigned int>> const& ids)
        : m_type(type), m_rows(ids) {}

    EntityFullType const& GetEntityFullType() const { return m_type; }
    bool SetEntityFullType(EntityFullType const& type);
    qzStlVector<qzStlVector<unsigned int>> const& GetList() const { return m_rows; }
    qzStlVector<qzStlVector<unsigned int>>& GetList() { return m_rows; }

    /// The number of ids in row i; 0 when there is no such row.
    unsigned int GetIdListCount(unsigned int i) const;
    bool GetId(unsigned int i, unsigned int j, unsigned int& id) const;
    bool GetEntity(Entity& entity, unsigned int i, unsigned int j) const;

    /// Stores an id; rows and the row's columns grow as far as needed, filling with id 0.
    void SetId(unsigned int i, unsigned int j, unsigned int id);
    /// As SetId. A list without a type takes the entity's; an entity of another type than the list's is
    /// refused.
    bool SetEntity(Entity const& entity, unsigned int i, unsigned int j);

    /// Makes room for rows, and for columns, at most s_mostReservedColumns, in each row that is written.
    void Reserve(unsigned int rows, unsigned int columns);

    friend bool operator==(EntityList2 const& a, EntityList2 const& b) {
        return a.m_type == b.m_type && a.m_rows == b.m_rows;
    }

private:
    EntityFullType m_type;
    qzStlVector<qzStlVector<unsigned int>> m_rows;
    unsigned int m_reservedColumns = 0;
};

} // namespace qzDescriptor
