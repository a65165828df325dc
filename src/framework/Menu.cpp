#include "framework/Menu.h"

#include <utility>

#include "framework/HandleMap.h"
#include "framework/Wnd.h"

namespace {

// The popup that TrackPopupMenu shows at present. WM_MEASUREITEM doesn't name its menu, so the walk starts here.
HMENU trackedMenu = nullptr;

bool HoldsItem(HMENU menu, int position, ULONG_PTR itemData) {
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_DATA | MIIM_FTYPE;
    if (::GetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &info) == FALSE) return false;
    return (info.fType & MFT_OWNERDRAW) != 0 && info.dwItemData == itemData;
}

} // namespace

CMenu* MenuFromHandle(HMENU handle) {
    return CMenu::FromHandle(handle);
}

CMenu::~CMenu() {
    if (temporary) return;
    CMenu::DestroyMenu();
}

CMenu* CMenu::FromHandle(HMENU handle) {
    return MenuMap().Wrap(handle);
}

CMenu* CMenu::FromHandlePermanent(HMENU handle) {
    return MenuMap().FindPermanent(handle);
}

std::unique_ptr<CMenu> CMenu::MakeTemporary(HMENU handle) {
    auto menu = std::make_unique<CMenu>();
    menu->handle = handle;
    menu->temporary = true;
    return menu;
}

bool CMenu::Attach(HMENU menu) {
    if (menu == nullptr || handle != nullptr) return false;
    handle = menu;
    MenuMap().SetPermanent(menu, this);
    return true;
}

HMENU CMenu::Detach() {
    if (handle != nullptr) MenuMap().RemovePermanent(handle, this);
    return std::exchange(handle, nullptr);
}

int CMenu::TrackPopupMenu(UINT flags, int x, int y, const CWnd& owner, const RECT* rect) {
    const HMENU outer = std::exchange(trackedMenu, handle);
    const int result = ::TrackPopupMenu(handle, flags, x, y, 0, owner.GetHandle(), rect);
    trackedMenu = outer;
    return result;
}

bool CMenu::DestroyMenu() {
    const HMENU menu = Detach();
    return menu != nullptr && ::DestroyMenu(menu) != FALSE;
}

void CMenu::DrawItem(DRAWITEMSTRUCT&) {}

void CMenu::MeasureItem(MEASUREITEMSTRUCT&) {}

LRESULT CMenu::MenuChar(UINT, UINT) {
    return MAKELRESULT(0, MNC_IGNORE);
}

bool CMenuWalk::Next() {
    if (subMenu != nullptr) Enter(std::exchange(subMenu, nullptr));
    while (!levels.empty()) {
        Level& level = levels.back();
        if (++level.position < ::GetMenuItemCount(level.menu)) {
            subMenu = ::GetSubMenu(level.menu, level.position);
            return true;
        }
        levels.pop_back();
    }
    return false;
}

void CMenuWalk::Enter(HMENU menu) {
    if (menu != nullptr && entered.insert(menu).second) levels.push_back({menu, -1});
}

CMenu* FindMenuOfItem(HMENU root, ULONG_PTR itemData) {
    for (CMenuWalk walk(root); walk.Next();) {
        CMenu* menu = CMenu::FromHandlePermanent(walk.GetMenu());
        if (menu != nullptr && HoldsItem(walk.GetMenu(), walk.GetPosition(), itemData)) return menu;
    }
    return nullptr;
}

bool RouteMenuDraw(DRAWITEMSTRUCT& item) {
    // For a menu, hwndItem is the handle of the very menu that holds the item.
    CMenu* menu = CMenu::FromHandlePermanent(reinterpret_cast<HMENU>(item.hwndItem));
    if (menu == nullptr) menu = FindMenuOfItem(trackedMenu, item.itemData);
    if (menu == nullptr) return false;
    menu->DrawItem(item);
    return true;
}

bool RouteMenuMeasure(HMENU windowMenu, MEASUREITEMSTRUCT& item) {
    CMenu* menu = FindMenuOfItem(trackedMenu, item.itemData);
    if (menu == nullptr) menu = FindMenuOfItem(windowMenu, item.itemData);
    if (menu == nullptr) return false;
    menu->MeasureItem(item);
    return true;
}
