#include "serial/HelperThreads.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include <windows.h>

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

CHelperRun::CHelperRun(std::function<void()> helperWork) : work(std::move(helperWork)), begun(::GetTickCount()) {
    if (isHelper || !Begin()) work();
}

bool CHelperRun::Begin() {
    auto own = std::make_unique<Work>(work);
    if (!threads.emplace_back().Start(&RunWork, own.get())) {
        threads.pop_back();
        return false;
    }
    static_cast<void>(own.release()); // the new thread's now
    return true;
}

bool CHelperRun::AwaitAll(std::uint32_t deadline) const {
    std::vector<HANDLE> handles;
    for (const CWorkerThread& thread : threads) handles.push_back(thread.GetHandle());
    const auto running = static_cast<DWORD>(handles.size());
    const std::uint32_t rest = deadline - std::min<std::uint32_t>(::GetTickCount() - begun, deadline);
    return ::WaitForMultipleObjects(running, handles.data(), TRUE, rest) < WAIT_OBJECT_0 + running;
}

bool CHelperRun::Await(std::uint32_t limit, std::size_t count) {
    if (threads.empty() || AwaitAll(std::min(headStart, limit))) return true;
    const std::uint32_t late = std::max<std::uint32_t>(::GetTickCount() - begun, headStart) - headStart;
    while (threads.size() < count && Begin()) {
    }
    return AwaitAll(count > 1 ? limit + late : limit);
}

bool RunOnHelper(std::uint32_t limit, const std::function<void()>& work) {
    return CHelperRun(work).Await(limit);
}
