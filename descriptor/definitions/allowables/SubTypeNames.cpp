#include "definitions/allowables/SubTypeNames.h"

#include <algorithm>

namespace qzDescriptor {

bool SubTypeNames::Add(EntityFullType const& type, Allowables::SubType kind, qzString const& name) {
    Entry const entry{type, kind, name};
    if (std::find(m_entries.begin(), m_entries.end(), entry) != m_entries.end())
        return false;
    m_entries.push_back(entry);
    return true;
}

bool SubTypeNames::Remove(EntityFullType const& type, Allowables::SubType kind, qzString const& name) {
    auto const found = std::find(m_entries.begin(), m_entries.end(), Entry{type, kind, name});
    if (found == m_entries.end())
        return false;
    m_entries.erase(found);
    return true;
}

void SubTypeNames::RemoveAllOf(EntityFullType const& type) {
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                   [&](Entry const& entry) { return entry.type == type; }),
                    m_entries.end());
}

unsigned int SubTypeNames::Count(EntityFullType const& type, Allowables::SubType kind) const {
    return static_cast<unsigned int>(std::count_if(
        m_entries.begin(), m_entries.end(), [&](Entry const& entry) { return entry.IsOf(type, kind); }));
}

qzString const* SubTypeNames::Name(EntityFullType const& type, Allowables::SubType kind,
                                   unsigned int index) const {
    for (Entry const& entry : m_entries) {
        if (entry.IsOf(type, kind) && index-- == 0)
            return &entry.name;
    }
    return nullptr;
}

} // namespace qzDescriptor
