#include <windows.h>

#include "framework/Signal.h"

// The headers offer them from Windows Vista on only, which the program needs for other reasons.
extern "C" {
WINBASEAPI void WINAPI AcquireSRWLockExclusive(SRWLOCK* lock);
WINBASEAPI void WINAPI ReleaseSRWLockExclusive(SRWLOCK* lock);
WINBASEAPI BOOL WINAPI SleepConditionVariableSRW(CONDITION_VARIABLE* variable, SRWLOCK* lock, DWORD time, ULONG flags);
WINBASEAPI void WINAPI WakeConditionVariable(CONDITION_VARIABLE* variable);
}

// None of these can be refused, as an event's creation can.
struct CSignal::State {
    SRWLOCK lock{};
    CONDITION_VARIABLE changed{};
    bool raised = false;
};

CSignal::CSignal() : state(std::make_unique<State>()) {}
CSignal::~CSignal() = default;

void CSignal::Raise() {
    ::AcquireSRWLockExclusive(&state->lock);
    state->raised = true;
    ::ReleaseSRWLockExclusive(&state->lock);
    ::WakeConditionVariable(&state->changed);
}

void CSignal::Await() {
    ::AcquireSRWLockExclusive(&state->lock);
    while (!state->raised) ::SleepConditionVariableSRW(&state->changed, &state->lock, INFINITE, 0);
    state->raised = false;
    ::ReleaseSRWLockExclusive(&state->lock);
}
