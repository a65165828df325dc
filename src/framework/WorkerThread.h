// Starting a thread, and pausing the one that runs.
#pragma once

#include <cstdint>
#include <memory>

class CWorkerThread {
public:
    using Entry = unsigned (*)(void* parameter) noexcept;

    CWorkerThread() = default;
    CWorkerThread(const CWorkerThread&) = delete;
    CWorkerThread& operator=(const CWorkerThread&) = delete;

    // Runs `entry(parameter)` on a thread of its own with the default stack: a new one, or one whose former call has
    // returned. False when the platform gives none. The call is not joined by anybody: the handle of an earlier start
    // is dropped, here and by the destructor, while that call runs on.
    bool Start(Entry entry, void* parameter);

    // A Win32 handle, which stays this object's; signalled when the latest call has returned. Null before the first
    // start, and always on other platforms.
    void* GetHandle() const { return handle.get(); }

private:
    std::shared_ptr<void> handle;
};

// Suspends the calling thread for at least this long.
void PauseThread(std::uint32_t milliseconds);
