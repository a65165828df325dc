#include "skin/InputControl.h"

#include <utility>

#include <commctrl.h>

#include "skin/SkinControl.h"

namespace {

bool IsMouseMessage(UINT message) {
    return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
}

bool TakesMouse(HWND window) {
    if (::IsWindowVisible(window) == FALSE) return false;
    for (HWND each = window; each != nullptr; each = ::GetAncestor(each, GA_PARENT)) {
        if (::IsWindowEnabled(each) == FALSE) return false;
    }
    return true;
}

bool CanTakeFocus(HWND window) {
    return ::IsWindowVisible(window) != FALSE && ::IsWindowEnabled(window) != FALSE;
}

bool IsHiding(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SHOWWINDOW) return wParam == FALSE;
    if (message != WM_WINDOWPOSCHANGED || lParam == 0) return false;
    return (reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_HIDEWINDOW) != 0;
}

} // namespace

template <class Control>
LRESULT CInputControl<Control>::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = this->GetHandle();
    if (IsMouseMessage(message) && !TakesMouse(window)) {
        LetGo();
        return 0;
    }
    // The platform begins with WM_CANCELMODE to disable a window, and takes the focus away before it says so.
    if (message == WM_CANCELMODE) losesFocus = ::GetFocus() == window;
    // That message has other reasons too, and then the focus goes to a window, or comes back.
    if (message == WM_SETFOCUS || (message == WM_KILLFOCUS && wParam != 0)) losesFocus = false;
    const bool disabling = message == WM_ENABLE && wParam == FALSE;
    const bool hiding = IsHiding(message, wParam, lParam);
    if (message == WM_CANCELMODE || message == WM_KILLFOCUS || disabling || hiding) LetGo();
    const LRESULT result = Control::WindowProc(message, wParam, lParam);
    // The last, if the object is still there: whoever hears of the new focus may end it.
    if ((disabling || hiding) && CWnd::FromHandlePermanent(window) == this) PassFocus(disabling);
    return result;
}

template <class Control>
void CInputControl<Control>::PreSubclassWindow() {
    losesFocus = false;
    Control::PreSubclassWindow();
}

template <class Control>
void CInputControl<Control>::LetGo() {
    EndInput();
    if (HasCapture()) ::ReleaseCapture();
}

template <class Control>
void CInputControl<Control>::PassFocus(bool disabled) {
    const HWND focus = ::GetFocus();
    const bool lost = std::exchange(losesFocus, false) && disabled && focus == nullptr;
    if (!lost && focus != this->GetHandle()) return;
    if (CanTakeFocus(focusHeir)) {
        ::SetFocus(focusHeir);
    } else if (disabled) {
        ::SetFocus(NextInLine());
    }
}

template <class Control>
HWND CInputControl<Control>::NextInLine() const {
    return ::GetNextDlgTabItem(::GetAncestor(this->GetHandle(), GA_ROOT), this->GetHandle(), FALSE);
}

template <class Control>
void CInputControl<Control>::AwaitMouseLeave() const {
    TRACKMOUSEEVENT leave{sizeof(TRACKMOUSEEVENT), TME_LEAVE, this->GetHandle(), 0};
    ::TrackMouseEvent(&leave);
}

template class CInputControl<CButton>;
template class CInputControl<CStatic>;
template class CInputControl<CSkinControl<CButton>>;
template class CInputControl<CSkinControl<CStatic>>;
