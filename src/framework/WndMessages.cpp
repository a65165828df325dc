// How a window's messages find their handler: the message map first, then the ways that the framework knows, which
// lead commands to their target and owner-draw and colour messages back to the control or menu they speak of.
#include "framework/Dc.h"
#include "framework/HandleMap.h"
#include "framework/Menu.h"
#include "framework/Wnd.h"

namespace {

bool IsColorMessage(UINT message) {
    return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
}

} // namespace

bool CWnd::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_COMMAND:
        return OnCommand(wParam, lParam);
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
        if (lParam == 0) return false; // somebody else's: handlers take a reference
        break;
    default:
        break;
    }
    const MapArguments arguments{0, message, wParam, lParam};
    if (Dispatch(IsColorMessage(message) ? MapKind::Color : MapKind::Message, arguments, result)) return true;

    if (IsColorMessage(message)) {
        result = RouteColor(message, wParam, lParam);
        return true;
    }
    switch (message) {
    case WM_DRAWITEM:
        result = TRUE;
        return RouteDrawItem(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
    case WM_MEASUREITEM:
        result = TRUE;
        return RouteMeasureItem(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
    case WM_MENUCHAR:
        result = RouteMenuChar(LOWORD(wParam), HIWORD(wParam), CMenu::FromHandle(reinterpret_cast<HMENU>(lParam)));
        return true;
    default:
        return false;
    }
}

bool CWnd::ReflectTo(HWND control, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    CWnd* object = FromHandlePermanent(control);
    return object != nullptr && object->OnChildNotify(message, wParam, lParam, result);
}

bool CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    const UINT id = LOWORD(wParam);
    const auto control = reinterpret_cast<HWND>(lParam);
    LRESULT result = 0;
    if (control != nullptr) {
        // Only by its direct parent: a command that containers hand on comes to several windows, and would come back to
        // the control as often.
        const bool ours = ::GetParent(control) == handle;
        if (ours && ReflectTo(control, WM_COMMAND, wParam, lParam, result)) return true;
        return OnCmdMsg(id, HIWORD(wParam));
    }
    return OnCmdMsg(id, 0); // from a menu (0) or an accelerator (1): the same to a handler
}

bool CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_COMMAND) return Dispatch(MapKind::ReflectCommand, {0, HIWORD(wParam), wParam, lParam}, result);
    return IsColorMessage(message) && Dispatch(MapKind::ReflectColor, {0, message, wParam, lParam}, result);
}

LRESULT CWnd::RouteColor(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (ReflectTo(reinterpret_cast<HWND>(lParam), message, wParam, lParam, result)) return result;
    return DefWindowProc(message, wParam, lParam);
}

bool CWnd::RouteDrawItem(DRAWITEMSTRUCT& item) {
    if (item.CtlType == ODT_MENU) return RouteMenuDraw(item);
    LRESULT result = 0;
    return ReflectTo(item.hwndItem, WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item), result);
}

bool CWnd::RouteMeasureItem(MEASUREITEMSTRUCT& item) {
    if (item.CtlType == ODT_MENU) return RouteMenuMeasure(::GetMenu(handle), item);
    LRESULT result = 0;
    return ReflectTo(GetDlgItem(static_cast<int>(item.CtlID)), WM_MEASUREITEM, item.CtlID,
                     reinterpret_cast<LPARAM>(&item), result);
}

LRESULT CWnd::RouteMenuChar(UINT character, UINT flags, CMenu* menu) {
    return menu != nullptr ? menu->MenuChar(character, flags) : MAKELRESULT(0, MNC_IGNORE);
}
