#include "framework/Mutex.h"

#include <new>

#include <windows.h>

struct CMutex::State {
    HANDLE handle = CreateMutexA(nullptr, FALSE, nullptr);
};

CMutex::CMutex() : state(std::make_unique<State>()) {
    // Only a system out of resources refuses one, and a lock that doesn't lock must not go on.
    if (state->handle == nullptr) throw std::bad_alloc();
}

CMutex::~CMutex() {
    CloseHandle(state->handle);
}

bool CMutex::Lock(std::uint32_t timeoutMilliseconds) {
    // A mutex abandoned by a thread that ended is owned all the same.
    const DWORD result = WaitForSingleObject(state->handle, timeoutMilliseconds);
    return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

void CMutex::Unlock() {
    ReleaseMutex(state->handle);
}
