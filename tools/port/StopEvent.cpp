// The console's wishes as an event.
#include "port/StopEvent.h"

#include "framework/SystemHandles.h"

namespace {

// The console calls its handler on a thread of the system's choice, without an argument to hand an object through.
HANDLE StopHandle() {
    static const CKernelHandle event(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    return event.GetHandle();
}

BOOL WINAPI AskToStop(DWORD wish) {
    SetEvent(StopHandle());
    // The system ends the process when this returns; the end of `main` does it sooner.
    if (wish >= CTRL_CLOSE_EVENT) Sleep(INFINITE);
    return TRUE;
}

} // namespace

CStopEvent::CStopEvent() {
    SetConsoleCtrlHandler(AskToStop, TRUE);
}

HANDLE CStopEvent::Event() const {
    return StopHandle();
}
