#include "MeasuredProgram.h"

#include <psapi.h>

#include "user/ProgramStart.h"

namespace {

double Seconds(const FILETIME& time) {
    return (static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime) / 1e7;
}

void Draw(HWND window) {
    ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    // A window of another process is drawn by its own thread: what answers behind that has been drawn.
    DWORD_PTR result = 0;
    ::SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, 20'000, &result);
}

} // namespace

double Milliseconds() {
    LARGE_INTEGER now{}, frequency{};
    ::QueryPerformanceCounter(&now);
    ::QueryPerformanceFrequency(&frequency);
    return 1e3 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

CMeasuredProgram::~CMeasuredProgram() {
    if (!process.IsEmpty()) ::TerminateProcess(process.GetHandle(), 1);
}

std::optional<double> CMeasuredProgram::Start() {
    const double begun = Milliseconds();
    process = StartProcess(file);
    if (process.IsEmpty()) return {};
    while (::IsWindowVisible(window = ::FindWindowA("#32770", caption.c_str())) == FALSE) {
        if (Milliseconds() - begun > 20'000) return {};
        ::Sleep(0);
    }
    DWORD_PTR result = 0;
    ::SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, 20'000, &result);
    return Milliseconds() - begun;
}

std::optional<double> CMeasuredProgram::Close() {
    const double begun = Milliseconds();
    ::PostMessageA(window, WM_CLOSE, 0, 0);
    if (::WaitForSingleObject(process.GetHandle(), 20'000) != WAIT_OBJECT_0) return {};
    process = {};
    return Milliseconds() - begun;
}

double CMeasuredProgram::Paint() const {
    const double begun = Milliseconds();
    Draw(window);
    return Milliseconds() - begun;
}

ProcessUse CMeasuredProgram::GetUse() const {
    PROCESS_MEMORY_COUNTERS memory{};
    ::GetProcessMemoryInfo(process.GetHandle(), &memory, sizeof memory);
    FILETIME made{}, ended{}, system{}, user{};
    ::GetProcessTimes(process.GetHandle(), &made, &ended, &system, &user);
    return {static_cast<double>(memory.WorkingSetSize) / 1048576.0, Seconds(system) + Seconds(user)};
}
