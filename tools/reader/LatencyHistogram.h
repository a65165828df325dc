// Least, median and greatest of any number of latencies, in a fixed space.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

class CLatencyHistogram {
public:
    // Milliseconds; a negative one counts as 0.
    void Take(std::int32_t milliseconds) {
        const std::int32_t latency = std::max(milliseconds, 0);
        least = count == 0 ? latency : std::min(least, latency);
        greatest = count == 0 ? latency : std::max(greatest, latency);
        ++counts.at(std::min(static_cast<std::size_t>(latency), counts.size() - 1));
        ++count;
    }

    bool IsEmpty() const { return count == 0; }
    // In milliseconds; 0 while empty.
    std::int32_t Least() const { return least; }
    std::int32_t Greatest() const { return greatest; }
    // The lower of the two in the middle, if there are two. One above 511 ms comes out as 511.
    std::int32_t Median() const {
        std::uint64_t below = 0;
        std::size_t at = 0;
        while (at < counts.size() - 1 && (below += counts.at(at)) * 2 < count) ++at;
        return count == 0 ? 0 : static_cast<std::int32_t>(at);
    }

private:
    std::array<std::uint64_t, 512> counts{}; // by milliseconds; the last also has all that is slower
    std::uint64_t count = 0;
    std::int32_t least = 0, greatest = 0;
};
