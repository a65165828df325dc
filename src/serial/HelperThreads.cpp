#include "serial/HelperThreads.h"

#include <algorithm>
#include <memory>
#include <vector>

#include <windows.h>

#include "framework/WorkerThread.h"

namespace {

using Work = std::function<void()>;

thread_local bool isHelper = false;

unsigned RunWork(void* parameter) noexcept {
    isHelper = true;
    const std::unique_ptr<Work> own(static_cast<Work*>(parameter));
    (*own)();
    isHelper = false; // the thread may get another call
    return 0;
}

// How long the first helper works alone, in ms: mostly it needs no other, and each takes its room.
constexpr std::uint32_t headStart = 100;

} // namespace

bool RunOnHelpers(std::uint32_t limit, const std::function<void()>& work, std::size_t count) {
    if (isHelper) {
        work();
        return true;
    }
    std::vector<CWorkerThread> threads(count);
    std::vector<HANDLE> started;
    for (CWorkerThread& thread : threads) {
        auto own = std::make_unique<Work>(work);
        if (!thread.Start(&RunWork, own.get())) break;
        static_cast<void>(own.release()); // the new thread's now
        started.push_back(thread.GetHandle());
        const bool isFirst = started.size() == 1;
        if (isFirst && ::WaitForSingleObject(started.front(), std::min(headStart, limit)) == WAIT_OBJECT_0) return true;
    }
    if (started.empty()) {
        work();
        return true;
    }
    const auto running = static_cast<DWORD>(started.size());
    const std::uint32_t rest = limit - std::min(headStart, limit);
    return ::WaitForMultipleObjects(running, started.data(), TRUE, rest) < WAIT_OBJECT_0 + running;
}
