#include "serial/HelperThreads.h"

#include <memory>
#include <vector>

#include <windows.h>

#include "framework/WorkerThread.h"

namespace {

using Work = std::function<void()>;

unsigned RunWork(void* parameter) noexcept {
    const std::unique_ptr<Work> own(static_cast<Work*>(parameter));
    (*own)();
    return 0;
}

} // namespace

bool RunOnHelpers(std::uint32_t limit, const std::function<void()>& work, std::size_t count) {
    std::vector<CWorkerThread> threads(count);
    std::vector<HANDLE> started;
    for (CWorkerThread& thread : threads) {
        auto own = std::make_unique<Work>(work);
        if (!thread.Start(&RunWork, own.get())) break;
        static_cast<void>(own.release()); // the new thread's now
        started.push_back(thread.GetHandle());
    }
    if (started.empty()) {
        work();
        return true;
    }
    const auto running = static_cast<DWORD>(started.size());
    return ::WaitForMultipleObjects(running, started.data(), TRUE, limit) < WAIT_OBJECT_0 + running;
}
