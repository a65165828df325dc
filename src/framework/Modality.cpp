#include "framework/Modality.h"

#include "framework/App.h"
#include "framework/Wnd.h"

namespace {

GUITHREADINFO StateOfThread() {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    ::GetGUIThreadInfo(::GetCurrentThreadId(), &state); // leaves the flags clear if it fails
    return state;
}

} // namespace

HWND ModalOwner(const CWnd* parent) {
    if (parent != nullptr) return ::GetAncestor(parent->GetHandle(), GA_ROOT);
    const CWnd* mainWindow = CWinApp::MainWindow();
    return mainWindow != nullptr ? LastPopupOf(mainWindow->GetHandle()) : nullptr;
}

HWND LastPopupOf(HWND top) {
    const HWND popup = ::GetLastActivePopup(top);
    // A hidden one is a dialog that has ended and whose handler still runs.
    return ::IsWindowVisible(popup) != FALSE ? popup : top;
}

HWND LetGoOfMouse() {
    const GUITHREADINFO state = StateOfThread();
    if (IsMenuOpen()) ::EndMenu();
    if (::GetCapture() != nullptr) ::ReleaseCapture();
    return (state.flags & GUI_INMOVESIZE) != 0 ? state.hwndMoveSize : nullptr;
}

bool IsMenuOpen() {
    constexpr DWORD inMenu = GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
    return (StateOfThread().flags & inMenu) != 0;
}

void EndMoving(HWND window) {
    // As by the key: losing the capture ends that loop on some systems only.
    if (window != nullptr) ::PostMessageA(window, WM_KEYDOWN, VK_ESCAPE, 0);
}
