// What waits to be spoken on the line: one transmission after the other, a byte at a time, at the line's pace.
#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "line/LineFrames.h"
#include "line/LineTime.h"

class CReplyQueue {
public:
    // `timeOfByte` is what one byte takes on the wire, `silence` the least between two transmissions.
    CReplyQueue(LineTime timeOfByte, LineTime silence) : byteTime(timeOfByte), gap(silence) {}

    // Speaks `bytes` from `start` on, or as soon after it as the line is free. Those that wait are spoken in the order
    // of their start, equal ones in the order in which they were added; none is cut into.
    void Add(LineTime start, LineBytes bytes);

    // The bytes whose last bit has passed by `now`, in order.
    LineBytes TakeDue(LineTime now);
    // When the next byte is due; none if nothing waits.
    std::optional<LineTime> NextDue() const;

    void Clear();

private:
    struct Transmission {
        LineTime start;
        LineBytes bytes;
    };
    LineTime FirstDue(const Transmission& transmission) const;

    LineTime byteTime;
    LineTime gap;
    std::deque<Transmission> waiting; // by rising start
    LineBytes speaking;
    std::size_t spoken = 0;
    LineTime lastDue{};     // end of the last byte spoken
    bool everSpoke = false; // lastDue means something
};
