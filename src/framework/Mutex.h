// A mutual exclusion with a bounded wait, unnamed and owned by one thread at a time. The owner may lock again; each
// Lock that succeeded wants its Unlock, on the same thread.
#pragma once

#include <cstdint>
#include <memory>

class CMutex {
public:
    static constexpr std::uint32_t infinite = 0xFFFFFFFF;

    CMutex();
    ~CMutex();
    CMutex(const CMutex&) = delete;
    CMutex& operator=(const CMutex&) = delete;

    // True once the calling thread owns the mutex; false when the time is over before that.
    bool Lock(std::uint32_t timeoutMilliseconds = infinite);

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
