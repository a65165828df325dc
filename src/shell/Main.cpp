// The program's entry.
#include <windows.h>

#include "link/CommandQueue.h"
#include "shell/QuorvaneApp.h"

namespace {

CQuorvaneApp theApp;

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const int result = theApp.Run();
    // A worker that is still there hangs in a call, perhaps with the log in its hands: the orderly end would wait for
    // that.
    if (CCommandQueue::Instance()->IsRunning()) ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(result));
    return result;
}
