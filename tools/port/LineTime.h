// Time on a line: microseconds of a monotonic clock, any origin.
//
// What is pure never asks a clock itself. Whoever calls it says what time it is, so a test can run hours in no time.
#pragma once

#include <chrono>

using LineTime = std::chrono::microseconds;

// What a front end passes in. On one machine it compares across processes.
inline LineTime SteadyLineTime() {
    return std::chrono::duration_cast<LineTime>(std::chrono::steady_clock::now().time_since_epoch());
}
