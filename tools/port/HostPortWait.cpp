// The wait for a serial device.
#include <poll.h>

#include <algorithm>
#include <array>
#include <ctime>

#include "port/PlatformPort.h"

bool AwaitInput(const CPlatformPort& port, const CStopRequest& stop, LineTime until) {
    std::array<pollfd, 2> sources{{{stop.Descriptor(), POLLIN, 0}, {port.Descriptor(), POLLIN, 0}}};
    const auto left = std::max(until - SteadyLineTime(), LineTime(0)).count();
    const timespec wait{static_cast<time_t>(left / 1'000'000), static_cast<long>(left % 1'000'000 * 1000)};
    return ppoll(sources.data(), sources.size(), &wait, nullptr) <= 0 || sources[0].revents == 0;
}
