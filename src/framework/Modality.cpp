#include "framework/Modality.h"

#include "framework/App.h"
#include "framework/Wnd.h"

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

void LetGoOfMouse() {
    if (IsMenuOpen()) ::EndMenu();
    if (::GetCapture() != nullptr) ::ReleaseCapture();
}

bool IsMenuOpen() {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    constexpr DWORD inMenu = GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
    return ::GetGUIThreadInfo(::GetCurrentThreadId(), &state) != FALSE && (state.flags & inMenu) != 0;
}
