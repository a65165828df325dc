// Work that a driver may hold up, on threads of its own, so that the caller waits for a bounded time only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

// Runs `work` on a thread of its own, and, if that takes longer than a tenth of a second, on `count` of them at once,
// 64 at most, so each takes a share. Waits until all have ended, at most `limit` ms; whether they have. What hasn't
// ended by then goes on alone and ends with the process at the latest: so `work` owns, or shares, all that it touches,
// and what it has captured is gone when it has ended. If the system gives no thread, the caller runs `work` itself,
// without a bound. The caller serves no messages meanwhile; `work` sends none. On a helper itself the work runs right
// there, since whoever waits for that helper has a bound.
bool RunOnHelpers(std::uint32_t limit, const std::function<void()>& work, std::size_t count = 1);
