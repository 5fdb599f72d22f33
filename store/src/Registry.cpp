#include "store/Registry.h"

#include "store/Session.h"

#include <algorithm>

namespace qzDescriptor::store {

Registry::Registry() = default;
Registry::~Registry() = default;

ISession* Registry::CreateSession(qzString const& name) { return new Session(name, this); }

bool Registry::SetDataOperations(unsigned int metaclass, DataOperationList const& operations) {
    if (metaclass == 0 || metaclass > GetHandlesCount())
        return false;
    auto const menu = std::ranges::find(m_menus, metaclass, &Menu::metaclass);
    if (menu != m_menus.end())
        menu->operations = operations;
    else
        m_menus.push_back({metaclass, operations});
    return true;
}

bool Registry::GetDataOperations(unsigned int metaclass, DataOperationList& operations) const {
    qzString name, parentName;
    for (unsigned int current = metaclass; GetNameAndOfParent(current, name, parentName);
         current = parentName.empty() ? 0 : FindHandle(parentName)) {
        if (DataOperationList const* const menu = P_FindMenu(current)) {
            operations = *menu;
            return true;
        }
    }
    return false;
}

DataOperationList const* Registry::P_FindMenu(unsigned int metaclass) const {
    auto const menu = std::ranges::find(m_menus, metaclass, &Menu::metaclass);
    return menu != m_menus.end() ? &menu->operations : nullptr;
}

} // namespace qzDescriptor::store
