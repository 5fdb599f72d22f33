#pragma once

#include "descriptor/Export.h"
#include "descriptor/Forward.h"

#include <cstdint>
#include <map>
#include <utility>

namespace qzDescriptor {

/// Kinds of context menus, combined with `|`. Bits other than these are carried unchanged.
enum ContextMenuType : std::int32_t {
    CONTEXT_MENU_NONE = 0,
    CONTEXT_MENU_CREATE = 1,
    CONTEXT_MENU_EDIT = 2,
    CONTEXT_MENU_SELECT = 4,
    CONTEXT_MENU_REVIEW = 8,
    CONTEXT_MENU_CLEAR = 16
};

constexpr ContextMenuType operator|(ContextMenuType a, ContextMenuType b) {
    return static_cast<ContextMenuType>(static_cast<std::int32_t>(a) | static_cast<std::int32_t>(b));
}

/// The context-menu kinds that one record switches, and whether it speaks only where the entity type is a
/// valid one.
class QZDESCRIPTOR_API ContextMenuData {
public:
    ContextMenuData(ContextMenuType contextMenuType, bool validEntityType)
        : m_contextMenuType(contextMenuType), m_validEntityType(validEntityType) {}

    ContextMenuType GetContextMenuType() const { return m_contextMenuType; }
    bool GetValidEntityType() const { return m_validEntityType; }

    friend bool operator==(ContextMenuData const&, ContextMenuData const&) = default;

private:
    ContextMenuType m_contextMenuType;
    bool m_validEntityType;
};

/// Which context menus an attribute shows for which entity type: one record per type of the kinds switched
/// on, and one of those switched off.
///
///     DefinitionContextMenu menu;
///     menu.SetEntityTypeContextMenuStatus(7, CONTEXT_MENU_CREATE | CONTEXT_MENU_EDIT, true, false);
///     bool shown = false;
///     menu.HasContextMenuStatusDefined(CONTEXT_MENU_EDIT, 7, true, shown);      // true, shown is true
///     menu.HasContextMenuStatusDefined(CONTEXT_MENU_SELECT, 7, true, shown);    // false: nothing is said
class QZDESCRIPTOR_API DefinitionContextMenu {
public:
    /// An entity type and its record.
    using Entry = std::pair<unsigned int, ContextMenuData>;

    DefinitionContextMenu() = default;
    DefinitionContextMenu(Entry const& switchedOn, Entry const& switchedOff)
        : m_switchedOn{switchedOn}, m_switchedOff{switchedOff} {}

    void Clear();

    /// Replaces the type's record of kinds switched on when `status` is true, else that of kinds switched
    /// off; the other one stays.
    void SetEntityTypeContextMenuStatus(unsigned int entityType, ContextMenuType kind, bool status,
                                        bool validEntityType);

    /// Whether anything is said about a menu kind, and in `status` what. A record of kinds switched on goes
    /// before one of kinds switched off. A record that speaks only for valid entity types ends the search
    /// with false when the type is not valid.
    bool HasContextMenuStatusDefined(ContextMenuType kind, unsigned int entityType, bool validEntityType,
                                     bool& status) const;

    friend bool operator==(DefinitionContextMenu const&, DefinitionContextMenu const&) = default;

private:
    std::map<unsigned int, ContextMenuData> m_switchedOn;
    std::map<unsigned int, ContextMenuData> m_switchedOff;
};

} // namespace qzDescriptor
