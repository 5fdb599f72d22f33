#include "descriptor/EntityList2.h"

#include "descriptor/Entity.h"
#include "values/collections/Growth.h"

namespace qzDescriptor {

bool EntityList2::SetEntityFullType(EntityFullType const& type) {
    m_type = type;
    return true;
}

unsigned int EntityList2::GetIdListCount(unsigned int i) const {
    return i < m_rows.size() ? static_cast<unsigned int>(m_rows[i].size()) : 0;
}

bool EntityList2::GetId(unsigned int i, unsigned int j, unsigned int& id) const {
    if (i >= m_rows.size() || j >= m_rows[i].size())
        return false;
    id = m_rows[i][j];
    return true;
}

bool EntityList2::GetEntity(Entity& entity, unsigned int i, unsigned int j) const {
    unsigned int id = 0;
    if (!GetId(i, j, id))
        return false;
    entity = Entity(m_type, id);
    return true;
}

void EntityList2::SetId(unsigned int i, unsigned int j, unsigned int id) {
    GrowToHold(m_rows, i);
    qzStlVector<unsigned int>& row = m_rows[i];
    row.reserve(m_reservedColumns);
    GrowToHold(row, j);
    row[j] = id;
}

bool EntityList2::SetEntity(Entity const& entity, unsigned int i, unsigned int j) {
    if (!m_type.IsValid())
        m_type = entity.GetEntityFullType();
    else if (m_type != entity.GetEntityFullType())
        return false;
    SetId(i, j, entity.GetId());
    return true;
}

void EntityList2::Reserve(unsigned int rows, unsigned int columns) {
    m_rows.reserve(rows);
    m_reservedColumns = columns;
}

} // namespace qzDescriptor
