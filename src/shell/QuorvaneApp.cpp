#include "shell/QuorvaneApp.h"

#include <string>

#include "framework/ResourceModule.h"
#include "link/CommandQueue.h"
#include "shell/FrameDlg.h"
#include "shell/StoredValues.h"

namespace {

constexpr UINT helpCommand = 57670; // ID_HELP
constexpr DWORD workerLimit = 600; // ms; a command's pause is 200 at most, and a stuck driver must not hold the program

void LoadChineseResources() {
    const std::string library = ProgramFolder() + "QuorvaneZHCN.dll";
    if (HINSTANCE module = ::LoadLibraryA(library.c_str())) SetResourceModule(module); // never freed
}

// Lets the worker leave before the process tears anything down: no command runs once the window is gone. The worker may
// be inside a call into this thread, so sent messages are served while it is waited for.
void StopWorker() {
    CCommandQueue& queue = *CCommandQueue::Instance();
    queue.Stop();
    queue.DropQueued();
    const HANDLE worker = queue.GetThreadHandle();
    if (worker == nullptr) return;
    const DWORD start = ::GetTickCount();
    for (DWORD passed = 0; passed < workerLimit; passed = ::GetTickCount() - start) {
        const DWORD woken = ::MsgWaitForMultipleObjects(1, &worker, FALSE, workerLimit - passed, QS_SENDMESSAGE);
        if (woken != WAIT_OBJECT_0 + 1) return;
        MSG message{};
        ::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

} // namespace

const CMessageMap& CQuorvaneApp::ClassMap() {
    static constexpr std::array entries{OnCommandId<helpCommand, &CWinApp::OnHelp>()};
    static const CMessageMap map{&CWinApp::ClassMap(), entries};
    return map;
}

bool CQuorvaneApp::InitInstance() {
    std::int32_t language = 0;
    ReadRegistryInt("Language", language, 0);
    const bool chinese = language == 1;
    if (chinese) LoadChineseResources();

    CFrameDlg frame(nullptr);
    mainWindow = &frame;
    frame.language = chinese; // also where the library is missing
    frame.DoModal();
    StopWorker();
    mainWindow = nullptr;
    return false;
}
