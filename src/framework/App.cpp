#include "framework/App.h"

#include <new>
#include <string>

#include <commctrl.h>

#include "framework/ResourceModule.h"
#include "framework/Wnd.h"

namespace {

CWinApp* currentApp = nullptr;

// No handler of the program can go on without memory, and a half-done state would show false counts.
void StopWithoutMemory() {
    ::MessageBoxA(nullptr, "There is not enough memory. The program has to stop.", "Quorvane",
                  MB_OK | MB_ICONERROR | MB_SYSTEMMODAL);
    ::ExitProcess(ERROR_NOT_ENOUGH_MEMORY);
}

} // namespace

CWinApp::CWinApp() {
    currentApp = this;
}

CWinApp::~CWinApp() {
    currentApp = nullptr;
}

const CMessageMap& CWinApp::ClassMap() {
    return CCommandTarget::ClassMap();
}

CWinApp* CWinApp::Current() {
    return currentApp;
}

CWnd* CWinApp::MainWindow() {
    return currentApp != nullptr ? currentApp->mainWindow : nullptr;
}

int CWinApp::Run() {
    std::set_new_handler(&StopWithoutMemory);
    INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_DATE_CLASSES | ICC_STANDARD_CLASSES};
    ::InitCommonControlsEx(&classes);
    InitInstance();
    return 0;
}

void CWinApp::OnHelp() {
    if (mainWindow == nullptr) return;
    const std::string file = ProgramFolder() + "Quorvane.hlp";
    if (::GetFileAttributesA(file.c_str()) == INVALID_FILE_ATTRIBUTES) return;
    ::WinHelpA(mainWindow->GetHandle(), file.c_str(), HELP_FINDER, 0);
}
