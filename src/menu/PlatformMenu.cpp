#include "menu/PlatformMenu.h"

#include <array>

#include "menu/OwnerDrawMenu.h"

std::string PlatformCaption(HMENU menu, int position) {
    std::array<char, 256> text{};
    ::GetMenuStringA(menu, static_cast<UINT>(position), text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
    text.back() = '\0';
    return text.data();
}

ULONG_PTR PlatformItemData(HMENU menu, int position) {
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_DATA;
    return ::GetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &info) != FALSE ? info.dwItemData : 0;
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
