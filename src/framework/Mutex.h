// A mutual exclusion, unnamed and owned by one thread at a time. The owner may lock again; each Lock wants its Unlock,
// on the same thread.
#pragma once

#include <memory>

class CMutex {
public:
    CMutex();
    ~CMutex();
    CMutex(const CMutex&) = delete;
    CMutex& operator=(const CMutex&) = delete;

    // Waits until the calling thread owns the mutex.
    void Lock();

    // Gives up one Lock of the calling thread, which must be the owner.
    void Unlock();

private:
    struct State; // the platform's object
    std::unique_ptr<State> state;
};

// Holds a mutex for a scope.
class CMutexGuard {
public:
    [[nodiscard]] explicit CMutexGuard(CMutex& mutex) : held(mutex) { held.Lock(); }
    ~CMutexGuard() { held.Unlock(); }
    CMutexGuard(const CMutexGuard&) = delete;
    CMutexGuard& operator=(const CMutexGuard&) = delete;

private:
    CMutex& held;
};
