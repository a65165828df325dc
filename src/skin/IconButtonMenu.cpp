// The drop-down menu of an icon button.
#include "skin/IconButton.h"

#include "menu/PlatformMenu.h"

int CIconButton::SetDropMenu(UINT menuId, HWND owner, int look, UINT toolbarId, int imageWidth, int imageHeight,
                             COLORREF maskColor, bool redraw) {
    if (HasDropMenu()) {
        dropMenu.DestroyMenu();
        menuOwner = nullptr;
        menuOpen = false;
    }
    if (menuId != 0) {
        COwnerDrawMenu::lookOnThemedXp = COwnerDrawMenu::lookOnOtherSystems = look;
        if (!dropMenu.LoadMenuResource(menuId)) return ImageUnreadable;
    }
    if (toolbarId != 0) {
        dropMenu.SetMaskColor(maskColor);
        dropMenu.SetImageSize(imageWidth, imageHeight);
        if (!dropMenu.LoadToolbarImages(toolbarId)) {
            dropMenu.DestroyMenu();
            return ImageUnreadable;
        }
    }
    menuOwner = owner;
    return Finish(redraw);
}

bool CIconButton::ShowDropMenu() {
    const HWND window = GetHandle();
    CMenu* popup = dropMenu.GetSubMenuAt(0);
    if (popup == nullptr || menuOpen) return false;
    const CRect place = GetWindowRect();
    menuOpen = true;
    Invalidate();
    constexpr UINT flags = TPM_RIGHTBUTTON | TPM_NONOTIFY | TPM_RETURNCMD;
    const int command = popup->TrackPopupMenu(flags, place.left, place.bottom, *this);
    // Whatever closed the menu may have been the end of the button.
    if (FromHandlePermanent(window) != this) return true;
    menuOpen = false;
    Invalidate();
    // A cancelled menu gives 0, or a negative number where one of its sub-menus had been opened by keyboard.
    if (command > 0 && menuOwner != nullptr) ::PostMessageA(menuOwner, WM_COMMAND, LOWORD(command), 0);
    return false;
}

LRESULT CIconButton::OnMenuChar(UINT character, UINT flags, CMenu* menu) {
    if (!COwnerDrawMenu::IsRegisteredSubMenu(menu)) return Default();
    return COwnerDrawMenu::FindShortcut(character, flags, OwnerDrawMenuOf(menu->GetHandle()));
}

void CIconButton::OnMeasureItem(int, MEASUREITEMSTRUCT& item) {
    if (item.CtlType == ODT_MENU && dropMenu.FindRecord(item.itemData) != nullptr) {
        dropMenu.MeasureItem(item);
    } else if (!RouteMeasureItem(item)) {
        Default();
    }
}
