#include "framework/Mutex.h"

#include <windows.h>

// A section, not the system's mutex: that one costs two calls of the system with each guard, a twentieth of a poll.
// What a mutex tells besides, that its owner has ended without a word, happens here only with the end of the process.
struct CMutex::State {
    CRITICAL_SECTION section{};
};

CMutex::CMutex() : state(std::make_unique<State>()) {
    ::InitializeCriticalSection(&state->section);
}

CMutex::~CMutex() {
    ::DeleteCriticalSection(&state->section);
}

void CMutex::Lock() {
    ::EnterCriticalSection(&state->section);
}

void CMutex::Unlock() {
    ::LeaveCriticalSection(&state->section);
}
