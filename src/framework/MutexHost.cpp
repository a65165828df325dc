#include "framework/Mutex.h"

#include <mutex>

struct CMutex::State {
    std::recursive_mutex mutex;
};

CMutex::CMutex() : state(std::make_unique<State>()) {}

CMutex::~CMutex() = default;

void CMutex::Lock() {
    state->mutex.lock();
}

void CMutex::Unlock() {
    state->mutex.unlock();
}
