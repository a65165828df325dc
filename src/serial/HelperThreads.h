// Work that a driver may hold up, on threads of its own, so that the caller waits for a bounded time only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>

#include "framework/WorkerThread.h"

// Runs `work` on a thread of its own from the start of this object, and, if that takes longer than a tenth of a second,
// on several at once, so each takes a share. What hasn't ended when nobody waits for it any more goes on alone and ends
// with the process at the latest: so `work` owns, or shares, all that it touches, and what it has captured is gone when
// it has ended. If the system gives no thread, the caller runs `work` itself, without a bound. On a helper itself the
// work runs right there, since whoever waits for that helper has a bound.
class CHelperRun {
public:
    explicit CHelperRun(std::function<void()> helperWork);

    // Waits until all have ended, at most until `limit` ms after the start; whether they have. Of `count` helpers, 64
    // at most. Those that begin now, because the first is still at work, get as long as if they had begun in time. The
    // caller serves no messages meanwhile; `work` sends none.
    bool Await(std::uint32_t limit, std::size_t count = 1);

private:
    bool Begin();
    bool AwaitAll(std::uint32_t deadline) const;

    std::function<void()> work;
    std::list<CWorkerThread> threads; // none: the work has been done
    std::uint32_t begun;
};

// Runs `work` on one helper and waits for it, at most `limit` ms; whether it has ended.
bool RunOnHelper(std::uint32_t limit, const std::function<void()>& work);
