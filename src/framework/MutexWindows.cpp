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

void CMutex::Lock() {
    WaitForSingleObject(state->handle, INFINITE); // one abandoned by a thread that ended is owned all the same
}

void CMutex::Unlock() {
    ReleaseMutex(state->handle);
}
