#include "descriptor/qzdescriptor.h"

#include <gtest/gtest.h>

#include <optional>

namespace qzDescriptor::test {
namespace {

/// What a look-up is to answer, with one record or none in each map: true and false for a status, else
/// nothing.
std::optional<bool> LookUp(std::optional<ContextMenuData> const& on,
                           std::optional<ContextMenuData> const& off, int kind, bool validEntityType) {
    if (on && (on->GetContextMenuType() & kind) != 0) {
        if (!on->GetValidEntityType())
            return true;
        return validEntityType ? std::optional(true) : std::nullopt;
    }
    if (off && (off->GetContextMenuType() & kind) != 0) {
        if (!off->GetValidEntityType())
            return false;
        return validEntityType ? std::optional(false) : std::nullopt;
    }
    return std::nullopt;
}

TEST(DefinitionContextMenu, AnswersFromTheRecordsSwitchedOnFirst) {
    std::optional<ContextMenuData> records[7]; // none, and every combination of two kinds
    for (int i = 1; i < 7; ++i)
        records[i] = ContextMenuData(ContextMenuType((i + 1) / 2), i % 2 == 0);
    for (auto const& on : records) {
        for (auto const& off : records) {
            DefinitionContextMenu menu;
            menu.SetEntityTypeContextMenuStatus(8, CONTEXT_MENU_CREATE | CONTEXT_MENU_EDIT, true, false);
            if (on)
                menu.SetEntityTypeContextMenuStatus(7, on->GetContextMenuType(), true,
                                                    on->GetValidEntityType());
            if (off)
                menu.SetEntityTypeContextMenuStatus(7, off->GetContextMenuType(), false,
                                                    off->GetValidEntityType());
            for (int query = 0; query < 10; ++query) {
                int const kind = query / 2;
                bool const valid = query % 2 != 0;
                for (bool const before : {false, true}) {
                    bool status = before;
                    auto const expected = LookUp(on, off, kind, valid);
                    EXPECT_EQ(menu.HasContextMenuStatusDefined(ContextMenuType(kind), 7, valid, status),
                              expected.has_value());
                    EXPECT_EQ(status, expected.value_or(before));
                }
            }
        }
    }
}

TEST(DefinitionContextMenu, ComparesAndClearsBothKindsOfRecords) {
    ContextMenuData const edit(CONTEXT_MENU_EDIT, false), create(CONTEXT_MENU_CREATE, false);
    DefinitionContextMenu menu({7, edit}, {8, create});
    EXPECT_NE(menu, DefinitionContextMenu({7, create}, {8, create}));
    EXPECT_NE(menu, DefinitionContextMenu({7, edit}, {8, edit}));
    EXPECT_NE(menu, DefinitionContextMenu({7, edit}, {9, create}));
    EXPECT_NE(menu, DefinitionContextMenu({7, ContextMenuData(CONTEXT_MENU_EDIT, true)}, {8, create}));
    menu.SetEntityTypeContextMenuStatus(7, CONTEXT_MENU_CREATE, true, false);
    EXPECT_EQ(menu, DefinitionContextMenu({7, create}, {8, create})) << "the later record counts";
    menu.Clear();
    EXPECT_EQ(menu, DefinitionContextMenu());
}

} // namespace
} // namespace qzDescriptor::test
