// Puts local times without an offset, as a log has them in order, onto the line of time.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>

#include "reader/ReadingText.h"

// Seconds east of UTC that hold at an instant, given in seconds since 1970-01-01 UTC.
using ZoneOffset = std::function<std::int32_t(std::int64_t utc)>;

// The system's own zone: that of CTime, from 1970 to 2106.
std::int32_t SystemZoneOffset(std::int64_t utc);

class CLocalTimeline {
public:
    explicit CLocalTimeline(ZoneOffset offsetAt) : zone(std::move(offsetAt)) {}

    // The instant of a local time. In the hour that the end of summer time repeats it is the earlier one, until the
    // times go back by more than a minute: then the second pass has begun. A time that the beginning of summer time
    // skips is taken as if the clock had not been changed yet.
    Moment Place(WallSeconds wall);

private:
    std::int64_t Resolve(WallSeconds wall) const;

    ZoneOffset zone;
    std::int64_t last = std::numeric_limits<std::int64_t>::min(); // in UTC
};
