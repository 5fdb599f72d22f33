#include "descriptor/DefinitionContextMenu.h"

namespace qzDescriptor {

namespace {

/// The record of an entity type, when it speaks about a menu kind.
ContextMenuData const* FindRecord(std::map<unsigned int, ContextMenuData> const& records,
                                  unsigned int entityType, ContextMenuType kind) {
    auto const found = records.find(entityType);
    if (found == records.end() || (found->second.GetContextMenuType() & kind) == 0)
        return nullptr;
    return &found->second;
}

} // namespace

void DefinitionContextMenu::Clear() {
    m_switchedOn.clear();
    m_switchedOff.clear();
}

void DefinitionContextMenu::SetEntityTypeContextMenuStatus(unsigned int entityType, ContextMenuType kind,
                                                           bool status, bool validEntityType) {
    auto& records = status ? m_switchedOn : m_switchedOff;
    records.insert_or_assign(entityType, ContextMenuData(kind, validEntityType));
}

bool DefinitionContextMenu::HasContextMenuStatusDefined(ContextMenuType kind, unsigned int entityType,
                                                        bool validEntityType, bool& status) const {
    bool isOn = true;
    ContextMenuData const* record = FindRecord(m_switchedOn, entityType, kind);
    if (record == nullptr) {
        isOn = false;
        record = FindRecord(m_switchedOff, entityType, kind);
    }
    if (record == nullptr || (record->GetValidEntityType() && !validEntityType))
        return false;
    status = isOn;
    return true;
}

} // namespace qzDescriptor
