// What the faults in force make of a good record on its way to the line.
#pragma once

#include <cstddef>
#include <cstdint>

#include "line/LineFaults.h"
#include "line/LineFrames.h"
#include "line/LineRandom.h"
#include "port/LineTime.h"

struct SpokenReply {
    LineBytes bytes;
    LineTime delay{};        // beyond the usual turnaround
    std::size_t pauseAt = 0; // bytes before the pause
    LineTime pause{};        // 0: spoken in one piece
    LineTime latency{};      // handed over in lumps at its multiples; 0: as spoken
};

// `record` is a whole record of the counter at `address`, with a clock field at byte 2 if `hasClock`. Counts down the
// faults it takes; those that don't apply to such a record are left alone.
SpokenReply SpeakRecord(LineBytes record, std::uint8_t address, bool hasClock, CLineFaults& faults,
                        CLineRandom& random);
