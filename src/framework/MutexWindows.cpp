#include "framework/Mutex.h"

#include <new>

#include <windows.h>

#include "framework/SystemHandles.h"

struct CMutex::State {
    const CKernelHandle handle{CreateMutexA(nullptr, FALSE, nullptr)};
};

CMutex::CMutex() : state(std::make_unique<State>()) {
    // Only a system out of resources refuses one, and a lock that doesn't lock must not go on.
    if (state->handle.IsEmpty()) throw std::bad_alloc();
}

CMutex::~CMutex() = default;

void CMutex::Lock() {
    // One abandoned by a thread that ended is owned all the same.
    WaitForSingleObject(state->handle.GetHandle(), INFINITE);
}

void CMutex::Unlock() {
    ReleaseMutex(state->handle.GetHandle());
}
