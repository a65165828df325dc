// The keys that the panel takes before the platform's dialog keyboard: Enter and Tab.
#include "panel/CounterPanel.h"

#include <algorithm>

namespace {

bool CanBeUsed(HWND control) {
    return ::IsWindowVisible(control) != FALSE && ::IsWindowEnabled(control) != FALSE;
}

} // namespace

void CCounterPanel::KeepFocus() const {
    const HWND focus = ::GetFocus();
    if (::IsChild(GetHandle(), focus) == FALSE || !CanBeUsed(focus)) startButton.SetFocus();
}

bool CCounterPanel::PreTranslateMessage(MSG& message) {
    if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN) {
        // The platform would press the button that has the focus; here Enter means Start or Stop wherever the focus is.
        // A key that is held down counts once.
        const bool repeated = (message.lParam & (1 << 30)) != 0;
        if (!repeated) OnOK();
        return true;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_TAB && ::GetKeyState(VK_CONTROL) >= 0) {
        MoveFocus(::GetKeyState(VK_SHIFT) < 0);
        return true;
    }
    return CDialog::PreTranslateMessage(message);
}

// The platform would walk through one window after the other: all controls on the panel's own, then those on the ground
// and on the labels.
void CCounterPanel::MoveFocus(bool backwards) const {
    const HWND focus = ::GetFocus();
    const auto isTabStop = [](HWND control) { return (::GetWindowLongA(control, GWL_STYLE) & WS_TABSTOP) != 0; };
    // Itself, or by a window of its own, as a picker may.
    const auto holdsFocus = [&](HWND control) {
        return control == focus || (isTabStop(control) && ::IsChild(control, focus) != FALSE);
    };
    const auto takesFocus = [&](HWND control) { return isTabStop(control) && CanBeUsed(control); };
    std::vector<HWND> walk;
    for (const Control& control : Controls()) walk.push_back(control.window);
    if (backwards) std::ranges::reverse(walk);
    // Those behind the focus come first, and then those before it. A focus elsewhere leaves the walk as it is.
    const auto holder = std::ranges::find_if(walk, holdsFocus);
    if (holder != walk.end()) std::rotate(walk.begin(), std::next(holder), walk.end());
    const auto next = std::ranges::find_if(walk, takesFocus);
    if (next == walk.end()) return;
    SendMessage(WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS));
    SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(*next), TRUE); // also selects an edit's text
}
