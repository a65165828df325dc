#include "shell/QuorvaneApp.h"

#include <string>

#include "dialogs/StoredValues.h"
#include "framework/ResourceModule.h"
#include "link/CommandQueue.h"
#include "shell/FrameDlg.h"
#include "shell/StopCommands.h"

namespace {

constexpr UINT helpCommand = 57670; // ID_HELP

void LoadChineseResources() {
    const std::wstring library = ProgramFolderWide() + L"QuorvaneZHCN.dll";
    // As data: a library with code in it, or of the other word size, runs nothing.
    constexpr DWORD asData = LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE;
    // Never freed.
    if (HINSTANCE module = ::LoadLibraryExW(library.c_str(), nullptr, asData)) SetResourceModule(module);
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

    CCommandQueue::Instance()->Reopen(); // a process may run the program more than once
    CFrameDlg frame(nullptr);
    mainWindow = &frame;
    frame.language = chinese; // also where the library is missing
    const INT_PTR end = frame.DoModal();
    if (!frame.HasBegun() || end == IDABORT) Fail("The main window can't be made. The program has to stop.");
    StopCommands(); // for an end that the frame didn't see coming; else there is nothing left to wait for
    mainWindow = nullptr;
    return false;
}
