#include "menu/PlatformMenu.h"

#include <array>

#include "menu/OwnerDrawMenu.h"

namespace {

// The fields of the mask; 0 in all of them if there is no such item.
MENUITEMINFOA ItemInfo(HMENU menu, int position, UINT mask) {
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = mask;
    ::GetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &info);
    return info;
}

} // namespace

std::string PlatformCaption(HMENU menu, int position) {
    // An item that became owner-drawn may still answer with the caption that it had before.
    if ((ItemInfo(menu, position, MIIM_FTYPE).fType & MFT_OWNERDRAW) != 0) return {};
    std::array<char, 256> text{};
    ::GetMenuStringA(menu, static_cast<UINT>(position), text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
    text.back() = '\0';
    return text.data();
}

UINT_PTR PlatformItemKey(HMENU menu, int position) {
    const MENUITEMINFOA info = ItemInfo(menu, position, MIIM_FTYPE | MIIM_SUBMENU | MIIM_ID);
    if (info.hSubMenu != nullptr) return IdOfSubMenu(info.hSubMenu);
    return (info.fType & MFT_SEPARATOR) != 0 ? 0 : info.wID;
}

bool ModifyPlatformItem(HMENU menu, int position, UINT flags, UINT_PTR id, const char* text) {
    MENUITEMINFOA state = ItemInfo(menu, position, MIIM_STATE);
    const bool modified = ::ModifyMenuA(menu, static_cast<UINT>(position), flags | MF_BYPOSITION, id, text) != FALSE;
    if (modified) ::SetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &state);
    return modified;
}

ULONG_PTR PlatformItemData(HMENU menu, int position) {
    return ItemInfo(menu, position, MIIM_DATA).dwItemData;
}

void SetPlatformItemData(HMENU menu, int position, const CMenuItemRecord& record) {
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_DATA;
    info.dwItemData = record.GetItemData();
    ::SetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &info);
}

COwnerDrawMenu* OwnerDrawMenuOf(HMENU menu) {
    CMenu* object = CMenu::FromHandlePermanent(menu);
    const bool isOurs = object != nullptr && object->IsKindOf(COwnerDrawMenu::classInfo);
    return isOurs ? static_cast<COwnerDrawMenu*>(object) : nullptr;
}

bool COwnerDrawMenuWalk::Next() {
    if (!walk.Next()) return false;
    popup = walk.GetSubMenu() != nullptr;
    if (GetSubMenu() == nullptr) walk.SkipSubMenu();
    return true;
}
