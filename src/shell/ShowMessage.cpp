#include "shell/ShowMessage.h"

#include "framework/App.h"
#include "framework/Wnd.h"
#include "shell/ProductStrings.h"

int ShowMessage(const std::string& text, const std::string& caption, int style) {
    // Owned by the dialog on top, so that a second result stands over the first.
    const CWnd* mainWindow = CWinApp::MainWindow();
    const HWND owner = mainWindow != nullptr ? ::GetLastActivePopup(mainWindow->GetHandle()) : nullptr;
    ::MessageBoxA(owner, text.c_str(), caption.empty() ? productTitle : caption.c_str(),
                  style == 1 ? MB_OKCANCEL : MB_OK);
    return 0;
}
