// Menu trees for tests: one to start from, and what becomes of one in a line of text.
#pragma once

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "menu/OwnerDrawMenu.h"
#include "menu/PlatformMenu.h"

// The items of the records: "a1, -, M(b2)" for a command "a" of id 1, a separator and a pop-up "M". A separator shows
// its text behind the dash.
inline std::string Describe(const COwnerDrawMenu& menu) {
    std::string items;
    for (const auto& record : menu.itemRecords) {
        if (!items.empty()) items += ", ";
        const std::string text = record->GetText() != nullptr ? record->GetNarrowText() : "null";
        if ((record->flags & MF_POPUP) != 0) {
            const COwnerDrawMenu* subMenu = OwnerDrawMenuOf(SubMenuOfId(record->id));
            items += text + "(" + (subMenu != nullptr ? Describe(*subMenu) : "gone") + ")";
        } else if ((record->flags & MF_SEPARATOR) != 0) {
            items += record->GetNarrowText().empty() ? "-" : "-" + text;
        } else {
            items += text + std::to_string(record->id);
        }
    }
    return items;
}

// Each item of the platform is owner-drawn with its own record as data, in the order of the records, and the handles of
// sub-menus are where they belong.
inline void ExpectInStep(const COwnerDrawMenu& menu) {
    SCOPED_TRACE(Describe(menu));
    ASSERT_EQ(static_cast<std::size_t>(::GetMenuItemCount(menu.GetHandle())), menu.itemRecords.size());
    std::vector<HMENU> found;
    for (int position = 0; position < ::GetMenuItemCount(menu.GetHandle()); ++position) {
        const CMenuItemRecord& record = *menu.itemRecords[static_cast<std::size_t>(position)];
        EXPECT_EQ(PlatformItemData(menu.GetHandle(), position), record.GetItemData()) << position;
        const HMENU subMenu = ::GetSubMenu(menu.GetHandle(), position);
        EXPECT_EQ(subMenu != nullptr, (record.flags & MF_POPUP) != 0) << position;
        if (subMenu == nullptr) {
            EXPECT_EQ(::GetMenuItemID(menu.GetHandle(), position), record.id) << position;
            continue;
        }
        found.push_back(subMenu);
        EXPECT_EQ(IdOfSubMenu(subMenu), record.id) << position;
        EXPECT_TRUE(COwnerDrawMenu::IsRegisteredSubMenu(subMenu)) << position;
        if (const COwnerDrawMenu* object = OwnerDrawMenuOf(subMenu)) ExpectInStep(*object);
    }
    std::vector<HMENU> kept = menu.subMenus;
    std::ranges::sort(found);
    std::ranges::sort(kept);
    EXPECT_EQ(found, kept);
}

// a1, M(b2, D(c3, a1)), -, d4
class CMenuTree : public COwnerDrawMenu {
public:
    CMenuTree() {
        CreatePopupMenu();
        AppendItem("a", MF_STRING, 1, -1);
        more = AppendSubMenu("M");
        AppendItem("", MF_SEPARATOR, 0, -1);
        AppendItem("d", MF_STRING, 4, -1);
        more->AppendItem("b", MF_STRING, 2, -1);
        deep = more->AppendSubMenu("D");
        deep->AppendItem("c", MF_STRING, 3, -1);
        deep->AppendItem("a", MF_STRING, 1, -1);
    }

    COwnerDrawMenu* more; // gone when the item is
    COwnerDrawMenu* deep;
};
