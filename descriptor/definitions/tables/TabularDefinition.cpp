#include "descriptor/TabularDefinition.h"

namespace qzDescriptor {

TabularDefinition::TabularDefinition(qzString const& displayName, qzStlVector<Definition>& columns,
                                     bool editable, bool visible, qzString const& description,
                                     qzString const& helpPath)
    : m_columns(columns),
      m_displayName(displayName),
      m_editable(editable),
      m_visible(visible),
      m_description(description),
      m_helpPath(helpPath) {}

TabularDefinition::~TabularDefinition() = default;

Definition const& TabularDefinition::GetColumnDefinition(unsigned int column) const {
    // Still there for objects in static storage; not from the pool, which is left without objects at the end.
    static Definition const& invalidDefinition = *::new Definition;
    return column < m_columns.size() ? m_columns[column] : invalidDefinition;
}

void TabularDefinition::SetColumnDefinition(unsigned int column, Definition const& definition) {
    if (column < m_columns.size())
        m_columns[column] = definition;
}

bool operator==(TabularDefinition const& a, TabularDefinition const& b) {
    return a.m_columns == b.m_columns && a.m_displayName == b.m_displayName &&
           a.m_description == b.m_description && a.m_helpPath == b.m_helpPath;
}

} // namespace qzDescriptor
