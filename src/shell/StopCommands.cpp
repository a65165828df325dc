#include "shell/StopCommands.h"

#include <windows.h>

#include "link/CommandQueue.h"
#include "link/WireCommands.h"
#include "serial/CommPort.h"

namespace {

constexpr DWORD limit = LongestPause() + 300; // milliseconds: what the command in flight may still take

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
