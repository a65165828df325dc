#include "shell/StopCommands.h"

#include <windows.h>

#include "link/CommandQueue.h"
#include "serial/CommPort.h"

namespace {

constexpr DWORD limit = 500; // ms; a command's pause is 200 at most

} // namespace

void StopCommands() {
    CCommandQueue& queue = *CCommandQueue::Instance();
    if (queue.IsShut()) return;
    queue.Shut();
    CCommPort::Instance()->Close();
    const HANDLE worker = queue.GetThreadHandle();
    if (worker == nullptr) return;
    const DWORD start = ::GetTickCount();
    for (DWORD passed = 0; passed < limit; passed = ::GetTickCount() - start) {
        const DWORD woken = ::MsgWaitForMultipleObjects(1, &worker, FALSE, limit - passed, QS_SENDMESSAGE);
        if (woken != WAIT_OBJECT_0 + 1) return;
        MSG message{};
        ::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}
