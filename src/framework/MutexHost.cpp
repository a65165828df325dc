#include "framework/Mutex.h"

#include <chrono>
#include <mutex>
#include <thread>

struct CMutex::State {
    std::recursive_mutex mutex;
};

CMutex::CMutex() : state(std::make_unique<State>()) {}

CMutex::~CMutex() = default;

bool CMutex::Lock(std::uint32_t timeoutMilliseconds) {
    if (timeoutMilliseconds == infinite) {
        state->mutex.lock();
        return true;
    }
    // Asked again and again: a timed mutex of the standard library waits by a call that the thread sanitizer misses.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMilliseconds);
    while (!state->mutex.try_lock()) {
        if (std::chrono::steady_clock::now() >= deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

void CMutex::Unlock() {
    state->mutex.unlock();
}
