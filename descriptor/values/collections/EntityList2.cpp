#include "descriptor/EntityList2.h"

#include "descriptor/Entity.h"
#include "values/collections/Growth.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace qzDescriptor {

bool EntityList2::SetEntityFullType(EntityFullType const& type) {
    m_type = EntityFullType(type); // both its names or neither
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
    bool const isThere = i < m_rows.size();
    qzStlVector<unsigned int> added;
    qzStlVector<unsigned int>& row = isThere ? m_rows[i] : added;
    row.reserve(m_reservedColumns);
    GrowToHold(row, j);
    row[j] = id;
    if (isThere)
        return;
    GrowToHold(m_rows, i);
    m_rows[i] = std::move(added);
}

bool EntityList2::SetEntity(Entity const& entity, unsigned int i, unsigned int j) {
    std::optional<EntityFullType> adopted;
    if (!m_type.IsValid())
        adopted = entity.GetEntityFullType();
    else if (m_type != entity.GetEntityFullType())
        return false;
    SetId(i, j, entity.GetId());
    if (adopted)
        m_type = std::move(*adopted); // last, when nothing can fail any more: a type that is taken stays
    return true;
}

void EntityList2::Reserve(unsigned int rows, unsigned int columns) {
    m_rows.reserve(rows);
    m_reservedColumns = std::min(columns, s_mostReservedColumns);
}

} // namespace qzDescriptor
