#include "framework/App.h"

#include <atomic>
#include <new>
#include <string>

#include "framework/CommonControls.h"
#include "framework/ResourceModule.h"
#include "framework/SystemHandles.h"
#include "framework/SystemLibrary.h"
#include "framework/Text.h"
#include "framework/Wnd.h"

namespace {

CWinApp* currentApp = nullptr;

void Complain(const char* text) {
    const char* const name = currentApp != nullptr ? currentApp->GetName() : "";
    ::MessageBoxA(nullptr, text, name, MB_OK | MB_ICONERROR | MB_SYSTEMMODAL);
}

DWORD WINAPI TellOfMemory(void*) {
    Complain("There is not enough memory. The program has to stop.");
    ::ExitProcess(ERROR_NOT_ENOUGH_MEMORY);
}

// No handler of the program can go on without memory, and a half-done state would show false counts. The box's loop
// would run more of them, each of which would want memory again and bring up a further box: so the box has a thread of
// its own, and every thread that wants memory stands still. Where the system gives no thread, a second want ends all.
void StopWithoutMemory() {
    static std::atomic<DWORD> tellingThread{0};
    const DWORD own = ::GetCurrentThreadId();
    DWORD telling = 0;
    if (tellingThread.compare_exchange_strong(telling, own)) {
        const CKernelHandle thread(::CreateThread(nullptr, 0, &TellOfMemory, nullptr, 0, nullptr));
        if (!thread.IsEmpty()) ::Sleep(INFINITE);
        TellOfMemory(nullptr);
    }
    if (telling == own) ::ExitProcess(ERROR_NOT_ENOUGH_MEMORY);
    ::Sleep(INFINITE);
}

} // namespace

CWinApp::CWinApp(const char* programName) : name(programName) {
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
    KeepToSystemLibraries();
    std::set_new_handler(&StopWithoutMemory);
    // No more than is used: common controls before version 6 refuse the whole call for a class that they don't know.
    const INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_DATE_CLASSES};
    const auto initialise = SystemCommonControls().initialise;
    if (initialise == nullptr || initialise(&classes) == FALSE) {
        Complain("The system has no date control. The program has to stop.");
        return ERROR_DLL_INIT_FAILED;
    }
    InitInstance();
    return failure;
}

void CWinApp::Fail(const char* text) {
    Complain(text);
    failure = ERROR_GEN_FAILURE;
}

void CWinApp::OnHelp() {
    if (mainWindow == nullptr) return;
    const std::wstring file = ProgramFolderWide() + ToWide(name) + L".hlp";
    if (::GetFileAttributesW(file.c_str()) == INVALID_FILE_ATTRIBUTES) return;
    ::WinHelpW(mainWindow->GetHandle(), file.c_str(), HELP_FINDER, 0);
}
