// Taking items out of a menu.
#include "menu/OwnerDrawMenu.h"

#include "menu/PlatformMenu.h"

bool COwnerDrawMenu::TakeOut(UINT position, UINT flags, Removal removal) {
    const auto remove = removal == Removal::Delete ? &::DeleteMenu : &::RemoveMenu;
    if ((flags & MF_BYPOSITION) == 0) {
        int found = -1;
        COwnerDrawMenu* menu = LocateItem(position, found);
        if (menu == nullptr) return remove(GetHandle(), position, flags) != FALSE;
        return menu->TakeOut(static_cast<UINT>(found), flags | MF_BYPOSITION, removal);
    }
    const auto item = static_cast<int>(position);
    const CMenuItemRecord* record = item < ::GetMenuItemCount(GetHandle()) ? RecordOfItem(item) : nullptr;
    // The state may say of a pop-up whose sub-menu has ended that there is no such item.
    if (const HMENU subMenu = ::GetSubMenu(GetHandle(), item); subMenu != nullptr) {
        DropSubMenu(subMenu, removal);
        DropRecord(record);
    } else {
        const UINT state = ::GetMenuState(GetHandle(), position, MF_BYPOSITION);
        const bool hasText = record != nullptr && record->GetText() != nullptr && *record->GetText() != L'\0';
        if (removal == Removal::Remove || (state & MF_SEPARATOR) == 0 || !hasText) DropRecord(record);
    }
    return remove(GetHandle(), position, flags) != FALSE;
}

void COwnerDrawMenu::DropSubMenu(HMENU subMenu, Removal removal) {
    std::erase(subMenus, subMenu);
    std::erase(allSubMenus, subMenu);
    COwnerDrawMenu* object = OwnerDrawMenuOf(subMenu);
    if (object == this) object = nullptr;
    if (object != nullptr) {
        for (int i = ::GetMenuItemCount(subMenu) - 1; i >= 0; --i) {
            object->TakeOut(static_cast<UINT>(i), MF_BYPOSITION, removal);
        }
    }
    delete object;
}

void COwnerDrawMenu::DropRecord(const CMenuItemRecord* record) {
    std::erase_if(itemRecords, [&](const auto& each) { return each.get() == record; });
}

int COwnerDrawMenu::TakeOutByText(const wchar_t* text, int neighbours, Removal removal) {
    const int index = GetItemPosition(text);
    if (index == -1) return index;
    const int position = PositionOf(*itemRecords[static_cast<std::size_t>(index)]);
    if (position == -1) return index; // a record without an item
    TakeOut(static_cast<UINT>(position), MF_BYPOSITION, removal);
    const int more = neighbours == 1 || neighbours == 2 ? 1 : neighbours == 3 ? 2 : 0;
    for (int i = 0; i < more; ++i) TakeOut(static_cast<UINT>(position - 1), MF_BYPOSITION, removal);
    return index;
}
