// One simulated counter: an address, settings, a running clock, and counts that rise as people pass.
#pragma once

#include <cstdint>

#include "framework/Time.h"
#include "line/LineFrames.h"
#include "line/LineRandom.h"
#include "port/LineTime.h"

class CLineCounter {
public:
    // `date` is what the clock shows at `now`. The counts start at 0 and stand still until SetRate.
    CLineCounter(std::uint8_t address, const CalendarFields& date, LineTime now, std::uint64_t seed);

    std::uint8_t Address() const { return address; }
    void SetAddress(std::uint8_t newAddress) { address = newAddress; }

    // 16 bits wide as in the counters: 65535 is followed by 0.
    const LineCounts& Counts() const { return counts; }
    void SetCounts(const LineCounts& newCounts) { counts = newCounts; }

    const LineSettings& Settings() const { return settings; }
    void SetSettings(const LineSettings& newSettings) { settings = newSettings; }

    // The clock runs with the time passed in, without summer time; after 2099 comes 2000.
    CalendarFields Date(LineTime now) const;
    void SetDate(const CalendarFields& date, LineTime now);

    // People per minute from `now` on, in and out together; 0 stops. They come at uneven gaps, and nobody goes out who
    // wasn't counted in.
    void SetRate(int peoplePerMinute, LineTime now);
    // Counts everybody who has passed by `now`.
    void Advance(LineTime now);

private:
    LineTime Gap();

    std::uint8_t address;
    LineCounts counts;
    LineSettings settings;
    std::int64_t clockStart = 0; // seconds since 2000-01-01 00:00:00 at `clockSet`
    LineTime clockSet{};
    int rate = 0;
    LineTime nextPerson{};
    CLineRandom random;
};
