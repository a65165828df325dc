// Starting a thread, and pausing the one that runs.
#pragma once

#include <cstdint>

class CWorkerThread {
public:
    using Entry = unsigned (*)(void* parameter) noexcept;

    CWorkerThread() = default;
    ~CWorkerThread();
    CWorkerThread(const CWorkerThread&) = delete;
    CWorkerThread& operator=(const CWorkerThread&) = delete;

    // Runs `entry(parameter)` on a new thread with the default stack. False when the platform gives none. The thread is
    // not joined by anybody: the handle of an earlier start is dropped, here and by the destructor, while that thread
    // runs on.
    bool Start(Entry entry, void* parameter);

    // The latest thread's Win32 handle, which stays this object's; signalled when the thread has ended. Null before the
    // first start, and always on other platforms.
    void* GetHandle() const { return handle; }

private:
    void* handle = nullptr;
};

// Suspends the calling thread for at least this long.
void PauseThread(std::uint32_t milliseconds);
