// The wait for a COM port.
#include <algorithm>
#include <array>
#include <chrono>
#include <optional>

#include "port/ExactWaits.h"
#include "port/PlatformPort.h"

bool AwaitInput(const CPlatformPort& port, const CStopRequest& stop, LineTime until) {
    using std::chrono::milliseconds;
    const auto left = std::chrono::ceil<milliseconds>(std::max(until - SteadyLineTime(), LineTime(0)));
    // Exact waits cost all programs of the system energy, and a long one needs none.
    std::optional<CExactWaits> exact;
    if (left < std::chrono::seconds(1)) exact.emplace();
    const bool isOpen = port.IsOpen();
    const std::array<HANDLE, 2> events{stop.Event(), isOpen ? port.InputEvent() : nullptr};
    const DWORD longest = isOpen ? port.TimeToLook() : INFINITE;
    const DWORD wait = std::min(longest, static_cast<DWORD>(std::min<milliseconds::rep>(left.count(), 60'000)));
    return WaitForMultipleObjects(isOpen ? 2 : 1, events.data(), FALSE, wait) != WAIT_OBJECT_0;
}
