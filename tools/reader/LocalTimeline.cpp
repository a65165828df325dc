#include "reader/LocalTimeline.h"

namespace {

constexpr std::int64_t secondsPerDay = 86'400;
// A time service sets a clock back by seconds; the end of summer time by far more, unless lines are rare.
constexpr std::int64_t clockCorrection = 60;

} // namespace

std::int32_t SystemZoneOffset(std::int64_t utc) {
    if (utc <= 0 || utc > std::numeric_limits<std::uint32_t>::max()) return 0;
    return static_cast<std::int32_t>(*WallOfClock(static_cast<std::uint32_t>(utc)) - utc);
}

Moment CLocalTimeline::Place(WallSeconds wall) {
    last = Resolve(wall);
    return {last * 1'000'000, zone(last)};
}

std::int64_t CLocalTimeline::Resolve(WallSeconds wall) const {
    // No zone is a day away from UTC, so these hold before and after whatever happens around that time.
    const std::int32_t before = zone(wall - secondsPerDay), after = zone(wall + secondsPerDay);
    const std::int64_t earlier = wall - before, later = wall - after;
    if (before == after) return earlier;
    const bool holdsEarlier = zone(earlier) == before, holdsLater = zone(later) == after;
    if (holdsEarlier && holdsLater) {
        const bool begunBefore = last > later - secondsPerDay && zone(last) == after;
        return begunBefore || earlier + clockCorrection < last ? later : earlier;
    }
    return holdsLater ? later : earlier;
}
