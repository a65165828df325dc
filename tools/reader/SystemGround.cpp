// Clocks and waits of the platform.
#include "reader/SystemGround.h"

#include "reader/LocalTimeline.h"

Moment CSystemGround::WallTime() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return {std::chrono::floor<LineTime>(now).count(),
            SystemZoneOffset(std::chrono::floor<std::chrono::seconds>(now).count())};
}

bool CSystemGround::Rest(LineTime until) {
    // One look at least, so that a wish to end is heard however busy the line is.
    bool goesOn = ::AwaitInput(noPort, stop, until);
    while (goesOn && Now() < until) goesOn = ::AwaitInput(noPort, stop, until);
    return goesOn;
}
