// The period of the system's timer.
#include "port/ExactWaits.h"

#include "framework/SystemLibrary.h"

namespace {

struct TimerCalls {
    UINT(WINAPI* begin)(UINT);
    UINT(WINAPI* end)(UINT);
};

// Windows seeks this library beside the program first, so it isn't imported.
const TimerCalls& SystemTimer() {
    static const TimerCalls calls = [] {
        const HMODULE module = LoadSystemLibrary(L"winmm.dll");
        TimerCalls found{};
        FindFunction(module, "timeBeginPeriod", found.begin);
        FindFunction(module, "timeEndPeriod", found.end);
        return found;
    }();
    return calls;
}

} // namespace

CExactWaits::CExactWaits() {
    if (const auto begin = SystemTimer().begin; begin != nullptr) begin(1);
}

CExactWaits::~CExactWaits() {
    if (const auto end = SystemTimer().end; end != nullptr) end(1);
}
