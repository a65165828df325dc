// How long the machine itself let others wait, by samples of somebody who wants next to nothing of it.
#pragma once

#include <algorithm>
#include <span>

#include "port/LineTime.h"

// One sample: when it began and ended, and how much of that was waiting.
struct MachineWait {
    LineTime begin, end, late;
};

// The waiting between `begin` and `end`. Of a sample that lies partly outside, no more counts than lies within; up to
// a millisecond of each is what a machine with time takes as well.
inline LineTime WaitsWithin(std::span<const MachineWait> samples, LineTime begin, LineTime end) {
    constexpr LineTime usual = std::chrono::milliseconds(1);
    LineTime sum{};
    for (const MachineWait& sample : samples) {
        const LineTime within = std::min(sample.end, end) - std::max(sample.begin, begin);
        sum += std::max(LineTime(0), std::min(sample.late - usual, within));
    }
    return sum;
}
